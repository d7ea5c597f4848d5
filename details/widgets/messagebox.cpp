#include "details/widgets/messagebox.h"

namespace ovsettings {

namespace {

QMessageBox::StandardButton show(QWidget* parent, const QString& text, const QString& title,
                                 QMessageBox::Icon icon, QMessageBox::StandardButtons buttons) {
    // The page that asks may be hidden behind another one; its window is not.
    QMessageBox box(icon, title, text, buttons, parent ? parent->window() : nullptr);
    box.setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

QString applicationTitle() {
    return QStringLiteral("Orvane");
}

void showMessage(QWidget* parent, const QString& text, const QString& title) {
    show(parent, text, title, QMessageBox::Warning, QMessageBox::Ok);
}

bool askYesNo(QWidget* parent, const QString& text, const QString& title, QMessageBox::Icon icon) {
    return show(parent, text, title, icon, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace ovsettings
