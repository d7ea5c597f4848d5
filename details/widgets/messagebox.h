#pragma once

#include <QtCore/QString>
#include <QtWidgets/QMessageBox>

class QWidget;

namespace ovsettings {

/// The caption of a message that names none.
QString applicationTitle();

/// Shows a text with an OK button, modal to the window of `parent`.
void showMessage(QWidget* parent, const QString& text, const QString& title = applicationTitle());

/// Asks with the buttons Yes and No. Escape answers No.
bool askYesNo(QWidget* parent, const QString& text, const QString& title,
              QMessageBox::Icon icon = QMessageBox::NoIcon);

} // namespace ovsettings
