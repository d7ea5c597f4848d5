#pragma once

#include <QtCore/QString>

#include <string>
#include <string_view>

namespace ovsettings {

/// The one way between the byte strings of the store, UTF-8, and the texts of widgets. Bytes that are no
/// UTF-8 become replacement characters.
QString toQString(std::string_view utf8);
std::string toUtf8(const QString& text);

/// The text with each line break turned into a blank: a field of one line lets them be pasted.
QString inOneLine(QString text);

} // namespace ovsettings
