#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

#include <vector>

namespace ovsettings {

class GridWnd;
class COwnSECColorWell;
class IColorChangeObserver;

/// The control of a colour cell: it lies over the cell it was initialised for, shows the cell's colour, and
/// opens a colour well below it. One button serves all colour cells of a grid, one after the other.
///
/// The text of a colour cell is the packed colour, red in the low byte, in decimal.
class ColorButton : public QAbstractButton {
    Q_OBJECT

public:
    /// @param grid the owner of the button and of its cells.
    explicit ColorButton(GridWnd& grid);

    /// The colours on offer, packed, in the order in which they are shown.
    void setPalette(std::vector<int> packed);

    /// @param observer not owned; null for none.
    void setObserver(IColorChangeObserver* observer) { observer_ = observer; }
    IColorChangeObserver* observer() const { return observer_; }

    /// Takes the colour of a cell, and moves over it.
    void initForCell(int row, int column);

    /// Opens the well under the cell, with the cell's colour as the current one. A choice is stored; Escape
    /// and a click elsewhere keep the cell as it is.
    void open();

    /// Takes the button away from its cell, and an open well with it.
    void hideButton();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void layOverCell();
    void storeColor(int color);
    void forgetWell();

    GridWnd& grid_;
    IColorChangeObserver* observer_ = nullptr;
    QPointer<COwnSECColorWell> well_;
    std::vector<int> palette_;
    int row_ = 0;
    int column_ = 0;
    int color_ = 0;
};

} // namespace ovsettings
