#pragma once

#include <optional>
#include <string>

namespace platform {

/// The home directory of a user, as the system's database has it; of the own one, as `HOME` has it where that
/// is set and not empty, for an empty name. Nothing for a user whom nobody knows.
std::optional<std::string> homeDirectory(const std::string& user = {});

} // namespace platform
