#include "suite/projects/softnames.h"

#include "platform/environmentreferences.h"
#include "platform/error.h"
#include "platform/paths.h"
#include "platform/remotefile.h"
#include "suite/files/errorlog.h"
#include "suite/wdirutils.h"

#include <algorithm>
#include <utility>

namespace suite {

namespace {

/// Names that lead to names; more of them are taken for a circle.
constexpr int kDeepest = 32;
/// In bytes, that the text of a directory may be longer than its shortest. Who looks for the soft name of a
/// path looks at all there are.
constexpr std::size_t kLongestDetour = 512;
/// Of a soft name in a message.
constexpr std::size_t kMostShown = 60;

const std::string& tooLongToExpand() {
    static const std::string reason = "it is longer than " + platform::sizeText(platform::kLongestExpansion) +
                                      " once what it refers to is in place";
    return reason;
}

/// Without "." and "..", by the text alone, since a disk may not answer. Not by the standard library's paths,
/// which take a hundred times as long: a map may be full of names that lead to the longest paths.
std::string lexicallyNormal(std::string_view path) {
    const bool isRooted = path.starts_with('/');
    std::string normal(isRooted ? "/" : "");
    std::size_t climbed = normal.size(); // the beginning that no ".." takes away
    while (!path.empty()) {
        const std::string_view part = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(part.size() + 1, path.size()));
        if (part.empty() || part == "." || (part == ".." && isRooted && normal.size() == climbed))
            continue;
        if (part == ".." && normal.size() > climbed) {
            const auto slash = normal.rfind('/');
            normal.resize(slash == std::string::npos ? climbed : std::max(slash, climbed));
            continue;
        }
        if (!normal.empty() && normal.back() != '/')
            normal += '/';
        normal += part;
        if (part == "..")
            climbed = normal.size();
    }
    return normal;
}

/// Without "." and "..", and without a separator at the end: the root is an empty text. Of a remote location
/// the rest is its server's to understand, down to the two separators before the server's name.
std::string normalDirectory(const std::string& path) {
    if (platform::IsRemotePath(path))
        return path.substr(0, path.size() - (path.ends_with('/') ? 1 : 0));
    // No ".." leads out of a drive.
    const std::size_t root = platform::hasDrive(path) && platform::isFull(path) ? platform::kDriveLength : 0;
    std::string normal = path.substr(0, root) + lexicallyNormal(std::string_view(path).substr(root));
    while (!normal.empty() && normal.back() == '/')
        normal.pop_back();
    return normal;
}

std::string directoryOfProject(std::string_view project) {
    const std::string full = project.empty() ? std::string() : platform::fullPath(project);
    return full.empty() || platform::isDirectory(full) ? full : platform::directoryOf(full);
}

} // namespace

SoftNames SoftNames::ofProject(std::string_view project) {
    SoftNames map;
    map.directory_ = directoryOfProject(project);
    std::vector<std::string> directories;
    Orv::WdirUtils::GetWDIRs(directories);
    directories.insert(directories.begin(), map.directory_);
    for (const std::string& directory : directories) {
        if (auto file = directory.empty() ? nullptr : File::of(directory))
            map.files_.push_back(std::move(file));
    }
    return map;
}

int SoftNames::add(std::string_view text, const std::string& directory) {
    files_.push_back(std::make_shared<const File>(std::string(text), std::string(), directory));
    return files_.back()->firstBadLine();
}

SoftNames::Definition SoftNames::find(std::string_view name) const {
    for (const auto& file : files_) {
        if (const File::Entry* entry = file->find(name))
            return {file.get(), entry};
    }
    return {};
}

std::optional<std::string> SoftNames::directoryBehind(const Definition& definition, References references,
                                                      std::size_t longest) {
    const std::string_view value = definition.entry->value;
    if (value.size() > longest)
        return std::nullopt;
    auto directory = references == References::expand ? platform::tryExpandEnvironmentReferences(value)
                                                      : std::optional<std::string>(value);
    if (!directory || directory->size() > longest || isSoftName(*directory))
        return directory;
    const std::string path = platform::expandHome(platform::platformPath(*directory));
    const bool isWhole = platform::isFull(path) || platform::IsRemotePath(path);
    return normalDirectory(isWhole ? path : platform::MakeFilePath(definition.file->directory(), path));
}

