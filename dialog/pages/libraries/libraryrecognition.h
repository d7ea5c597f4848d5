#pragma once

#include "dialog/pages/libraries/librarytypes.h"

#include <optional>
#include <string>
#include <string_view>

namespace ovsettings {

/// What the library dialog shows of a path.
struct LibraryState {
    LibraryType type;
    bool remote;
    bool good; ///< it is a library

    bool operator==(const LibraryState&) const = default;
};

/// One picture of the state icon.
struct LibraryIcon {
    int id;           ///< the resource's number; 0 for none
    const char* name; ///< of its file, without directory and extension
};

/// The picture of a state. Two types may share one.
LibraryIcon libraryIcon(const LibraryState& state);

/// What a path leads to.
struct Recognition {
    LibraryType type;                 ///< the type to be selected
    std::optional<LibraryState> icon; ///< none for an empty path
    std::optional<bool> listEnabled;  ///< whether the type may be chosen; if absent, as before
    bool recognised = false;
};

/// Looks up what a path leads to. May take long; uses no widget and not the current directory, so it may run
/// on any thread.
/// @param location full or remote; see libraryLocation.
/// @param selected the type that is selected now.
Recognition recogniseLibrary(const std::string& location, LibraryType selected);

/// What a typed path says, read as the project reads it: without the blanks behind it, and else as
/// realPathOf.
std::string plainPath(const std::string& typed);

/// Whether a plain path is written like a place on another machine: behind blanks and quotes it begins with a
/// scheme, whichever, or with two "\". A name with a colon is one too: only what exists can tell them apart.
bool namesServer(std::string_view path);

/// Whether a plain path is written like a soft name: behind blanks and quotes it begins with "$".
bool namesSoftly(std::string_view path);

/// Where a relative path begins: at the project's directory, or at the current one without a project. For the
/// user-interface thread.
std::string baseDirectory(const std::string& projectDirectory);

/// The location that a plain path stands for: a home directory in place of "~", a relative path begun at the
/// base. May take long, see platform::expandHome; for any thread.
std::string libraryLocation(const std::string& path, const std::string& base);

/// An alias made of a location's last name: "my  lib" gives "my_lib".
std::string derivedAlias(std::string_view location);

} // namespace ovsettings
