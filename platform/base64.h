#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// With the alphabet and the padding of RFC 4648, section 4.
std::string toBase64(std::string_view bytes);
/// Blanks and line ends are passed over; padding may be missing, but not be wrong.
/// @return nothing for a text that is none.
std::optional<std::string> fromBase64(std::string_view text);

} // namespace platform
