#pragma once

#include "app/options.h"

#include <span>
#include <string>

namespace app {

/// A command's words behind its name.
using Arguments = std::span<const std::string>;

/// Each command does its work, tells a failure in one line on standard error, and gives the exit status.
int runList(const Options& options, Arguments arguments);
int runGet(const Options& options, Arguments arguments);
int runSet(const Options& options, Arguments arguments);
int runExplain(const Options& options, Arguments arguments);
int runDescribe(const Options& options, Arguments arguments);
int runPrintColors(const Options& options, Arguments arguments);
int runScheme(const Options& options, Arguments arguments);

/// The same from the module that has the dialog. @return a refusal where that is not there.
int openDialogFromModule(const Options& options, Arguments arguments);
int tourFromModule(const Options& options, Arguments arguments);

} // namespace app
