#include "dialog/pages/borders/bordersgrid.h"

#include "dialog/widgets/stringconversion.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QMenu>

namespace ovsettings {

namespace {

constexpr int kSizeColumn = 1;
constexpr int kFirstSheetColumn = 2;
constexpr int kNextSheetsColumn = 3;

bool isSymbolColumn(int column) {
    return column == kFirstSheetColumn || column == kNextSheetsColumn;
}

BorderSheet sheetOf(int column) {
    return column == kFirstSheetColumn ? BorderSheet::first : BorderSheet::next;
}

} // namespace

CBordersGrid::CBordersGrid(QWidget* parent) : GridWnd(parent) {
    setColumnCount(kNextSheetsColumn);
    setCellText(0, kSizeColumn, tr("Sheet size"));
    setCellText(0, kFirstSheetColumn, tr("First sheet"));
    setCellText(0, kNextSheetsColumn, tr("Next sheets"));
    showHeaders(true, true);
}

void CBordersGrid::showRows(const BorderRows& rows) {
    setRowCount(static_cast<int>(rows.count()));
    for (std::size_t index = 0; index < rows.count(); ++index)
        showRow(index, rows.at(index));
}

void CBordersGrid::showRow(std::size_t index, const BorderRow& shown) {
    const int row = static_cast<int>(index) + 1;
    if (row > rowCount()) {
        setRowCount(row);
        // Otherwise the view would scroll to the new row within the range that it had without it.
        executeDelayedItemsLayout();
    }
    setCellText(row, kSizeColumn,
                shown.isCustom() ? toQString(shown.key)
                                 : QCoreApplication::translate("ovsettings", shown.caption));
    setCellText(row, kFirstSheetColumn, toQString(shown.first));
    setCellText(row, kNextSheetsColumn, toQString(shown.next));
    setCellStyle(row, kSizeColumn, {.readOnly = true});
    // Drawn as what it is, a cell to choose in; the choice is made in a dialog.
    for (const int column : {kFirstSheetColumn, kNextSheetsColumn})
        setCellStyle(row, column, {.kind = GridCellKind::dropDown});
}

void CBordersGrid::wantSymbol() {
    Q_EMIT symbolWanted(static_cast<std::size_t>(currentRow() - 1), sheetOf(currentColumn()));
}

void CBordersGrid::dropSymbol() {
    if (currentRow() > 0 && isSymbolColumn(currentColumn()))
        Q_EMIT symbolDropped(static_cast<std::size_t>(currentRow() - 1), sheetOf(currentColumn()));
}

bool CBordersGrid::onStartEditing(int, int) {
    return false;
}

bool CBordersGrid::onClick(int row, int column) {
    Q_EMIT currentRowChanged();
    if (row == currentRow() && column == currentColumn() && isSymbolColumn(column))
        wantSymbol();
    return true;
}

bool CBordersGrid::onKey(const QKeyEvent& event) {
    if (!isSymbolColumn(currentColumn()))
        return false;
    switch (event.key()) {
    case Qt::Key_Delete:
        dropSymbol();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        wantSymbol();
        return true;
    case Qt::Key_Down:
        if (event.modifiers() & Qt::AltModifier) // opens what there is to choose from
            wantSymbol();
        return event.modifiers() & Qt::AltModifier;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    default:
        return true;
    }
}

bool CBordersGrid::onContextMenu(int row, int column, const QPoint& at) {
    if (column < kFirstSheetColumn)
        return false;
    setCurrentCell(row, column);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Delete"), this, &CBordersGrid::dropSymbol);
    menu->popup(at);
    return true;
}

void CBordersGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    GridWnd::currentChanged(current, previous);
    Q_EMIT currentRowChanged();
}

void CBordersGrid::layoutColumns() {
    const int third = clientWidth() / kNextSheetsColumn;
    setWidthOfColumn(kSizeColumn, third);
    setWidthOfColumn(kFirstSheetColumn, third);
    setWidthOfColumn(kNextSheetsColumn, clientWidth() - 2 * third);
}

} // namespace ovsettings
