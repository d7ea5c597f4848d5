#pragma once

#include "platform/filestamp.h"
#include "platform/result.h"

#include <cstddef>
#include <string>

namespace platform {

constexpr std::size_t kLargestFile = 64u << 20; ///< in bytes; what is larger is no file of ours
/// Of a file of which each byte may take a hundred once it is read: a configuration, a project and what it
/// names, a location map.
constexpr std::size_t kLargestDocument = 8u << 20;

/// Reads a whole regular file. Anything else is refused, so that a pipe in place of a file makes nobody wait.
/// @param limit the most bytes that are read; a larger file is refused.
/// @return the bytes; the error of a missing file has the code ENOENT.
Result<std::string> readFile(const std::string& path, std::size_t limit = kLargestFile);
/// @param stamp of the file, taken just now.
Result<std::string> readFile(const std::string& path, std::size_t limit, const FileStamp& stamp);

/// Whether a path names a regular file that may be read; its name is looked for as resolveExisting does.
bool opensForReading(const std::string& path);

} // namespace platform
