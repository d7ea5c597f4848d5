#pragma once

#include <QtCore/QString>
#include <QtWidgets/QMessageBox>

class QAbstractSpinBox;
class QWidget;

namespace ovsettings {

/// The caption of a message that names none.
QString applicationTitle();

/// Shows a text with an OK button, modal to the window of `parent`.
void showMessage(QWidget* parent, const QString& text, const QString& title = applicationTitle(),
                 QMessageBox::Icon icon = QMessageBox::Warning);

/// Asks with the buttons Yes and No, of which Enter presses `preset`. Only the two end the question: Escape
/// and the close box do nothing, since an answer may lose something.
bool askYesNo(QWidget* parent, const QString& text, const QString& title,
              QMessageBox::Icon icon = QMessageBox::NoIcon,
              QMessageBox::StandardButton preset = QMessageBox::Yes);

/// As askYesNo, with two captions of its own. Enter presses the first button.
/// @return true for the first.
bool askEither(QWidget* parent, const QString& text, const QString& title, const QString& safe,
               const QString& other);

/// Tells why what was typed is refused, and leads to it: the field gets the focus, its text is selected.
void refuseEntry(QAbstractSpinBox& field, const QString& text);

} // namespace ovsettings
