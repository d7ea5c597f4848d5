#include "dialog/pages/advanced/generalrowunitvalueedit.h"

#include "dialog/widgets/numbertext.h"
#include "dialog/widgets/stringconversion.h"
#include "store/unitglue.h"

#include <QtCore/QCoreApplication>

namespace ovsettings {

using Orv::Metrics::Unit;
using Orv::Metrics::UnitTraits;

CGeneralRowUnitValueEdit::CGeneralRowUnitValueEdit(GridWnd& grid, Orv::iAppConfiguration& configuration,
                                                   std::string caption, Unit unit)
    : CGeneralRow(grid, configuration, std::move(caption)), unit_(unit) {
}

void CGeneralRowUnitValueEdit::setLimits(long minimum, long maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
}

unsigned CGeneralRowUnitValueEdit::init(unsigned rowIndex) {
    takeRows(rowIndex);
    showUnitCaption();
    std::string text;
    const bool locked = readKey(text);
    showValueStyle({.kind = GridCellKind::maskedEdit}, locked);
    if (!getKey().empty())
        showLength(Orv::lengthFromText(text));
    return rowIndex + 1;
}

void CGeneralRowUnitValueEdit::store(std::string& text) {
    const long stored = length();
    text = Orv::lengthToText(stored);
    writeKey(text);
    showLength(stored);
}

void CGeneralRowUnitValueEdit::setDisplayValue(const std::string& text) {
    showLength(Orv::lengthFromText(text));
}

/// Not the text on show: several lengths look alike.
QString CGeneralRowUnitValueEdit::value() const {
    return toQString(Orv::lengthToText(length()));
}

void CGeneralRowUnitValueEdit::onUnitChanged(Unit unit) {
    if (unit == unit_)
        return;
    const long same = length();
    unit_ = unit;
    showUnitCaption();
    showLength(same);
}

bool CGeneralRowUnitValueEdit::validate() {
    if (minimum_ == maximum_ || !isValueUsersToMend())
        return true;
    const long shown = length();
    if (shown >= minimum_ && shown <= maximum_)
        return true;
    refuseValue(
        QCoreApplication::translate("ovsettings", "value should be between %1 and %2 %3")
            .arg(lengthText(minimum_), lengthText(maximum_), toQString(UnitTraits(unit_).Abbreviation())));
    return false;
}

QString CGeneralRowUnitValueEdit::storedValue() const {
    std::string text;
    readKey(text);
    return toQString(Orv::lengthToText(Orv::lengthFromText(text)));
}

void CGeneralRowUnitValueEdit::showUnitCaption() {
    showCaption(toQString(caption() + " [" + UnitTraits(unit_).Abbreviation() + "]"));
}

void CGeneralRowUnitValueEdit::showLength(long length) {
    shown_ = length;
    setValueText(lengthText(length));
}

/// A text that the user left alone stands for the length it was made from, not for its own few decimals:
/// otherwise looking at an eighth of an inch would store twelve hundredths.
long CGeneralRowUnitValueEdit::length() const {
    return isValueEdited() ? Orv::fromDisplay(numberFromTyped(valueText()), unit_) : shown_;
}

QString CGeneralRowUnitValueEdit::lengthText(long length) const {
    return numberText(Orv::toDisplay(length, unit_), UnitTraits(unit_).Precision());
}

} // namespace ovsettings
