#pragma once

#include <string>

namespace Orv {
class IProjectFileData;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

/// The directory of the project file, with the platform's separators.
std::string projectDirectory(const Orv::CProjectConfiguration& project);

/// What a name in a field stands for: environment references, then soft names, then the design tools' own
/// resolution. A name that outgrows what the location map takes stays as it is; a soft name that nothing
/// resolves becomes empty.
std::string ResolvePagePath(std::string text, Orv::IProjectFileData& projectFile);

/// Whether a file may lie where a path says: its directory exists. The file itself need not.
bool IsFileLocationValid(const std::string& projectPath, std::string filePath);

/// Turns a soft name into a real path; any other text, and a soft name without a mapping, stays.
std::string hardNameOf(const std::string& name);

/// What a text stands for: its environment references, then its soft name are replaced; a soft name without a
/// mapping stays. A location on a server keeps its references, since the environment is no business of the
/// server's; and a text that only the environment would make such a location stays.
std::string realPathOf(const std::string& text);

} // namespace ovsettings
