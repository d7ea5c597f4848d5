#pragma once

#include "tests/support/testsupport.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>

#include <ostream>

namespace testsupport {

/// Presses a button or a box with the mouse, where a box has its mark.
void press(QWidget& root, const std::string& caption);

/// Types a text over the one there is.
void type(QWidget& control, const std::string& text);

/// The texts of the rows that a list, a drop-down or a view shows.
std::vector<std::string> textsIn(const QAbstractItemModel& model);
template <typename View>
std::vector<std::string> textsOf(const View& view) {
    return textsIn(*view.model());
}

/// What a user saw of a message box.
struct SeenBox {
    std::string title;
    std::string text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;

    bool operator==(const SeenBox&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const SeenBox& box);

/// Calls an operation that shows one message box, and answers it with the button of that caption.
SeenBox boxDuring(const std::function<void()>& operation, const std::string& answer = "OK");

/// Calls an operation that may show a message box, and presses Enter there. @return its text, if any.
std::string messageDuring(const std::function<void()>& operation);

/// The middle of a cell of a grid, whose rows and columns count from 1; the cell is scrolled to.
QPoint centreOf(QAbstractItemView& grid, int row, int column);
void clickCell(QAbstractItemView& grid, int row, int column);

/// Makes a window the active one, and waits until it is.
void activate(QWidget& window);

/// A text of a file that acts where markup is read: it looks for a picture beside the program, and turns the
/// direction of the writing. It has no separator of paths.
inline const std::string kActingText = "<b><a href='h'><img src='f'>\u202eX";

/// What a window shows in the places that read markup: tool tips, those of items too, and labels, thus also
/// message boxes. Fails the test for each that acts. @return the rest as the user reads it.
std::vector<std::string> textsWithoutEffect(QWidget& window);

} // namespace testsupport
