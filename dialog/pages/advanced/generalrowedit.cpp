#include "dialog/pages/advanced/generalrowedit.h"

#include "dialog/widgets/stringconversion.h"

#include <QtCore/QCoreApplication>

#include <cstdlib>

namespace ovsettings {

void CGeneralRowEdit::setLimits(long minimum, long maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
}

void CGeneralRowEdit::setErrorText(const std::string& text) {
    errorText_ = text;
}

unsigned CGeneralRowEdit::init(unsigned rowIndex) {
    takeRows(rowIndex);
    showCaption(toQString(caption()));
    std::string text;
    const bool locked = readKey(text);
    showValueStyle({.kind = GridCellKind::maskedEdit, .mask = QStringLiteral("#######")}, locked);
    setValueText(toQString(text));
    return rowIndex + 1;
}

void CGeneralRowEdit::store(std::string& text) {
    text = toUtf8(valueText());
    writeKey(text);
}

void CGeneralRowEdit::setDisplayValue(const std::string& text) {
    setValueText(toQString(text));
}

bool CGeneralRowEdit::validate() {
    if (minimum_ == maximum_ || !isValueUsersToMend())
        return true;
    const long value = std::strtol(toUtf8(valueText()).c_str(), nullptr, 10);
    if (value >= minimum_ && value <= maximum_)
        return true;
    refuseValue(QCoreApplication::translate("ovsettings", errorText_.c_str()));
    return false;
}

} // namespace ovsettings
