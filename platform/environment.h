#pragma once

#include <optional>
#include <string>

namespace platform {

/// The value of an environment variable, or nothing if it is not set.
std::optional<std::string> environmentVariable(const char* name);

} // namespace platform
