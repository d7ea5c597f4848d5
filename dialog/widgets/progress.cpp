#include "dialog/widgets/progress.h"

#include "dialog/widgets/messagebox.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QProgressDialog>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr int kQuick = 1000; // milliseconds
constexpr int kParts = 1000; ///< of the work that are told apart

} // namespace

ProgressBox::ProgressBox(QWidget& parent, const QString& text)
    : box_(std::make_unique<QProgressDialog>(
          text, QCoreApplication::translate("ovsettings::Progress", "Cancel"), 0, kParts, &parent)) {
    box_->setWindowTitle(applicationTitle());
    box_->setWindowModality(Qt::WindowModal);
    box_->setMinimumDuration(kQuick);
    box_->setValue(0); // from here on the time counts
}

ProgressBox::~ProgressBox() = default;

bool ProgressBox::show(std::size_t done, std::size_t count) {
    // The last part is never shown: with it the box would close by itself.
    const std::size_t part = count == 0 ? 0 : std::min<std::size_t>(done * kParts / count, kParts - 1);
    box_->setValue(static_cast<int>(part));
    return !box_->wasCanceled();
}

bool withProgress(QWidget& parent, const QString& text, std::size_t count,
                  const std::function<void(std::size_t)>& step) {
    ProgressBox box(parent, text);
    for (std::size_t i = 0; i < count; ++i) {
        if (!box.show(i, count))
            return false;
        step(i);
    }
    return true;
}

} // namespace ovsettings
