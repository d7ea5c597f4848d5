#pragma once

#include "ovsettings/export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Orv {

/// Between stored text and numbers. All of it reads as a stream in the "C" locale would: leading white space
/// is skipped, the longest piece that is a number counts, what follows is ignored, no number reads as 0, and
/// a number out of range as the nearest limit. Infinities and "nan" are no numbers.

OVSETTINGS_API float floatFromText(std::string_view text);
/// General format with six significant digits, such as "0.5", "254000", "1.016e+06". So few digits are meant
/// for hosts and add-ins: all of them read lengths as texts of this form.
OVSETTINGS_API std::string floatToText(float number);

OVSETTINGS_API double doubleFromText(std::string_view text);
/// As few digits as give the number back, never with an exponent, such as "29699999.02".
OVSETTINGS_API std::string decimalToText(double number);

OVSETTINGS_API int integerFromText(std::string_view text);
/// As integerFromText, in the wider range of long.
OVSETTINGS_API long longFromText(std::string_view text);
OVSETTINGS_API std::string integerToText(int number);

/// As integerFromText, at base 16 and of 64 bits, with or without the prefix "0x".
OVSETTINGS_API std::int64_t hexadecimalFromText(std::string_view text);

} // namespace Orv
