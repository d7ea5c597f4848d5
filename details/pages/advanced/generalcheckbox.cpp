#include "details/pages/advanced/generalcheckbox.h"

#include "details/widgets/stringconversion.h"

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
    stored_ = text;
}

void CGeneralCheckBox::setDisplayValue(const std::string&) {
    showKey();
}

bool CGeneralCheckBox::isModified() const {
    return !getKey().empty() && !locked_ && toUtf8(valueText()) != stored_;
}

void CGeneralCheckBox::showKey() {
    locked_ = readKey(stored_);
    showValueStyle({.kind = GridCellKind::checkBox}, locked_);
    setValueText(toQString(stored_));
}

} // namespace ovsettings
