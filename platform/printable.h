#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A text as a line that a terminal shows and does not obey: "?" stands for each control character, line
/// ends and the beginnings of escape sequences among them, in ASCII or beyond it, in UTF-8 or as a single
/// byte; and for what separates lines or turns the direction of the writing. Other bytes stay.
std::string printable(std::string_view text);

/// Writes the text, printable, as one line to standard error.
void tell(std::string_view line);

} // namespace platform
