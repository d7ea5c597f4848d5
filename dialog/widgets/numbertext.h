#pragma once

#include <QtCore/QString>

namespace ovsettings {

/// Between numbers and the texts that users read and type. Texts that are stored never go through here: they
/// do not depend on the locale.

/// The most decimals that are written: the first digit of the smallest number stands at decimal 324.
inline constexpr int kMostDecimals = 340;

/// The decimal point of the C locale in force.
QChar localeDecimalPoint();
/// The nearest finite number; 0 for what is no number.
double finite(double value);
/// The number that a text begins with, whether its decimal point is `decimalPoint` or "."; 0 if it begins
/// with none. Never infinite.
double numberFromTyped(QString text, QChar decimalPoint = localeDecimalPoint());
/// Fixed notation, or with -1 decimals six significant digits in the shortest form.
QString numberText(double value, int decimals, QChar decimalPoint = localeDecimalPoint());

} // namespace ovsettings
