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
    const std::string whole = fs::canonical(fullPath(directory), error).string();
    const auto rest = error ? std::nullopt : restBehind(place, whole);
    return rest && !rest->empty() ? std::optional<std::string>(*rest) : std::nullopt;
}

} // namespace platform
