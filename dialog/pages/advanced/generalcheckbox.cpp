#include "dialog/pages/advanced/generalcheckbox.h"

#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

unsigned CGeneralCheckBox::init(unsigned rowIndex) {
    takeRows(rowIndex);
    showCaption(toQString(caption()));
    showKey();
    return rowIndex + 1;
}

void CGeneralCheckBox::store(std::string& text) {
    text = toUtf8(valueText());
    writeKey(text);
}

void CGeneralCheckBox::setDisplayValue(const std::string&) {
    showKey();
}

void CGeneralCheckBox::showKey() {
    std::string text;
    const bool locked = readKey(text);
    showValueStyle({.kind = GridCellKind::checkBox}, locked);
    setValueText(toQString(text));
}

} // namespace ovsettings
