#pragma once

#include "dialog/widgets/waitcursor.h"

#include <QtCore/QString>

#include <cstddef>
#include <functional>
#include <memory>

class QProgressDialog;
class QWidget;

namespace ovsettings {

/// A box in front of a window that shows how far work has come that may take long, and lets the user stop it.
/// It is there while it lives. Work of less than a second shows no box.
class ProgressBox {
public:
    ProgressBox(QWidget& parent, const QString& text);
    ~ProgressBox();
    ProgressBox(const ProgressBox&) = delete;
    ProgressBox& operator=(const ProgressBox&) = delete;

    /// Cheap enough to be called at every small step. Handles events once the box is on screen.
    /// @return false once the user has stopped the work.
    bool show(std::size_t done, std::size_t count);

private:
    const WaitCursor cursor_{Qt::BusyCursor}; // the box has a button to be clicked
    std::unique_ptr<QProgressDialog> box_;
};

/// Does work that may take long, step by step, in front of a box that shows how far it has come and lets the
/// user stop it. Work of less than a second shows no box.
/// @param step called with 0 to count - 1.
/// @return false if the user has stopped the work; the steps that were left are not made.
bool withProgress(QWidget& parent, const QString& text, std::size_t count,
                  const std::function<void(std::size_t)>& step);

} // namespace ovsettings
