#include "platform/installation.h"

#include "platform/environment.h"
#include "platform/paths.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {

std::string installationDirectory() {
    return environmentVariable("RSR_HOME").value_or("");
}

// In the environment and not in a variable of ours: each of the libraries has its own copy of this floor, and
// programs that are started inherit it.
void fixInstallationDirectory() {
    const std::string name = platformPath(installationDirectory());
    if (name.empty() || isRooted(name))
        return;
    std::error_code lost;
    const auto here = std::filesystem::current_path(lost);
    if (!lost)
        setenv("RSR_HOME", (here / name).c_str(), 1);
}

} // namespace platform
