#pragma once

#include <QtWidgets/QWidget>

#include <functional>

class QPainter;

namespace ovsettings {

/// What of a control is to be drawn.
enum class DrawAction {
    entire,
    select, ///< the selection came or went
    focus,  ///< the focus came or went
};

/// What an owner-drawn control hands to its owner.
struct DrawItem {
    QPainter& painter;
    QSize size; ///< of the control, in the painter's pixels; the origin is its upper left corner
    DrawAction action;
};

/// A surface of a page that its page draws. It takes no input and no focus; what it shows is told in its
/// accessible description, which its page sets.
class OwnerDrawButton : public QWidget {
    Q_OBJECT

public:
    explicit OwnerDrawButton(QWidget* parent = nullptr);

    void setDrawing(std::function<void(const DrawItem& item)> draw);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void(const DrawItem& item)> draw_;
};

} // namespace ovsettings
