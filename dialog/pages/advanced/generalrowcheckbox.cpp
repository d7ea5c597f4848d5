#include "dialog/pages/advanced/generalrowcheckbox.h"

#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

QStringList choicesFrom(const std::string& choices) {
    QStringList items = toQString(choices).split(QLatin1Char('\n'));
    items.removeLast();
    return items;
}

void CGeneralRowCheckBox::select(const std::string& choice) {
    current_ = choice;
}

void CGeneralRowCheckBox::setLocked(bool locked) {
    locked_ = locked;
}

unsigned CGeneralRowCheckBox::init(unsigned rowIndex) {
    takeRows(rowIndex);
    showCaption(toQString(caption()));
    showValueStyle({.kind = GridCellKind::dropDown, .choices = choicesFrom(choices_)}, locked_);
    setValueText(toQString(current_));
    return rowIndex + 1;
}

void CGeneralRowCheckBox::store(std::string& text) {
    text = toUtf8(valueText());
}

void CGeneralRowCheckBox::setDisplayValue(const std::string& text) {
    choices_ += text + '\n';
}

} // namespace ovsettings
