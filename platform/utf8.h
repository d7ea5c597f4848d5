#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// The length of the character that a text begins with, in bytes; 0 where that is no UTF-8, in the shortest
/// form and without surrogates.
std::size_t utf8Character(std::string_view text, char32_t& character);

/// Whether a text is UTF-8 and each of its characters accepted.
bool isUtf8Of(std::string_view text, bool (*accepts)(char32_t character));

/// @param character no surrogate, and none beyond the last one.
void appendUtf8(std::string& text, char32_t character);

} // namespace platform
