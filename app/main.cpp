#include "app/commands.h"
#include "app/outcome.h"
#include "app/workspace.h"
#include "platform/printable.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <span>
#include <string_view>

namespace {

constexpr std::string_view kHelp =
    R"(usage: orvane-settings [OPTION...] [COMMAND]

Without a command, opens the settings dialog, and prints "changed: NAME" for each page that was changed.

commands:
  list [--changed] [--json]   every key: kind, where its values come from, locks, values;
                              --changed: only those that differ from the built-in default;
                              --json: with caption, unit, limits and choices
  get KEY                     the values of a key, one field a line
  set [--force] KEY VALUE...  stores all fields of a key in the user's directory;
                              --force: also what the dialog would refuse
  explain KEY                 what each working directory says about a key, and what won
  describe KEY... [--json]    what a key means: caption, unit, limits, choices, built-in default
  print-colors [--json]       each object's color on screen and in print
  scheme show FILE            the color schemes of a scheme file: palettes and layers
  tour DIRECTORY [--dark] [--size WIDTHxHEIGHT]
                              visits every category of the dialog without a screen, and saves
                              a picture of each, and summary.txt, in the directory

options, before the command:
  --home DIR        the installation; otherwise RSR_HOME, otherwise the sample installation
  --wdir LIST       the working directories, separated by ";", the user's first; otherwise WDIR,
                    otherwise the user's own, then site and standard of the installation
  --project FILE    the project to open with the dialog or the tour; otherwise none
  --netlist         the project is one of the netlist tool: pages of designs have the top-level block alone
  --catalogue NAME  the dialog's catalogue in the installation's standard directory (settings.xml)
  --page NAME       the category to open the dialog at, by its name in the catalogue
  --help, --version

exit status: 0 done, 1 refused or failed, 2 the command line makes no sense
)";

int runHelp(const app::Options&, app::Arguments) {
    std::cout << kHelp;
    return app::kDone;
}

int runVersion(const app::Options&, app::Arguments) {
    std::cout << "orvane-settings " OV_VERSION "\n";
    return app::kDone;
}

struct CommandRow {
    std::string_view name;
    int (*run)(const app::Options& options, app::Arguments arguments);
};

constexpr std::array kCommands{
    CommandRow{"", app::openDialogFromModule},
    CommandRow{"list", app::runList},
    CommandRow{"get", app::runGet},
    CommandRow{"set", app::runSet},
    CommandRow{"explain", app::runExplain},
    CommandRow{"describe", app::runDescribe},
    CommandRow{"print-colors", app::runPrintColors},
    CommandRow{"scheme", app::runScheme},
    CommandRow{"tour", app::tourFromModule},
    CommandRow{"--help", runHelp},
    CommandRow{"-h", runHelp},
    CommandRow{"--version", runVersion},
};

int run(const app::CommandLine& line) {
    if (line.error)
        return app::misuse(*line.error);
    const auto command = std::ranges::find(kCommands, line.command, &CommandRow::name);
    if (command == kCommands.end())
        return app::misuse("unknown command " + line.command);
    // What is set may be any text.
    if (const auto objection = app::misplacedOption(line.arguments); objection && line.command != "set")
        return app::misuse(*objection);
    const int status = command->run(line.options, line.arguments);
    if (!std::cout.flush())
        return app::refuse("the output cannot be written");
    return status;
}

} // namespace

int main(int argc, char** argv) {
    try {
        const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
        return run(app::parseCommandLine(words.subspan(std::min<std::size_t>(1, words.size()))));
    } catch (const std::exception& failure) {
        return app::refuse(failure.what());
    } catch (...) { // an add-in may throw anything
        return app::refuse("an unknown error");
    }
}
