#pragma once

#include "app/options.h"

#include <orv/appconfiguration.h>

#include <functional>
#include <optional>
#include <string>

namespace app {

/// Puts `RSR_HOME` and `WDIR` into the environment of the process: from the options, else from the
/// environment, else the sample installation, with the user's directory of the platform before it. The latter
/// is made if it is missing.
void setUpEnvironment(const Options& options);

/// Loads the configuration. @return why that failed, or nothing.
std::optional<std::string> loadConfiguration(Orv::iAppConfiguration& configuration);

/// Why nothing could be saved, as far as it can be told before trying, or nothing.
std::optional<std::string> obstacleToSaving(const Orv::iAppConfiguration& configuration);

/// setUpEnvironment and loadConfiguration. A failure is told. @return true if the configuration is loaded.
bool openConfiguration(const Options& options, Orv::iAppConfiguration& configuration);

/// Receives, until the end of its scope, what the configuration files' reader and writer have to complain
/// about.
class ScopedErrorHandler {
public:
    explicit ScopedErrorHandler(std::function<void(const std::string& message)> handler);
    ~ScopedErrorHandler();
    ScopedErrorHandler(const ScopedErrorHandler&) = delete;
    ScopedErrorHandler& operator=(const ScopedErrorHandler&) = delete;
};

} // namespace app
