#include "details/widgets/wheelguard.h"

#include <QtCore/QChildEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>

namespace ovsettings {

namespace {

/// The control that a wheel turn over `target` would work on; null for any other widget. Views get their
/// wheel turns through the viewport.
QWidget* controlUnderWheel(QWidget* target) {
    if (qobject_cast<QAbstractSpinBox*>(target) || qobject_cast<QComboBox*>(target))
        return target;
    auto* view = qobject_cast<QAbstractItemView*>(target->parentWidget());
    return view && view->viewport() == target ? view : nullptr;
}

bool holdsFocus(const QWidget& control) {
    const QWidget* focus = QApplication::focusWidget();
    return focus && (focus == &control || control.isAncestorOf(focus));
}

class CWheelGuard : public QObject {
public:
    explicit CWheelGuard(QWidget& page) : QObject(&page), page_(page) { guard(page); }

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
        if (QWidget* control = controlUnderWheel(&widget);
            control && control->focusPolicy() == Qt::WheelFocus)
            control->setFocusPolicy(Qt::StrongFocus);
    }

    bool refuses(QWidget& target, QEvent& event) const {
        const QWidget* control = controlUnderWheel(&target);
        // The open list of a combo box is a window of its own; nothing scrolls behind it.
        if (!control || holdsFocus(*control) || control->window() != page_.window())
            return false;
        event.ignore();
        return true;
    }

    QWidget& page_;
};

} // namespace

void installWheelGuard(QWidget& page) {
    new CWheelGuard(page);
}

} // namespace ovsettings
