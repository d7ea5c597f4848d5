#include "dialog/widgets/numbertext.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace ovsettings {

namespace {

constexpr int kSignificantDigits = 6;

} // namespace

QChar localeDecimalPoint() {
    const QString point = QString::fromLocal8Bit(std::localeconv()->decimal_point);
    return point.isEmpty() ? QLatin1Char('.') : point.front();
}

double finite(double value) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::isnan(value) ? 0.0 : std::clamp(value, -kLargest, kLargest);
}

double numberFromTyped(QString text, QChar decimalPoint) {
    // Reads as atof does in the C locale, whatever the process has set.
    static const locale_t kClassic = newlocale(LC_ALL_MASK, "C", nullptr);
    const QByteArray digits = text.replace(decimalPoint, QLatin1Char('.')).toLatin1();
    return finite(strtod_l(digits.constData(), nullptr, kClassic));
}

QString numberText(double value, int decimals, QChar decimalPoint) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + kMostDecimals + 4> buffer;
    const auto [end, error] =
        decimals < 0 ? std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::general,
                                     kSignificantDigits)
                     : std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed,
                                     std::min(decimals, kMostDecimals));
    return QString::fromLatin1(buffer.data(), end - buffer.data()).replace(QLatin1Char('.'), decimalPoint);
}

} // namespace ovsettings
