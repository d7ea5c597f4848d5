#pragma once

#include "platform/profiledocument.h"
#include "platform/profileview.h"

#include <string>
#include <vector>

namespace suite {

/// A library as a project file, or a list of libraries of ini kind, holds it.
struct LibraryEntry {
    std::string alias;
    std::string location;
    int type;
};

std::vector<LibraryEntry> readLibraries(const platform::ProfileView& content);

/// @return false if a text cannot be stored; the content may then be changed in part.
[[nodiscard]] bool writeLibraries(platform::ProfileDocument& content,
                                  const std::vector<LibraryEntry>& libraries);

} // namespace suite
