#pragma once

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

namespace ovsettings {

/// Shows that the user has to wait, until the end of the scope.
class WaitCursor {
public:
    explicit WaitCursor(Qt::CursorShape shape = Qt::WaitCursor) { QGuiApplication::setOverrideCursor(shape); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace ovsettings
