#include "suite/project/locationmap.h"

#include "details/platform/asciicase.h"
#include "details/platform/environment.h"
#include "details/platform/paths.h"
#include "details/platform/remotefile.h"
#include "suite/project/projectlog.h"
#include "suite/project/textfile.h"
#include "suite/wdirutils.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace suite {

namespace {

constexpr char kFileName[] = "location.map";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";
/// Names that lead to names; more of them are taken for a circle.
constexpr int kDeepest = 32;
/// Names that lead to names make a path grow; far beyond what a system takes is far enough.
constexpr std::size_t kLongestPath = 1u << 16;

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::string_view unquoted(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

constexpr std::size_t kDriveLength = 2;

bool hasDrive(std::string_view path) {
    return path.size() > kDriveLength && platform::isLetter(path[0]) && path[1] == ':' &&
           isSeparator(path[kDriveLength]);
}

/// Whether a path needs no directory to begin at.
bool isFull(std::string_view path) {
    return hasDrive(path) || platform::IsRemotePath(path) || (!path.empty() && isSeparator(path.front()));
}

/// Without "." and "..", and without a separator at the end: the root is an empty text. Of a remote location
/// the rest is its server's to understand, down to the two separators before the server's name.
std::string normalDirectory(const std::string& path) {
    if (platform::IsRemotePath(path))
        return path.substr(0, path.size() - (path.ends_with('/') ? 1 : 0));
    // By the text alone, since a disk may not answer. No ".." leads out of a drive.
    const std::size_t root = hasDrive(path) ? kDriveLength : 0;
    std::string normal =
        path.substr(0, root) + std::filesystem::path(path.substr(root)).lexically_normal().string();
    while (!normal.empty() && normal.back() == '/')
        normal.pop_back();
    return normal;
}

std::string directoryOf(std::string_view project) {
    const std::string full = project.empty() ? std::string() : platform::fullPath(project);
    if (full.empty() || platform::isDirectory(full))
        return full;
    const std::string_view directory = platform::splitPath(full).directory;
    return directory.empty() ? "/" : std::string(directory);
}

} // namespace

LocationMap LocationMap::ofProject(std::string_view project) {
    LocationMap map;
    map.directory_ = directoryOf(project);
    if (!map.directory_.empty())
        map.addFile(map.directory_);
    std::vector<std::string> workingDirectories;
    Orv::WdirUtils::GetWDIRs(workingDirectories);
    for (const std::string& directory : workingDirectories) {
        if (!directory.empty())
            map.addFile(directory);
    }
    return map;
}

void LocationMap::addFile(const std::string& directory) {
    const auto path = platform::resolveExisting(directory + '/' + kFileName);
    if (!path)
        return;
    std::string bytes;
    if (const auto error = readTextFile(*path, bytes)) {
        if (!error->missing)
            projectLog().reportOnce(*path, error->text);
        return;
    }
    if (const int line = add(bytes, directory))
        projectLog().reportOnce(*path, *path + ":" + std::to_string(line) +
                                           ": passed over: a line is \"$NAME DIRECTORY\"");
}

int LocationMap::add(std::string_view text, const std::string& directory) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    int firstBadLine = 0;
    for (int number = 1; !text.empty(); ++number) {
        const auto size = std::min(text.find('\n'), text.size() - 1) + 1;
        const bool understood = addLine(trimmed(text.substr(0, size)), directory);
        if (!understood && firstBadLine == 0)
            firstBadLine = number;
        text.remove_prefix(size);
    }
    return firstBadLine;
}

bool LocationMap::addLine(std::string_view line, const std::string& directory) {
    if (line.empty() || line.front() == '#')
        return true;
    const auto nameEnd = std::min(line.find_first_of(" \t="), line.size());
    const std::string_view name = line.substr(0, nameEnd);
    std::string_view value = trimmed(line.substr(nameEnd));
    if (value.starts_with('='))
        value = trimmed(value.substr(1));
    value = unquoted(value);
    if (name.size() <= 1 || !isSoftName(name) || !platform::isBareName(name) || value.empty())
        return false;
    if (index_.try_emplace(std::string(name.substr(1)), entries_.size()).second)
        entries_.push_back({std::string(name.substr(1)), std::string(value), directory});
    return true;
}

const LocationMap::Entry* LocationMap::find(const std::string& name) const {
    const auto found = index_.find(name);
    return found == index_.end() ? nullptr : &entries_[found->second];
}

std::optional<std::string> LocationMap::hardName(std::string_view text) const {
    std::string path(text);
    for (int depth = 0; isSoftName(path); ++depth) {
        const auto nameEnd = std::min(path.find_first_of("/\\"), path.size());
        const Entry* entry = find(path.substr(1, nameEnd - 1));
        if (!entry || depth == kDeepest || path.size() > kLongestPath)
            return std::nullopt;
        std::string directory = platform::expandEnvironmentReferences(entry->value);
        if (!isSoftName(directory)) {
            directory = platform::expandHome(platform::platformPath(directory));
            directory = normalDirectory(isFull(directory) ? directory : entry->base + '/' + directory);
            if (directory.empty() && nameEnd == path.size())
                directory = "/";
        }
        path = directory + platform::platformPath(std::string_view(path).substr(nameEnd));
    }
    return path;
}

std::optional<std::string> LocationMap::softName(std::string_view path) const {
    const std::string target = normalDirectory(platform::platformPath(path));
    const Entry* longest = nullptr;
    std::size_t length = 0;
    for (const Entry& entry : entries_) {
        const auto hard = hardName('$' + entry.name);
        if (!hard)
            continue;
        const std::string directory = normalDirectory(*hard);
        const bool above = target.starts_with(directory) &&
                           (target.size() == directory.size() || target[directory.size()] == '/');
        if (above && (!longest || directory.size() > length)) {
            longest = &entry;
            length = directory.size();
        }
    }
    if (!longest)
        return std::nullopt;
    return '$' + longest->name + target.substr(length);
}

std::string LocationMap::fullPath(std::string_view text) const {
    return fullPathOfExpanded(platform::expandEnvironmentReferences(text));
}

std::string LocationMap::fullPathOfExpanded(std::string path) const {
    if (path.empty())
        return path;
    if (isSoftName(path)) {
        const auto hard = hardName(path);
        if (!hard)
            return path;
        path = *hard;
    }
    if (platform::IsRemotePath(path))
        return path;
    path = platform::expandHome(std::move(path));
    if (isFull(path) || directory_.empty())
        return platform::fullPath(path);
    const std::string inDirectory = directory_ + '/' + path;
    // A reference that stands for nothing says more as it is than behind the project's directory.
    if (path.starts_with('%') && !platform::resolveExisting(inDirectory))
        return path;
    return platform::fullPath(inDirectory);
}

} // namespace suite
