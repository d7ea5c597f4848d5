#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Orv {

/// Between stored text and numbers. All of it reads as a stream in the "C" locale would: leading white space
/// is skipped, the longest piece that is a number counts, what follows is ignored, no number reads as 0, and
/// a number out of range as the nearest limit. Infinities and "nan" are no numbers.

float floatFromText(std::string_view text);
/// General format with six significant digits, which is meant: every reader of a length expects that. Such as
/// "0.5", "254000", "1.016e+06".
std::string floatToText(float number);

double doubleFromText(std::string_view text);
/// As few digits as give the number back, never with an exponent, such as "29699999.02".
std::string decimalToText(double number);

int integerFromText(std::string_view text);
/// As integerFromText, in the wider range of long.
long longFromText(std::string_view text);
std::string integerToText(int number);

/// As integerFromText, at base 16 and of 64 bits, with or without the prefix "0x".
std::int64_t hexadecimalFromText(std::string_view text);

} // namespace Orv
