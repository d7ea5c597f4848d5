#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string toUtf8(const QString& text) {
    return text.toStdString();
}

QString inOneLine(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String(" "))
        .replace(QLatin1Char('\n'), QLatin1Char(' '))
        .replace(QLatin1Char('\r'), QLatin1Char(' '));
}

} // namespace ovsettings
