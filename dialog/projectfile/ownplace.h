#pragma once

#include <string>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

/// Whether a place, as platform::placeOfWrite gives it, is the project's own to write to: it lies in or below
/// the project's directory, a directory of its libraries, a working directory or the installation.
///
/// Directories that the project names itself count as its libraries for what is in plain sight alone: it may
/// name the user's home directory as well, whose hidden files and directories other programs run from.
bool isOwnPlace(const std::string& place, const Orv::CProjectConfiguration& project);

} // namespace ovsettings
