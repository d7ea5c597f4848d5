#include "dialog/widgets/colorbutton.h"

#include "dialog/widgets/colorchangeobserver.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/ownseccolorwell.h"
#include "dialog/widgets/stringconversion.h"
#include "store/colors.h"
#include "store/numbers.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>

namespace ovsettings {

namespace {

constexpr int kRgb = 0xffffff;
constexpr int kFrame = 1;
constexpr int kMargin = 3;

/// A decimal cell text is packed as it stands, a hexadecimal one has red first.
int colorFromCell(const std::string& text) {
    const bool isHexadecimal = text.find_first_of("xX") != std::string::npos;
    return isHexadecimal ? Orv::colorFromText(text) : Orv::integerFromText(text) & kRgb;
}

} // namespace

ColorButton::ColorButton(GridWnd& grid) : QAbstractButton(grid.viewport()), grid_(grid) {
    setFocusPolicy(Qt::NoFocus); // the grid keeps the keyboard
    hide();
    connect(this, &QAbstractButton::clicked, this, &ColorButton::open);
    for (const QHeaderView* header : {grid.horizontalHeader(), grid.verticalHeader()})
        connect(header, &QHeaderView::sectionResized, this, &ColorButton::layOverCell);
}

void ColorButton::setPalette(std::vector<int> packed) {
    palette_ = std::move(packed);
}

void ColorButton::initForCell(int row, int column) {
    row_ = row;
    column_ = column;
    color_ = colorFromCell(toUtf8(grid_.cellText(row, column)));
    setAccessibleName(toQColor(color_).name());
    layOverCell();
    show();
    update();
}

void ColorButton::layOverCell() {
    setGeometry(grid_.visualRect(grid_.model()->index(row_ - 1, column_ - 1)));
}

void ColorButton::open() {
    if (row_ == 0 || well_)
        return;
    layOverCell();
    well_ = new COwnSECColorWell(palette_, color_, this);
    connect(well_, &COwnSECColorWell::chosen, this, &ColorButton::storeColor);
    connect(well_, &COwnSECColorWell::closed, this, &ColorButton::forgetWell);
    well_->dropDown(QRect(mapToGlobal(QPoint()), size()));
}

/// At once: the next cell may be pressed before the well is deleted.
void ColorButton::forgetWell() {
    well_ = nullptr;
    hide();
}

void ColorButton::hideButton() {
    if (well_)
        well_->close();
    setGeometry(0, 0, 0, 0);
    hide();
}

void ColorButton::storeColor(int color) {
    color_ = color;
    grid_.setCellText(row_, column_, QString::number(color));
    if (observer_)
        observer_->onColorChanged(row_, column_, color);
    update();
}

void ColorButton::paintEvent(QPaintEvent*) {
    const bool isCurrent = grid_.currentRow() == row_ && grid_.currentColumn() == column_;
    const bool isSelected = grid_.selectionModel()->isSelected(grid_.model()->index(row_ - 1, column_ - 1));
    QPainter painter(this);
    GdiPainter gdi(painter);
    gdi.fillRectangle(0, 0, width(), height(),
                      palette().color(isSelected ? QPalette::Highlight : QPalette::Base));
    gdi.setPen(palette().color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    gdi.setBrush(toQColor(color_));
    gdi.rectangle(kMargin, kMargin, width() - kMargin, height() - kMargin);
    if (isCurrent)
        gdi.frameRectangle(kFrame, kFrame, width() - kFrame, height() - kFrame,
                           palette().color(QPalette::Text));
}

} // namespace ovsettings
