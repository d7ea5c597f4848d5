#pragma once

#include "ovsettings/export.h"

#include <string>
#include <string_view>

namespace Orv {

/// Between the forms of a colour. A packed colour has red in the low byte, then green, then blue
/// (0x00BBGGRR); a text has red first (0xRRGGBB). Numbers in a text read as in store/numbers.h, so
/// a text that is no number is black. What comes out of a text has no top byte and is never negative.

/// Swaps the low and the high byte of 24 bits, and drops the top byte.
OVSETTINGS_API int swapRedAndBlue(int color);

/// A text at base 16, with or without the prefix "0x", as a packed colour.
OVSETTINGS_API int colorFromText(std::string_view text);

/// "0x" and six lower-case digits.
OVSETTINGS_API std::string colorToText(int color);
/// "0x" and as few lower-case digits as it takes.
OVSETTINGS_API std::string colorToShortText(int color);

} // namespace Orv
