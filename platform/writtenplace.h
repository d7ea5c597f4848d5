#pragma once

#include <optional>
#include <string>

namespace platform {

/// Where a write to a path ends: the path of the file that AtomicFile replaces or makes, from the root, with
/// all links followed, also one that leads to nothing yet.
/// @return nothing where nothing can be written, since there is no such directory say.
std::optional<std::string> placeOfWrite(const std::string& path);

/// What of such a place stands behind a directory that it is in or below, by whatever name the directory
/// goes; it begins with a separator. @return nothing where it is elsewhere.
std::optional<std::string> restBelow(const std::string& place, const std::string& directory);
inline bool isBelow(const std::string& place, const std::string& directory) {
    return restBelow(place, directory).has_value();
}

} // namespace platform
