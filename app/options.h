#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace app {

/// The options that stand before the command and hold for each of them.
struct Options {
    std::optional<std::string> home;
    std::optional<std::string> workingDirectories;
    std::optional<std::string> project;
    std::string catalogue = "settings.xml";
    std::optional<std::string> page;
    bool netlist = false; ///< the pages of designs are those of the netlist tool
};

/// A command line, taken apart.
struct CommandLine {
    Options options;
    std::string command; ///< empty for the dialog
    std::vector<std::string> arguments;
    std::optional<std::string> error; ///< what is wrong with the command line
};

/// Takes a command line apart. What follows the command belongs to it as it stands, so that a value may begin
/// with "-".
/// @param arguments without the program's name.
CommandLine parseCommandLine(std::span<const char* const> arguments);

/// What is wrong with arguments of which one is an option that stands before the command, or nothing.
std::optional<std::string> misplacedOption(std::span<const std::string> arguments);

} // namespace app
