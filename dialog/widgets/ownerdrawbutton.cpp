#include "dialog/widgets/ownerdrawbutton.h"

#include <QtGui/QPainter>

#include <utility>

namespace ovsettings {

namespace {

/// Large enough for every sample that is drawn on such a surface, a pixel of margin included.
constexpr QSize kSizeOfSamples(222, 145);

} // namespace

OwnerDrawButton::OwnerDrawButton(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void OwnerDrawButton::setDrawing(std::function<void(const DrawItem& item)> draw) {
    draw_ = std::move(draw);
    update();
}

QSize OwnerDrawButton::sizeHint() const {
    return kSizeOfSamples;
}

QSize OwnerDrawButton::minimumSizeHint() const {
    return kSizeOfSamples;
}

void OwnerDrawButton::paintEvent(QPaintEvent*) {
    if (!draw_)
        return;
    QPainter painter(this);
    draw_({painter, size(), DrawAction::entire});
}

} // namespace ovsettings
