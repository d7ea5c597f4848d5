#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace platform {

/// In bytes. No system call takes a longer one, so what is longer is no path, and leads nowhere. Nor is a
/// text with a null character one.
constexpr std::size_t kLongestPath = 4095;

/// What separates the names of a path.
inline constexpr std::string_view kSeparators = "/\\";

constexpr bool isSeparator(char c) {
    return kSeparators.find(c) != std::string_view::npos;
}

/// A path cut at its last separator of either kind, which belongs to neither part.
struct PathParts {
    std::string_view directory; ///< empty for a bare name
    std::string_view name;
};

/// The text with each "\" turned into the platform's separator. For the moment of file access only: texts are
/// stored and shown as they were given.
std::string platformPath(std::string_view text);

/// The parts are views of the text.
PathParts splitPath(std::string_view text);

/// The directory of a path by its text alone: that of "/name" is the root, that of a bare name is empty.
std::string directoryOf(std::string_view path);

/// Joins a directory, a file name and an extension (without its dot, may be empty).
std::string MakeFilePath(std::string_view directory, std::string_view name, std::string_view extension = {});

/// A directory as a list of directories has it: as platformPath gives it, without "/" at its end, but for the
/// root.
std::string asDirectoryEntry(std::string_view directory);

/// What of a path stands behind a directory that it names, or that it lies below: empty, or from "/" on. By
/// the text alone, both as asDirectoryEntry gives them; an empty directory is the root. Only whole names
/// count: "/boards/v12" does not lie below "/boards/v1".
std::optional<std::string_view> restBehind(std::string_view path, std::string_view directory);

/// In bytes: a drive letter and its colon.
constexpr std::size_t kDriveLength = 2;
/// True if the text begins with a drive letter and its colon, whatever follows.
bool hasDrive(std::string_view path);

/// True for a path from the root of this system.
bool isRooted(std::string_view path);
/// True for a path from the root, and for one with a drive letter or a server name, which is full elsewhere.
bool isFull(std::string_view path);

/// True if the text has no separator of either kind.
bool isBareName(std::string_view text);

/// The name under which resolveExisting looks first: with separators of the platform, and one of several in a
/// row. @return nothing if the text is no path.
std::optional<std::string> exactPath(std::string_view text);

/// Finds what a path names on disk: in its exact spelling, or else component by component, each in its exact
/// spelling first and then without regard to the case of ASCII letters; of several such names the first in
/// byte order. Of several separators in a row one counts.
/// @return the path as it is spelled on disk, or nothing if there is none, or the text is no path.
std::optional<std::string> resolveExisting(std::string_view path);

/// What look-ups without regard to case have read of directories, so that a long list of paths reads each
/// directory once. A name that comes or goes later may be missed.
class RememberedDirectories {
public:
    /// While one lives, the look-ups of its thread use, and fill, what is remembered.
    class Use {
    public:
        explicit Use(RememberedDirectories& directories);
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        RememberedDirectories* outer_;
    };

    /// The first name of a directory, in byte order, that equals this one without case.
    std::optional<std::string> find(const std::string& directory, const std::string& name);

private:
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> names_; ///< by lower case
};

/// The path from the root, without "." and "..". A relative path begins at the current directory, and what is
/// on disk gets its spelling there. A path with a drive letter or a server name is full elsewhere and stays
/// as it is, and so does what is no path.
std::string fullPath(std::string_view path);

/// A full path without "." and "..". What is on disk stays what it is: where a link on the way leads "..", to
/// another place than the text alone, the path is the one that the links lead to. What is no path stays as
/// it is.
std::string withoutDots(const std::string& path);

/// Where a path leads, however it is spelled: equal if it is one place on disk; where either path leads
/// nowhere, if their texts do not differ but in "." and "..".
class Place {
public:
    explicit Place(const std::string& path);

    bool operator==(const Place& other) const;

private:
    std::string text_;
    std::optional<std::pair<std::uint64_t, std::uint64_t>> onDisk_; ///< device and file
};

bool isDirectory(const std::string& path);
/// True for a regular file; a pipe would make who reads it wait.
bool isFile(const std::string& path);
/// Whether two paths are one text, or lead to one place on disk.
bool isSameOnDisk(const std::string& one, const std::string& other);

} // namespace platform
