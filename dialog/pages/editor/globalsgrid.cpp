#include "dialog/pages/editor/globalsgrid.h"

namespace ovsettings {

namespace {

constexpr int kRows = 11;
constexpr int kColumns = 2;

} // namespace

CGlobalsGrid::CGlobalsGrid(QWidget* parent) : GridWnd(parent) {
}

void CGlobalsGrid::onInitialUpdate() {
    setColumnCount(kColumns);
    setRowCount(kRows);
    setCellText(0, 1, tr("Global Net"));
    setCellText(0, 2, tr("Alias"));
    layoutColumns();
}

void CGlobalsGrid::layoutColumns() {
    const int half = clientWidth() / kColumns;
    setWidthOfColumn(1, half);
    setWidthOfColumn(2, clientWidth() - half);
}

} // namespace ovsettings