SoftNames::Resolution SoftNames::resolve(std::string_view text, References references,
                                         std::size_t longest) const {
    std::string path(text);
    for (int depth = 0; isSoftName(path); ++depth) {
        const auto nameEnd = std::min(path.find_first_of(platform::kSeparators), path.size());
        const Definition definition = find(std::string_view(path).substr(1, nameEnd - 1));
        if (!definition.entry || depth == kDeepest)
            return {};
        auto directory = directoryBehind(definition, references, longest);
        if (!directory || directory->size() + path.size() - nameEnd > longest)
            return {std::nullopt, true};
        if (directory->empty() && nameEnd == path.size())
            directory = "/";
        path = *directory + platform::platformPath(std::string_view(path).substr(nameEnd));
    }
    return {path};
}

std::optional<std::string> SoftNames::hardName(std::string_view text) const {
    const Resolution expanded = resolve(text, References::expand, platform::kLongestExpansion);
    if (expanded.isTooLong)
        tell(text, tooLongToExpand());
    if (!expanded.path || !isSoftName(text) || !platform::IsRemotePath(*expanded.path))
        return expanded.path;
    const Resolution kept = resolve(text, References::keep, platform::kLongestExpansion);
    if (kept.path && platform::IsRemotePath(*kept.path))
        return kept.path;
    tell(text, "the environment must not make it a location on a server");
    return std::nullopt;
}

std::optional<std::string> SoftNames::softName(std::string_view path) const {
    const std::string target = normalDirectory(platform::platformPath(path));
    const References references = platform::IsRemotePath(target) ? References::keep : References::expand;
    const File::Entry* longest = nullptr;
    std::size_t length = 0;
    for (const auto& file : files_) {
        for (const File::Entry& entry : file->entries()) {
            const auto hard =
                resolve('$' + std::string(entry.name), references, target.size() + kLongestDetour).path;
            if (!hard)
                continue;
            const std::string directory = normalDirectory(*hard);
            if (platform::restBehind(target, directory) && (!longest || directory.size() > length)) {
                longest = &entry;
                length = directory.size();
            }
        }
    }
    if (!longest)
        return std::nullopt;
    return '$' + std::string(longest->name) + target.substr(length);
}

std::optional<std::string> SoftNames::realPath(std::string_view text) const {
    const auto expanded = platform::tryExpandEnvironmentReferences(text);
    if (!expanded)
        tell(tooLongToExpand());
    auto path = hardName(expanded.value_or(std::string(text)));
    if (!path || !platform::IsRemotePath(*path) || expanded == text)
        return path;
    const auto unexpanded = hardName(text);
    return unexpanded && platform::IsRemotePath(*unexpanded) ? unexpanded : std::string(text);
}

std::string SoftNames::fullPath(std::string_view text) const {
    const auto path = realPath(text);
    std::string full = path ? fullPathOfReal(*path) : platform::expandEnvironmentReferences(text);
    // A project may have any number of such texts.
    return full.size() > platform::kLongestPath ? std::string(text) : full;
}

std::string SoftNames::fullPathOfReal(std::string path) const {
    if (path.empty() || platform::IsRemotePath(path))
        return path;
    if (path.size() > platform::kLongestPath) {
        tell("it is longer than " + platform::sizeText(platform::kLongestPath));
        return path;
    }
    path = platform::expandHome(std::move(path));
    if (platform::isFull(path) || directory_.empty())
        return platform::fullPath(path);
    const std::string inDirectory = platform::MakeFilePath(directory_, path);
    // A reference that stands for nothing says more as it is than behind the project's directory.
    if (path.starts_with('%') && !platform::resolveExisting(inDirectory))
        return path;
    return platform::fullPath(inDirectory);
}

void SoftNames::tell(std::string_view text, const std::string& reason) const {
    const std::string_view name = text.substr(0, text.find_first_of(platform::kSeparators));
    const Definition definition = find(name.substr(1));
    if (definition.file && !definition.file->path().empty() && definition.file->mayComplain())
        errorLog().reportOnce({definition.file->path(),
                               std::string(name.substr(0, kMostShown)) + " is not resolved: " + reason});
}

void SoftNames::tell(const std::string& reason) const {
    if (!directory_.empty())
        errorLog().reportOnce({directory_, "a path of the project is not resolved: " + reason});
}

} // namespace suite
