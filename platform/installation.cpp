#include "platform/installation.h"

#include "platform/environment.h"
#include "platform/paths.h"

#include <filesystem>
#include <mutex>
#include <system_error>

namespace platform {

namespace {

std::string fromTheRoot(const std::string& name) {
    std::error_code lost;
    const auto here = std::filesystem::current_path(lost);
    return lost ? name : (here / platformPath(name)).string();
}

} // namespace

std::string installationDirectory() {
    static std::mutex mutex;
    static std::string known;
    static std::string absolute;

    const std::string name = environmentVariable("RSR_HOME").value_or("");
    if (name.empty() || isFull(name))
        return name;
    const std::lock_guard lock(mutex);
    if (known != name) {
        known = name;
        absolute = fromTheRoot(name);
    }
    return absolute;
}

} // namespace platform
