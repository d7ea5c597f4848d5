#include "dialog/pages/libraries/libraryrecognition.h"

#include "dialog/projectfile/projectpaths.h"
#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/remotefile.h"
#include "platform/trim.h"
#include "suite/zec.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace ovsettings {

namespace {

constexpr std::string_view kAround = " \""; ///< what may stand before a typed path

struct IconRow {
    LibraryIcon local;
    LibraryIcon localNone;
    LibraryIcon remote;
    LibraryIcon remoteNone;
};

/// By type; the last row is that of no type. A remote library can't be writeable, so two types share the
/// pictures of a remote place of which nothing more is known.
constexpr std::array<IconRow, 5> kIcons{{
    {{154, "library_primary"},
     {155, "library_primary_none"},
     {160, "library_remote"},
     {161, "library_remote_none"}},
    {{158, "library_writeable"},
     {159, "library_writeable_none"},
     {160, "library_remote"},
     {161, "library_remote_none"}},
    {{156, "library_readonly"},
     {157, "library_readonly_none"},
     {164, "library_remote_readonly"},
     {165, "library_remote_readonly_none"}},
    {{148, "library_megafile"},
     {149, "library_megafile_none"},
     {162, "library_remote_megafile"},
     {163, "library_remote_megafile_none"}},
    {{0, ""}, {0, ""}, {0, ""}, {0, ""}},
}};

bool isOfScheme(char c) {
    constexpr std::string_view kOthers = "0123456789+-.";
    return platform::isLetter(c) || kOthers.find(c) != std::string_view::npos;
}

/// The part of a remote path before its third separator, or nothing if it has fewer.
std::optional<std::string> serverOf(const std::string& path) {
    std::size_t separator = path.find_first_of(platform::kSeparators);
    for (int passed = 1; passed < 3 && separator != std::string::npos; ++passed)
        separator = path.find_first_of(platform::kSeparators, separator + 1);
    if (separator == std::string::npos)
        return std::nullopt;
    std::string server = path.substr(0, separator);
    ZECRemoveLastSlash(server);
    return server;
}

/// A server that is a library as a whole speaks for all that lies on it; otherwise the location does itself.
Recognition recogniseRemote(const std::string& path, LibraryType selected) {
    const auto server = serverOf(path);
    // A server that has nothing to show at its root may have the location all the same, or the files in it.
    const auto answers = [](const std::string& place) {
        return platform::ProbeRemote(place) != platform::kRemoteUnreachable;
    };
    if (!server || !(answers(*server) || answers(path) || ZECIsValidLibrary(path, 1)))
        return {selected, LibraryState{selected, true, false}, std::nullopt, false};

    std::string location = path;
    ZECRemoveLastSlash(location);
    const bool megafile = ZECCheckMegafile(*server) || ZECCheckMegafile(location);
    const LibraryType type = megafile ? LibraryType::kMegafile : LibraryType::kReadonly;
    const bool good = ZECIsValidLibrary(*server, 1) || ZECIsValidLibrary(location, 1);
    return {type, LibraryState{type, true, good}, false, true};
}

Recognition recogniseLocal(std::string path, LibraryType selected) {
    ZECRemoveLastSlash(path);
    LibraryType type = selected;
    bool good = true;
    if (!ZECCheckMegafile(path)) {
        if (ZECIsReadOnlyFileSystem(path))
            type = LibraryType::kReadonly;
        else if (selected == LibraryType::kMegafile)
            type = LibraryType::kWriteable;
        good = ZECIsValidLibrary(path, 1);
    } else if (!ZECHolds(path, ZECContent::symbolFiles) || !ZECIsValidLibrary(path, 0)) {
        type = LibraryType::kMegafile;
    }
    return {type, LibraryState{type, false, good}, true, true};
}

} // namespace

LibraryIcon libraryIcon(const LibraryState& state) {
    const auto type = static_cast<std::size_t>(state.type);
    const IconRow& row = kIcons[std::min(type, kIcons.size() - 1)];
    if (state.remote)
        return state.good ? row.remote : row.remoteNone;
    return state.good ? row.local : row.localNone;
}

Recognition recogniseLibrary(const std::string& location, LibraryType selected) {
    if (location.empty())
        return {selected, std::nullopt, std::nullopt, false};
    return platform::IsRemotePath(location) ? recogniseRemote(location, selected)
                                            : recogniseLocal(location, selected);
}

std::string plainPath(const std::string& typed) {
    return realPathOf(std::string(platform::trimEnd(typed, " ")));
}

bool namesServer(std::string_view path) {
    path = platform::trimBegin(path, kAround);
    if (path.starts_with("\\\\"))
        return true;
    constexpr std::size_t kShortestScheme = 2; // one letter is a drive
    const auto colon = path.find(':');
    return colon != std::string_view::npos && colon >= kShortestScheme && platform::isLetter(path.front()) &&
           std::ranges::all_of(path.substr(0, colon), isOfScheme);
}

bool namesSoftly(std::string_view path) {
    return platform::trimBegin(path, kAround).starts_with('$');
}

std::string baseDirectory(const std::string& projectDirectory) {
    std::error_code lost;
    return projectDirectory.empty() ? std::filesystem::current_path(lost).string() : projectDirectory;
}

std::string libraryLocation(const std::string& path, const std::string& base) {
    if (path.empty() || path.size() > platform::kLongestPath || platform::IsRemotePath(path))
        return path;
    std::string full = platform::expandHome(platform::platformPath(path));
    if (platform::isFull(full) || platform::hasDrive(full))
        return full;
    return platform::withoutDots((std::filesystem::path(platform::platformPath(base)) / full).string());
}

std::string derivedAlias(std::string_view location) {
    location = platform::trimEnd(location, platform::kSeparators);
    std::string alias(platform::trimEnd(platform::splitPath(location).name, " "));
    std::ranges::replace(alias, ' ', '_');
    for (auto pair = alias.find("__"); pair != std::string::npos; pair = alias.find("__", pair))
        alias.erase(pair, 1);
    return alias;
}

} // namespace ovsettings
