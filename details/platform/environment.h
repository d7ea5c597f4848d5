#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The value of an environment variable, or nothing if it is not set.
std::optional<std::string> environmentVariable(const char* name);

/// Replaces each reference "%NAME%" by the variable's value. An unknown name, and a lone "%", stay as they
/// stand.
std::string expandEnvironmentReferences(std::string_view text);

} // namespace platform
