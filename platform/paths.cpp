#include "platform/paths.h"

#include "platform/asciicase.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace platform {

namespace {

constexpr char kSeparator = '/';

// A symbolic link that leads nowhere is a name on disk all the same.
bool nameExists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

thread_local RememberedDirectories* remembered = nullptr;

template <typename Visit>
void forEachName(const std::string& directory, Visit visit) {
    struct Close {
        void operator()(DIR* stream) const { closedir(stream); }
    };
    const std::unique_ptr<DIR, Close> stream(opendir(directory.empty() ? "." : directory.c_str()));
    while (const dirent* entry = stream ? readdir(stream.get()) : nullptr)
        visit(std::string(entry->d_name));
}

std::optional<std::string> nameWithoutCase(const std::string& directory, const std::string& name) {
    if (remembered)
        return remembered->find(directory, name);
    std::optional<std::string> found;
    forEachName(directory, [&](std::string entry) {
        if (equalsWithoutCase(entry, name) && (!found || entry < *found))
            found = std::move(entry);
    });
    return found;
}

bool isFullElsewhere(std::string_view path) {
    const bool isRootOfDrive =
        hasDrive(path) && path.size() > kDriveLength && isSeparator(path[kDriveLength]);
    return isRootOfDrive || path.starts_with("\\\\");
}

/// Longer than any system call takes, or with a character that ends a path for it.
bool isNoPath(std::string_view path) {
    return path.size() > kLongestPath || path.find('\0') != std::string_view::npos;
}

std::string withSingleSeparators(std::string path) {
    const auto repeats = [](char one, char next) {
        return one == kSeparator && next == kSeparator;
    };
    path.erase(std::unique(path.begin(), path.end(), repeats), path.end());
    return path;
}

/// Of the directories that are spelled exactly, with a separator behind them. They are looked for from the
/// end: mostly, it is the last name alone that is not there.
std::size_t sizeOfExactPart(const std::string& path) {
    std::size_t size = path.rfind(kSeparator) + 1;
    while (size > 0 && !nameExists(path.substr(0, size)))
        size = size > 1 ? path.rfind(kSeparator, size - 2) + 1 : 0;
    return size;
}

} // namespace

std::string platformPath(std::string_view text) {
    std::string path(text);
    std::replace(path.begin(), path.end(), '\\', kSeparator);
    return path;
}

PathParts splitPath(std::string_view text) {
    const auto separator = text.find_last_of(kSeparators);
    if (separator == std::string_view::npos)
        return {{}, text};
    return {text.substr(0, separator), text.substr(separator + 1)};
}

std::string directoryOf(std::string_view path) {
    const std::string_view directory = splitPath(path).directory;
    return directory.empty() && !isBareName(path) ? "/" : std::string(directory);
}

std::string MakeFilePath(std::string_view directory, std::string_view name, std::string_view extension) {
    std::string path(directory);
    if (!path.empty() && !isSeparator(path.back()))
        path += kSeparator;
    path += name;
    if (!extension.empty())
        path.append(1, '.').append(extension);
    return path;
}

std::string asDirectoryEntry(std::string_view directory) {
    std::string entry = platformPath(directory);
    while (entry.size() > 1 && entry.back() == kSeparator)
        entry.pop_back();
    return entry;
}

std::optional<std::string_view> restBehind(std::string_view path, std::string_view directory) {
    if (directory == "/")
        directory = {};
    if (!path.starts_with(directory))
        return std::nullopt;
    path.remove_prefix(directory.size());
    return path.empty() || path.front() == kSeparator ? std::optional(path) : std::nullopt;
}

bool hasDrive(std::string_view path) {
    return path.size() >= kDriveLength && isLetter(path[0]) && path[1] == ':';
}

bool isRooted(std::string_view path) {
    return !path.empty() && isSeparator(path.front());
}

bool isFull(std::string_view path) {
    return isRooted(path) || isFullElsewhere(path);
}

bool isBareName(std::string_view text) {
    return text.find_first_of(kSeparators) == std::string_view::npos;
}

RememberedDirectories::Use::Use(RememberedDirectories& directories)
    : outer_(std::exchange(remembered, &directories)) {
}

RememberedDirectories::Use::~Use() {
    remembered = outer_;
}

std::optional<std::string> RememberedDirectories::find(const std::string& directory,
                                                       const std::string& name) {
    const auto [listing, isNew] = names_.try_emplace(directory);
    auto& names = listing->second;
    if (isNew) {
        forEachName(directory, [&](const std::string& entry) {
            const auto [known, isFirst] = names.try_emplace(inLowerCase(entry), entry);
            if (!isFirst)
                known->second = std::min(known->second, entry);
        });
    }
    const auto found = names.find(inLowerCase(name));
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> exactPath(std::string_view text) {
    return isNoPath(text) ? std::nullopt : std::optional(withSingleSeparators(platformPath(text)));
}

std::optional<std::string> resolveExisting(std::string_view text) {
    auto path = exactPath(text);
    if (!path || nameExists(*path))
        return path;
    std::string resolved = path->substr(0, sizeOfExactPart(*path));
    for (std::size_t begin = resolved.size(); begin < path->size();) {
        const auto end = std::min(path->find(kSeparator, begin), path->size());
        const std::string name = path->substr(begin, end - begin);
        if (nameExists(resolved + name)) {
            resolved += name;
        } else if (!name.empty()) {
            const auto spelled = nameWithoutCase(resolved, name);
            if (!spelled)
                return std::nullopt;
            resolved += *spelled;
        }
        if (end < path->size())
            resolved += kSeparator;
        begin = end + 1;
    }
    if (!nameExists(resolved))
        return std::nullopt;
    return resolved;
}

std::string fullPath(std::string_view path) {
    if (isNoPath(path))
        return std::string(path);
    const auto existing = resolveExisting(path);
    if (!existing && isFullElsewhere(path))
        return std::string(path);
    std::error_code noCurrentDirectory;
    const auto full = std::filesystem::absolute(existing.value_or(platformPath(path)), noCurrentDirectory);
    return noCurrentDirectory ? std::string(path) : withoutDots(full.string());
}

std::string withoutDots(const std::string& path) {
    namespace fs = std::filesystem;
    if (isNoPath(path))
        return path;
    const fs::path normal = fs::path(path).lexically_normal();
    if (path.find("..") == std::string::npos)
        return normal.string();
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    const bool isMisled = !error && fs::weakly_canonical(normal, error) != real && !error;
    return (isMisled ? real : normal).string();
}

Place::Place(const std::string& path) {
    if (isNoPath(path)) {
        text_ = path;
        return;
    }
    const auto normal = std::filesystem::path(platformPath(path)).lexically_normal();
    text_ = (normal.has_filename() ? normal : normal.parent_path()).string();
    struct stat status = {};
    const auto existing = resolveExisting(path);
    if (existing && stat(existing->c_str(), &status) == 0)
        onDisk_.emplace(status.st_dev, status.st_ino);
}

bool Place::operator==(const Place& other) const {
    return onDisk_ && other.onDisk_ ? onDisk_ == other.onDisk_ : text_ == other.text_;
}

bool isDirectory(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isFile(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool isSameOnDisk(const std::string& one, const std::string& other) {
    std::error_code none;
    return one == other || std::filesystem::equivalent(one, other, none);
}

} // namespace platform
