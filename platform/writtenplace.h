#pragma once

#include <optional>
#include <string>

namespace platform {

/// Where a write to a path ends: the path of the file that AtomicFile replaces or makes, from the root, with
/// all links followed, also one that leads to nothing yet.
/// @return nothing where nothing can be written, since there is no such directory say.
std::optional<std::string> placeOfWrite(const std::string& path);

/// Whether such a place is in a directory or below it, by whatever name the directory goes.
bool isBelow(const std::string& place, const std::string& directory);

} // namespace platform
