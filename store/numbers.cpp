#include "store/numbers.h"

#include "platform/trim.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace Orv {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes a plus sign, which from_chars knows nothing of.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    return text;
}

/// Keeps from_chars away from "inf" and "nan".
bool startsLikeNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-')
        text.remove_prefix(1);
    return !text.empty() && (isDigit(text.front()) || text.front() == '.');
}

template <typename Integer>
Integer clampedInteger(std::string_view text, int base) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error == std::errc::result_out_of_range)
        return text.front() == '-' ? std::numeric_limits<Integer>::min()
                                   : std::numeric_limits<Integer>::max();
    return number;
}

/// Whether a decimal number that fits no float is too large for one, rather than too small.
bool isLarge(std::string_view number) {
    const auto exponentMark = std::min(number.find_first_of("eE"), number.size());
    const auto mantissa = number.substr(0, exponentMark);
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit =
        static_cast<long long>(std::min(mantissa.find_first_of("123456789"), mantissa.size()));
    const auto exponent = withoutPlus(number.substr(std::min(exponentMark + 1, number.size())));
    return point - firstDigit + clampedInteger<int>(exponent, 10) > 0;
}

template <typename Real>
Real outOfRange(std::string_view number) {
    const Real magnitude = isLarge(number) ? std::numeric_limits<Real>::max() : 0;
    return number.front() == '-' ? -magnitude : magnitude;
}

template <typename Real>
Real realFromText(std::string_view text) {
    const auto trimmed = withoutPlus(platform::trimBegin(text));
    if (!startsLikeNumber(trimmed))
        return 0;
    Real number = 0;
    const auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    if (error == std::errc::result_out_of_range || std::isinf(number))
        return outOfRange<Real>(trimmed.substr(0, static_cast<std::size_t>(end - trimmed.data())));
    return number;
}

} // namespace

float floatFromText(std::string_view text) {
    return realFromText<float>(text);
}

double doubleFromText(std::string_view text) {
    return realFromText<double>(text);
}

std::string decimalToText(double number) {
    // The digits before and behind the point of the largest and the least number, and its sign.
    char text[std::numeric_limits<double>::max_exponent10 - std::numeric_limits<double>::min_exponent10 +
              std::numeric_limits<double>::max_digits10 + 8];
    const auto result = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed);
    return {text, result.ptr};
}

std::string floatToText(float number) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, number, std::chars_format::general, 6);
    return {text, result.ptr};
}

int integerFromText(std::string_view text) {
    return clampedInteger<int>(withoutPlus(platform::trimBegin(text)), 10);
}

long longFromText(std::string_view text) {
    return clampedInteger<long>(withoutPlus(platform::trimBegin(text)), 10);
}

std::string integerToText(int number) {
    return std::to_string(number);
}

std::int64_t hexadecimalFromText(std::string_view text) {
    auto digits = withoutPlus(platform::trimBegin(text));
    const bool isNegative = digits.starts_with("-");
    if (isNegative)
        digits.remove_prefix(1);
    if (digits.starts_with("0x") || digits.starts_with("0X"))
        digits.remove_prefix(2);
    if (digits.starts_with("-")) // a second sign is no number
        return 0;
    const auto magnitude = clampedInteger<std::int64_t>(digits, 16);
    return isNegative ? -magnitude : magnitude;
}

} // namespace Orv
