#pragma once

#include "platform/profiledocument.h"
#include "platform/profileview.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

/// Lists of texts under the keys "NAME#0", "NAME#1" and so on. The first number without an entry ends the
/// list; an empty entry does not.
std::string numberedKey(std::string_view name, std::size_t number);

std::vector<std::string> readList(const platform::ProfileDocument& content, std::string_view section,
                                  std::string_view name);

std::vector<std::string> readList(const platform::ProfileView& content, std::string_view section,
                                  std::string_view name);

/// The entries by number, gaps included; the vector is as long as the section, at least.
std::vector<std::optional<std::string_view>> numberedEntries(const platform::ProfileView& content,
                                                             std::string_view section, std::string_view name);

/// @return false if a text or name cannot be stored; the content may then be changed in part.
[[nodiscard]] bool writeList(platform::ProfileDocument& content, std::string_view section,
                             std::string_view name, std::span<const std::string> texts);

/// Deletes the entries from a number on, those behind a gap too, which a list that grows would meet again.
void deleteEntriesFrom(platform::ProfileDocument& content, std::string_view section, std::string_view name,
                       std::size_t first);

} // namespace suite
