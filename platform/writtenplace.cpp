#include "platform/writtenplace.h"

#include "platform/atomicfile.h"
#include "platform/paths.h"

#include <filesystem>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

std::optional<std::string> placeOfWrite(const std::string& path) {
    const fs::path target = AtomicFile(fullPath(path)).path();
    std::error_code error;
    const fs::path directory = fs::canonical(target.parent_path(), error);
    if (error || !target.has_filename())
        return std::nullopt;
    return (directory / target.filename()).string();
}

std::optional<std::string> restBelow(const std::string& place, const std::string& directory) {
    if (directory.empty())
        return std::nullopt;
    std::error_code error;
    std::string whole = fs::canonical(fullPath(directory), error).string();
    if (whole == "/")
        whole.clear();
    const bool isBelow =
        !error && place.starts_with(whole) && place.size() > whole.size() && place[whole.size()] == '/';
    return isBelow ? std::optional(place.substr(whole.size())) : std::nullopt;
}

} // namespace platform
