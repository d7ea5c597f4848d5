#pragma once

#include "suite/export.h"

/// The location map: soft names, "$NAME" at the beginning of a path, and the directories they stand for. The
/// map is the process's, for one project at a time. Texts are UTF-8.

/// Size of the buffers that the calls below write to, the end of the text included. A longer result is not
/// written.
inline constexpr int kLocationBufferSize = 260;

extern "C" {

/// Prepares the map for a project, from its directory, then the working directories.
/// @param projectPath full path of the project file or of its directory; null or empty means the working
///                    directories only.
/// @param reserved    0.
/// @return 0.
OVSUITE_API int InitLocationMap(const char* projectPath, int reserved);

/// Turns a name that begins with a soft name into a real path. @return 0 if it wrote the path to `buffer`.
/// For a text that is no soft name it returns another value and leaves the buffer alone; for a soft name that
/// has no mapping, or maps in a circle, it returns another value and makes the buffer an empty text. The case
/// of soft names counts. References to the environment are replaced in the map's directories, but not in a
/// location on a server; whoever replaces those of a name before has to see that it maps to none.
OVSUITE_API int GetHardName(const char* name, char* buffer);

/// Turns a real path into one with a soft name, if there is a directory in the map above it, or one that it
/// is; of several the longest.
/// @return 0 if it wrote to `buffer`; otherwise the buffer is left alone.
OVSUITE_API int GetSoftName(const char* path, char* buffer);
}
