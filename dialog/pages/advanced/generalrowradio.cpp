#include "dialog/pages/advanced/generalrowradio.h"

#include "dialog/pages/advanced/generalrowcheckbox.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

void CGeneralRowRadio::setCurrent(int current) {
    current_ = current;
}

void CGeneralRowRadio::setHorizontal(bool horizontal) {
    horizontal_ = horizontal;
}

unsigned CGeneralRowRadio::init(unsigned rowIndex) {
    constexpr int kBothColumns = 2;
    takeRows(rowIndex, 3);
    showCaption(toQString(caption()));
    const int captionRow = static_cast<int>(rowIndex);
    const int groupRow = captionRow + 1;
    const int lineBelow = captionRow + 2;
    for (const int row : {captionRow, groupRow, lineBelow})
        grid().joinCells(row, kCaptionColumn, kBothColumns);
    grid().setCellStyle(groupRow, kCaptionColumn,
                        {.kind = GridCellKind::radioGroup,
                         .choices = choicesFrom(choices_),
                         .orientation = horizontal_ ? Qt::Horizontal : Qt::Vertical});
    grid().setCellText(groupRow, kCaptionColumn, QString::number(current_));
    grid().setCellStyle(lineBelow, kCaptionColumn, {.readOnly = true, .enabled = false});
    return rowIndex + 3;
}

void CGeneralRowRadio::store(std::string& text) {
    text = toUtf8(grid().cellText(static_cast<int>(rowIndex()) + 1, kCaptionColumn));
}

void CGeneralRowRadio::setDisplayValue(const std::string& text) {
    choices_ += text + '\n';
}

} // namespace ovsettings
