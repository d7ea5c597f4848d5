#pragma once

#include "app/options.h"
#include "platform/result.h"

#include <orv/appconfiguration.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

/// Puts `RSR_HOME` and `WDIR` into the environment of the process: from the options, else from the
/// environment, else the sample installation, with the user's directory of the platform before it.
platform::Result<> setUpEnvironment(const Options& options);

/// Where the program's own modules are.
std::filesystem::path moduleDirectory();

/// `RSR_HOME` as the store reads it, with forward slashes and none at its end; empty if it is not set.
std::string installation();

platform::Result<> loadConfiguration(Orv::iAppConfiguration& configuration);

/// A line for each working directory that does not exist, but for the user's directory of the platform, which
/// is made when it is needed.
std::vector<std::string> missingDirectories(const Orv::iAppConfiguration& configuration);
/// Tells these lines on standard error.
void tellMissingDirectories(const Orv::iAppConfiguration& configuration);

/// Makes the user's directory of the platform if it is to be saved in and missing; the configuration is then
/// loaded anew, so that it knows that nothing is there.
/// @return why nothing could be saved, as far as it can be told before trying.
platform::Result<> prepareToSave(Orv::iAppConfiguration& configuration);

/// setUpEnvironment and loadConfiguration. A failure is told. @return true if the configuration is loaded.
bool openConfiguration(const Options& options, Orv::iAppConfiguration& configuration);
/// As openConfiguration; what only reads tells of the working directories that do not exist, too.
bool openToRead(const Options& options, Orv::iAppConfiguration& configuration);

/// Receives, until the end of its scope, whatever the libraries have to complain about.
class ScopedErrorHandler {
public:
    explicit ScopedErrorHandler(std::function<void(const std::string& message)> handler);
    ~ScopedErrorHandler();
    ScopedErrorHandler(const ScopedErrorHandler&) = delete;
    ScopedErrorHandler& operator=(const ScopedErrorHandler&) = delete;
};

} // namespace app
