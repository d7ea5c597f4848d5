#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// In bytes; no place of a text that is expanded takes more.
constexpr std::size_t kLongestExpansion = 64u << 10;

/// Replaces each reference "%NAME%" by the variable's value. An unknown name, and a lone "%", stay as they
/// stand.
/// @return nothing if there is a reference and the result would be longer than kLongestExpansion.
std::optional<std::string> tryExpandEnvironmentReferences(std::string_view text);

/// As tryExpandEnvironmentReferences, but the text stays where the result would be too long; and where it is,
/// or would become, a location on a server, which is not to learn what the environment holds. A soft name at
/// the beginning may lead to a server, too: see to that where it is resolved.
std::string expandEnvironmentReferences(std::string_view text);

} // namespace platform
