#include "details/widgets/messagebox.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QAbstractSpinBox>

namespace ovsettings {

namespace {

/// While the user is asked, nobody is to wait.
class PlainCursor {
public:
    PlainCursor() : isWaiting_(QGuiApplication::overrideCursor() != nullptr) {
        if (isWaiting_)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainCursor() {
        if (isWaiting_)
            QGuiApplication::restoreOverrideCursor();
    }
    PlainCursor(const PlainCursor&) = delete;
    PlainCursor& operator=(const PlainCursor&) = delete;

private:
    const bool isWaiting_;
};

QMessageBox::StandardButton show(QWidget* parent, const QString& text, const QString& title,
                                 QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton preset) {
    // The page that asks may be hidden behind another one; its window is not.
    QMessageBox box(icon, title, text, buttons, parent ? parent->window() : nullptr);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(preset);
    const PlainCursor cursor;
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

QString applicationTitle() {
    return QStringLiteral("Orvane");
}

void showMessage(QWidget* parent, const QString& text, const QString& title, QMessageBox::Icon icon) {
    show(parent, text, title, icon, QMessageBox::Ok, QMessageBox::Ok);
}

bool askYesNo(QWidget* parent, const QString& text, const QString& title, QMessageBox::Icon icon,
              QMessageBox::StandardButton preset) {
    return show(parent, text, title, icon, QMessageBox::Yes | QMessageBox::No, preset) == QMessageBox::Yes;
}

void refuseEntry(QAbstractSpinBox& field, const QString& text) {
    showMessage(&field, text);
    field.setFocus();
    field.selectAll();
}

} // namespace ovsettings
