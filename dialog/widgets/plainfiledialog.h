#pragma once

#include "platform/plaintext.h"

#include <QtCore/QEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace ovsettings {

/// A file dialog whose own questions, whether a file is to be replaced or deleted say, read no markup in its
/// name. It has no meta-object of its own, so that the platform's dialog still takes its place.
class PlainFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void childEvent(QChildEvent* event) override {
        // Before the box is laid out, which is when the pictures of a text are loaded.
        if (auto* box = event->polished() ? qobject_cast<QMessageBox*>(event->child()) : nullptr) {
            box->setTextFormat(Qt::PlainText);
            box->setText(platform::inItsOrder(box->text()));
        }
        QFileDialog::childEvent(event);
    }
};

} // namespace ovsettings
