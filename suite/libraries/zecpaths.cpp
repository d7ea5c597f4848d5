// Paths of libraries, and what may be done there.

#include "suite/zec.h"

#include "platform/environmentreferences.h"
#include "platform/paths.h"
#include "platform/remotefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

constexpr std::string_view kTmpMnt = "/tmp_mnt";

/// A path on this platform, cut where it stops to exist.
struct Place {
    std::string existing; ///< spelled as on disk; empty if the path is none of this platform
    std::string missing;  ///< empty if all of it exists
};

Place placeOf(const std::string& path) {
    if (path.empty() || path.size() > platform::kLongestPath || platform::IsRemotePath(path))
        return {};
    std::string directory = platform::fullPath(path);
    if (!platform::isRooted(directory))
        return {};
    std::string missing;
    for (;;) {
        ZECRemoveLastSlash(directory);
        const auto existing = platform::resolveExisting(directory);
        if (existing || directory == "/")
            return {existing.value_or(directory), missing};
        const auto name = directory.rfind('/');
        missing.insert(0, directory.substr(name));
        directory.resize(name == 0 ? 1 : name);
    }
}

bool isDriveRoot(std::string_view path) {
    return path.size() == platform::kDriveLength + 1 && platform::hasDrive(path);
}

} // namespace

void ZECString::ConvertEnvironmentVariables() {
    text_ = platform::expandEnvironmentReferences(text_);
}

int ZECIsReadOnlyFileSystem(const std::string& path) {
    const Place place = placeOf(path);
    if (place.existing.empty())
        return 1;
    const bool isDirectory = platform::isDirectory(place.existing);
    if (!isDirectory && !place.missing.empty())
        return 1;
    struct statvfs system;
    if (statvfs(place.existing.c_str(), &system) == 0 && (system.f_flag & ST_RDONLY) != 0)
        return 1;
    const int needed = W_OK | (isDirectory ? X_OK : 0);
    return faccessat(AT_FDCWD, place.existing.c_str(), needed, AT_EACCESS) == 0 ? 0 : 1;
}

void ZECRemoveLastSlash(std::string& path) {
    if (path.size() > 1 && platform::isSeparator(path.back()) && !isDriveRoot(path))
        path.pop_back();
}

char ZECGetSlash(const std::string& path) {
    const auto separator = path.find_first_of(platform::kSeparators);
    return separator == std::string::npos ? '/' : path[separator];
}

void ZECPathRemoveTmpMnt(std::string& path) {
    const std::string slashed = platform::platformPath(path);
    if (slashed.starts_with(kTmpMnt) && slashed.size() > kTmpMnt.size() && slashed[kTmpMnt.size()] == '/')
        path.erase(0, kTmpMnt.size());
}

int ZECMakePath(const std::string& path) {
    const Place place = placeOf(path);
    if (place.existing.empty())
        return 0;
    std::error_code refused;
    const std::string directory = place.existing + place.missing;
    std::filesystem::create_directories(directory, refused);
    return platform::isDirectory(directory) ? 1 : 0;
}
