#include "app/options.h"

#include <array>
#include <string_view>

namespace app {

namespace {

struct OptionRow {
    std::string_view name;
    void (*store)(Options& options, const std::string& value);
};

constexpr std::array kOptions{
    OptionRow{"--home",
              [](Options& options, const std::string& value) {
                  options.home = value;
              }},
    OptionRow{"--wdir",
              [](Options& options, const std::string& value) {
                  options.workingDirectories = value;
              }},
    OptionRow{"--project",
              [](Options& options, const std::string& value) {
                  options.project = value;
              }},
    OptionRow{"--catalogue",
              [](Options& options, const std::string& value) {
                  options.catalogue = value;
              }},
    OptionRow{"--page",
              [](Options& options, const std::string& value) {
                  options.page = value;
              }},
};

const OptionRow* findOption(std::string_view name) {
    for (const OptionRow& row : kOptions) {
        if (row.name == name)
            return &row;
    }
    return nullptr;
}

constexpr std::string_view kNetlist = "--netlist"; // has no value

// These stand in the place of a command: they print something and end.
bool isInformation(std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--version";
}

} // namespace

CommandLine parseCommandLine(std::span<const char* const> arguments) {
    CommandLine line;
    while (!arguments.empty()) {
        const std::string_view argument = arguments.front();
        arguments = arguments.subspan(1);
        if (!argument.starts_with("-") || isInformation(argument)) {
            line.command = argument;
            if (line.command.empty())
                line.error = "the command is empty";
            line.arguments.assign(arguments.begin(), arguments.end());
            return line;
        }
        if (argument == kNetlist) {
            line.options.netlist = true;
            continue;
        }
        const auto equals = argument.find('=');
        const OptionRow* option = findOption(argument.substr(0, equals));
        if (!option) {
            line.error = "unknown option " + std::string(argument);
            return line;
        }
        if (equals != std::string_view::npos) {
            option->store(line.options, std::string(argument.substr(equals + 1)));
        } else if (!arguments.empty()) {
            option->store(line.options, arguments.front());
            arguments = arguments.subspan(1);
        } else {
            line.error = "a value is missing after " + std::string(argument);
            return line;
        }
    }
    return line;
}

std::optional<std::string> misplacedOption(std::span<const std::string> arguments) {
    for (const std::string& argument : arguments) {
        const std::string name = argument.substr(0, argument.find('='));
        if (findOption(name) || name == kNetlist || isInformation(name))
            return name + " stands before the command";
    }
    return std::nullopt;
}

} // namespace app
