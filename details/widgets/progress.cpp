#include "details/widgets/progress.h"

#include "details/widgets/messagebox.h"
#include "details/widgets/waitcursor.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QProgressDialog>

namespace ovsettings {

namespace {

constexpr int kQuick = 1000; // milliseconds

} // namespace

bool withProgress(QWidget& parent, const QString& text, std::size_t count,
                  const std::function<void(std::size_t)>& step) {
    const WaitCursor cursor(Qt::BusyCursor); // the box has a button to be clicked
    QProgressDialog box(text, QCoreApplication::translate("ovsettings::Progress", "Cancel"), 0,
                        static_cast<int>(count), &parent);
    box.setWindowTitle(applicationTitle());
    box.setWindowModality(Qt::WindowModal);
    box.setMinimumDuration(kQuick);
    for (std::size_t i = 0; i < count; ++i) {
        box.setValue(static_cast<int>(i));
        if (box.wasCanceled())
            return false;
        step(i);
    }
    return true;
}

} // namespace ovsettings
