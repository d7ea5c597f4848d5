#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

/// What became of one run of orvane-settings.
struct Outcome {
    int status = -1; ///< exit status; -1 if the program did not end by itself
    std::string out;
    std::string err;
};

/// What is different from an ordinary run.
struct Circumstances {
    std::map<std::string, std::optional<std::string>> environment; ///< no value: the variable is not set
    bool obeysPermissions = false; ///< runs without the superuser's right to write anywhere
    std::string outputFile;        ///< takes the place of `out`
};

using Words = std::vector<std::string>;

/// Runs the built program to its end.
Outcome runProgram(const Words& arguments, const Circumstances& circumstances = {});

/// The same on a terminal of its own, which takes both outputs: all is in `out`.
Outcome runOnTerminal(const Words& arguments);
