#pragma once

#include "dialog/pages/borders/borderrows.h"
#include "dialog/widgets/grid/gridwnd.h"

namespace ovsettings {

/// The table of the page "Borders": a row a sheet size, and the columns "Sheet size", "First sheet" and
/// "Next sheets". It shows symbols and asks for others; its cells take no typing.
class CBordersGrid : public GridWnd {
    Q_OBJECT

public:
    explicit CBordersGrid(QWidget* parent = nullptr);

    void showRows(const BorderRows& rows);
    /// @param index from 0, of a row that is there or the one behind the last.
    void showRow(std::size_t index, const BorderRow& row);

Q_SIGNALS:
    /// Another row, or none, may be the current one.
    void currentRowChanged();
    /// The user wants to choose a symbol. @param index of the row, from 0.
    void symbolWanted(std::size_t index, ovsettings::BorderSheet sheet);
    void symbolDropped(std::size_t index, ovsettings::BorderSheet sheet);

protected:
    bool onStartEditing(int row, int column) override;
    bool onClick(int row, int column) override;
    bool onKey(const QKeyEvent& event) override;
    bool onContextMenu(int row, int column, const QPoint& at) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void layoutColumns() override;

private:
    void wantSymbol();
    void dropSymbol();
};

} // namespace ovsettings
