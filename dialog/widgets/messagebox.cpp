#include "dialog/widgets/messagebox.h"

#include "platform/plaintext.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QPushButton>

namespace ovsettings {

namespace {

/// Takes the wait cursor away while the user is asked.
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

/// A question whose answer can lose something. Escape and the close box, which a hand is quick to hit, answer
/// nothing: only the buttons do.
class Question : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

    void reject() override {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->matches(QKeySequence::Cancel))
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

/// The page that asks may be hidden behind another one; its window is not.
QWidget* windowOf(QWidget* parent) {
    return parent ? parent->window() : nullptr;
}

int show(QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
    box.setText(platform::inItsOrder(box.text()));
    const PlainCursor cursor;
    return box.exec();
}

} // namespace

QString applicationTitle() {
    return QStringLiteral("Orvane");
}

void showMessage(QWidget* parent, const QString& text, const QString& title, QMessageBox::Icon icon) {
    QMessageBox box(icon, title, text, QMessageBox::Ok, windowOf(parent));
    show(box);
}

bool askYesNo(QWidget* parent, const QString& text, const QString& title, QMessageBox::Icon icon,
              QMessageBox::StandardButton preset) {
    Question box(icon, title, text, QMessageBox::Yes | QMessageBox::No, windowOf(parent));
    box.setDefaultButton(preset);
    return show(box) == QMessageBox::Yes;
}

bool askEither(QWidget* parent, const QString& text, const QString& title, const QString& safe,
               const QString& other) {
    Question box(QMessageBox::Question, title, text, QMessageBox::NoButton, windowOf(parent));
    QPushButton* const preset = box.addButton(safe, QMessageBox::RejectRole);
    const QPushButton* const loss = box.addButton(other, QMessageBox::DestructiveRole);
    box.setDefaultButton(preset);
    show(box);
    return box.clickedButton() != loss; // a box that is ended otherwise, by its host say, loses nothing
}

void refuseEntry(QAbstractSpinBox& field, const QString& text) {
    showMessage(&field, text);
    field.setFocus();
    field.selectAll();
}

} // namespace ovsettings
