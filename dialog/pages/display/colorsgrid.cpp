#include "dialog/pages/display/colorsgrid.h"

#include "dialog/widgets/gdipainter.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QHeaderView>

namespace ovsettings {

namespace {

constexpr int kRows = 8;
constexpr int kColumns = 4;
constexpr int kFirstIdColumn = 1;
constexpr int kSecondIdColumn = 3;
constexpr int kIdWidth = 4;     ///< in average characters
constexpr int kColumnEdges = 5; ///< in pixels

bool isColorColumn(int column) {
    return column == kFirstIdColumn + 1 || column == kSecondIdColumn + 1;
}

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// The arrows move the current cell, Escape is the dialog's, and Tab is the way out of the grid.
bool isLeftToTheGrid(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down ||
           key == Qt::Key_Escape || key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

CColorCell::CColorCell(CColorsGrid& grid, int row, int column, int entry)
    : grid_(&grid), row_(row), column_(column), text_(QString::number(entry)) {
}

void CColorCell::setScreenColor(int color) {
    screenColor_ = color;
    grid_->refresh(ColorForm::screen);
}

void CColorCell::setPrintColor(int color) {
    printColor_ = color;
    grid_->refresh(ColorForm::printer);
}

void CColorCell::write(ColorForm form) const {
    const QColor interior = toQColor(color(form));
    grid_->setCellText(row_, column_, text_);
    // Two entries share the first cell of their row and the headers' texts.
    const auto nameOf = [this](int column) {
        return QStringLiteral("%1, %2").arg(grid_->cellText(0, column), text_);
    };
    grid_->setCellStyle(row_, column_, {.readOnly = true, .accessibleName = grid_->cellText(0, column_)});
    grid_->setCellStyle(row_, column_ + 1,
                        {.readOnly = true,
                         .interior = interior,
                         .toolTip = interior.name(),
                         .accessibleName = nameOf(column_ + 1)});
}

CColorRow::CColorRow(CColorsGrid& grid, int row) {
    for (const auto& [entry, column] : {std::pair{row, kFirstIdColumn}, {row + kRows, kSecondIdColumn}})
        cells_.emplace(entry, CColorCell(grid, row + 1, column, entry));
}

CColorCell* CColorRow::cell(int entry) {
    const auto found = cells_.find(entry);
    return found == cells_.end() ? nullptr : &found->second;
}

void CColorRow::write(ColorForm form) const {
    for (const auto& [entry, cell] : cells_)
        cell.write(form);
}

CColorsGrid::CColorsGrid(QWidget* parent) : GridWnd(parent) {
    // A selection would lie over the colour of its cell.
    setSelectionMode(NoSelection);
    showHeaders(true, false);
    // The least width of the style is more than a column of numbers has.
    horizontalHeader()->setMinimumSectionSize(1);
}

void CColorsGrid::onInitialUpdate() {
    setColumnCount(kColumns);
    setRowCount(kRows);
    for (const int column : {kFirstIdColumn, kSecondIdColumn}) {
        setCellText(0, column, tr("ID"));
        setCellText(0, column + 1, tr("Color"));
    }
    for (int row = 0; row < kRows; ++row)
        rows_.emplace_back(*this, row);
    refresh(form_);
    layoutColumns();
}

CColorCell* CColorsGrid::cell(int entry) {
    const int row = entry >= kRows ? entry - kRows : entry;
    const bool exists = row >= 0 && row < static_cast<int>(rows_.size());
    return exists ? rows_[static_cast<std::size_t>(row)].cell(entry) : nullptr;
}

int CColorsGrid::color(int entry, ColorForm form) {
    const CColorCell* found = cell(entry);
    return found ? found->color(form) : 0;
}

void CColorsGrid::refresh(ColorForm form) {
    form_ = form;
    for (const CColorRow& row : rows_)
        row.write(form);
}

void CColorsGrid::layoutColumns() {
    const int id = kIdWidth * fontMetrics().averageCharWidth();
    const int colors = clientWidth() - 2 * id - kColumnEdges;
    setWidthOfColumn(1, id);
    setWidthOfColumn(2, colors / 2);
    setWidthOfColumn(3, id);
    setWidthOfColumn(4, colors - colors / 2);
}

bool CColorsGrid::onClick(int row, int column) {
    if (row >= 1 && isColorColumn(column))
        chooseColor(row - 1, column);
    return true;
}

/// Enter gives the chooser the grid's row as it stands, and so edits the entry after the one that a click at
/// the same place edits. Users know the key so.
void CColorsGrid::keyPressEvent(QKeyEvent* event) {
    if (isEnter(event->key())) {
        if (currentRow() > 0 && isColorColumn(currentColumn()))
            chooseColor(currentRow(), currentColumn());
        event->accept();
        return;
    }
    if (currentIndex().isValid() && !isLeftToTheGrid(event->key())) {
        event->accept();
        return;
    }
    GridWnd::keyPressEvent(event);
}

/// A frame marks the current cell. The style's own mark may tint the colour, which is then painted anew.
void CColorsGrid::paintEvent(QPaintEvent* event) {
    GridWnd::paintEvent(event);
    if (!hasFocus() || !currentIndex().isValid())
        return;
    QPainter painter(viewport());
    const QRect cell = visualRect(currentIndex());
    if (const std::optional<QColor> interior = cellStyle(currentRow(), currentColumn()).interior)
        painter.fillRect(cell, *interior);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
    painter.drawRect(cell.adjusted(1, 1, -2, -2));
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawRect(cell.adjusted(2, 2, -3, -3));
}

void CColorsGrid::chooseColor(int row, int column) {
    QColorDialog chooser(this);
    chooser.setOption(QColorDialog::DontUseNativeDialog);
    if (chooser.exec() != QDialog::Accepted)
        return;
    const int color = toPacked(chooser.currentColor());
    // Enter in the last row and column names an entry that there is not.
    CColorCell* edited = cell(column == kFirstIdColumn + 1 ? row : row + kRows);
    if (!edited)
        return;
    if (form_ == ColorForm::screen)
        edited->setScreenColor(color);
    else
        edited->setPrintColor(color);
    Q_EMIT colorChanged();
}

} // namespace ovsettings
