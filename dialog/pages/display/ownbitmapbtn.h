#pragma once

#include <QtWidgets/QToolButton>

namespace ovsettings {

/// A push button with a picture, inside a cell of a grid. It never takes the focus: whoever works without a
/// mouse has the page's buttons for what it does.
class COwnBitmapBtn : public QToolButton {
    Q_OBJECT

public:
    /// @param image file name without its extension. @param caption what it does, shown as its tool tip.
    COwnBitmapBtn(const QString& image, const QString& caption, QWidget* parent);

    /// Puts the button into a cell. @param place how many buttons there are to the right of it.
    void moveToCell(const QRect& cell, int place);
};

class CBitmapBtnEdit : public COwnBitmapBtn {
    Q_OBJECT

public:
    explicit CBitmapBtnEdit(QWidget* parent);
};

class CBitmapBtnDel : public COwnBitmapBtn {
    Q_OBJECT

public:
    explicit CBitmapBtnDel(QWidget* parent);
};

} // namespace ovsettings
