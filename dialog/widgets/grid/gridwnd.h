#pragma once

#include "dialog/widgets/grid/gridcellstyle.h"
#include "dialog/widgets/grid/gridediting.h"

#include <QtWidgets/QTableView>

namespace ovsettings {

class GridDelegate;
class GridModel;

/// The base of every grid of the product: a table of cells, each with a text and a style.
///
/// Rows and columns count from 1; row 0 is the header, of which only the text can be set. A cell outside the
/// grid reads as empty and is not written.
///
/// Without a mouse: the arrows go from cell to cell; Tab goes through them in reading order and from the last
/// one to the next control, Shift+Tab the other way; Ctrl+Tab leaves the grid at once, in either direction.
/// F2, Enter, or typing begins an edit, Delete one of an empty text; Enter ends it, Escape gives the old text
/// back. Alt+Down or F4 opens a list, and so do Enter, F2 and Space unless its text may be typed. Space, F2
/// or Enter toggles a check box, goes on to the next choice of a radio group, or presses a colour.
class GridWnd : public QTableView, private IGridEditing {
    Q_OBJECT

public:
    explicit GridWnd(QWidget* parent = nullptr);
    ~GridWnd() override;

    /// Cells that stay keep what they have; new ones are empty.
    void setRowCount(int count);
    void setColumnCount(int count);
    int rowCount() const;
    /// Those below move up by one. An edit in the row ends without a change.
    void removeRow(int row);
    int columnCount() const;

    void setCellText(int row, int column, const QString& text);
    /// The text of a cell as it is on show: while the cell is edited, that of the editor.
    QString cellText(int row, int column) const;
    /// True if the user has given the cell a text since the program last set it, even the same text.
    bool isCellEdited(int row, int column) const;
    void setCellStyle(int row, int column, const GridCellStyle& style);
    GridCellStyle cellStyle(int row, int column) const;
    /// Makes a cell take up the place of `columns` cells of its row.
    void joinCells(int row, int column, int columns);

    /// Widths in pixels.
    void setWidthOfColumn(int column, int width);
    int widthOfColumn(int column) const;
    /// The width that the columns have between them.
    int clientWidth() const;
    void showHeaders(bool columnHeaders, bool rowHeaders);

    /// The current cell; row and column 0 if there is none.
    int currentRow() const;
    int currentColumn() const;
    void setCurrentCell(int row, int column);

    bool isEditing() const;
    bool endEdit() override;
    /// Closes the editor of a cell, if that is the one that is open, and keeps nothing of its text.
    void giveUpEdit(int row, int column);

protected:
    /// Asked before an editor opens; false keeps the cell as it is.
    virtual bool onStartEditing(int row, int column);
    /// Why a text typed into a cell cannot be taken; empty if it can. The base holds it to the style's
    /// limits.
    virtual QString refusal(int row, int column, const QString& text) const;
    /// The user has given a cell another text.
    virtual void onCellChanged(int row, int column);
    /// The user pressed a colour.
    virtual void onCellPressed(int row, int column);
    /// A left click on a cell; true keeps the grid from doing anything else with it.
    virtual bool onClick(int row, int column);
    /// A right click on a cell, or with its row and column the menu key on the current one; true if a menu
    /// came of it. @param at where on the screen a menu belongs.
    virtual bool onContextMenu(int row, int column, const QPoint& at);
    /// A key, with a current cell and no editor open; true keeps it from the grid.
    virtual bool onKey(const QKeyEvent& event);
    /// Sets the widths of the columns, after a change of the grid's size or font.
    virtual void layoutColumns();

    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    QModelIndex indexOf(int row, int column) const;
    QString refusalOfEdit() const;
    bool mayStartEditing(const QModelIndex& index) override;
    void leaveEdit() override;
    void tabOutOfEdit(const QKeyEvent& event) override;
    /// Does with the current cell what its control is for: opens the editor, toggles the check box, presses
    /// the colour.
    void startEdit();
    void commitEdit();
    void revertEdit();
    void clickCell(const QModelIndex& index);
    void openList();
    bool handleKey(const QKeyEvent& event);
    bool moveCurrent(bool forward);
    void fitRowHeights();
    void fitRowHeight(int row, const GridCellStyle& style);

    GridModel* model_;
    GridDelegate* delegate_;
};

} // namespace ovsettings
