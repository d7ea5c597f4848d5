#include "dialog/widgets/wheelguard.h"

#include <QtCore/QChildEvent>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>

namespace ovsettings {

namespace {

/// Whether a turn of the wheel over the control would change its value.
bool isChangedByWheel(const QWidget& control) {
    return qobject_cast<const QAbstractSpinBox*>(&control) || qobject_cast<const QComboBox*>(&control);
}

bool holdsFocus(const QWidget& control) {
    const QWidget* focus = QApplication::focusWidget();
    return focus && (focus == &control || control.isAncestorOf(focus));
}

class WheelGuard : public QObject {
public:
    explicit WheelGuard(QWidget& page) : QObject(&page) { guard(page); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ChildPolished) {
            if (auto* child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child()))
                guard(*child);
        } else if (event->type() == QEvent::Wheel) {
            return refuses(*static_cast<QWidget*>(watched), *event);
        }
        return false;
    }

private:
    void guard(QWidget& widget) {
        watch(widget);
        for (QWidget* child : widget.findChildren<QWidget*>())
            watch(*child);
    }

    void watch(QWidget& widget) {
        widget.installEventFilter(this);
        if (widget.focusPolicy() == Qt::WheelFocus)
            widget.setFocusPolicy(Qt::StrongFocus);
    }

    bool refuses(const QWidget& control, QEvent& event) const {
        if (!isChangedByWheel(control) || holdsFocus(control))
            return false;
        event.ignore();
        return true;
    }
};

} // namespace

void installWheelGuard(QWidget& page) {
    new WheelGuard(page);
}

} // namespace ovsettings
