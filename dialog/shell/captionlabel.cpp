#include "dialog/shell/captionlabel.h"

#include "platform/plaintext.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace ovsettings {

namespace {

constexpr QRgb kBarColor = qRgb(0x9F, 0x9C, 0x96);
constexpr QPoint kTextOrigin(10, 5);
constexpr int kCellHeight = 18;

/// The face of the user interface in medium weight, with the line height that the bar was designed for. For
/// Japanese captions the toolkit finds a font by itself, glyph by glyph.
QFont captionFont(const QFont& base) {
    QFont font(base);
    font.setWeight(QFont::Medium);
    int pixels = kCellHeight;
    do
        font.setPixelSize(pixels--);
    while (pixels > 1 && QFontMetrics(font).height() > kCellHeight);
    return font;
}

} // namespace

CCaptionLabel::CCaptionLabel(QWidget* parent) : QLabel(parent) {
}

void CCaptionLabel::setCaption(const QString& caption) {
    caption_ = caption;
    setAccessibleName(caption);
    clear();
    update();
}

QSize CCaptionLabel::sizeHint() const {
    return {QFontMetrics(captionFont(font())).horizontalAdvance(caption_) + 2 * kTextOrigin.x(),
            kCellHeight + 2 * kTextOrigin.y()};
}

QSize CCaptionLabel::minimumSizeHint() const {
    return {2 * kTextOrigin.x(), kCellHeight + 2 * kTextOrigin.y()};
}

void CCaptionLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kBarColor));
    painter.setFont(captionFont(font()));
    painter.setPen(Qt::white);
    const QFontMetrics metrics = painter.fontMetrics();
    const QString shown =
        metrics.elidedText(platform::shortened(caption_), Qt::ElideRight, width() - 2 * kTextOrigin.x());
    painter.drawText(kTextOrigin.x(), kTextOrigin.y() + metrics.ascent(), shown);
}

} // namespace ovsettings
