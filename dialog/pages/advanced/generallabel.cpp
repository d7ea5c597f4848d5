#include "dialog/pages/advanced/generallabel.h"

#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

unsigned CGeneralLabel::init(unsigned rowIndex) {
    takeRows(rowIndex);
    showCaption(toQString(caption()));
    grid().joinCells(static_cast<int>(rowIndex), kCaptionColumn, kValueColumn);
    return rowIndex + 1;
}

void CGeneralLabel::store(std::string&) {
}

void CGeneralLabel::setDisplayValue(const std::string&) {
}

} // namespace ovsettings
