#include "dialog/widgets/gdipainter.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cstdlib>

namespace ovsettings {

namespace {

constexpr int kDownwards = 90;

/// Outlines keep to the top left corner of a pixel while it is one of the surface, and to its middle once it
/// is a square of several.
double outlineOffset(const QPainter& painter) {
    return painter.deviceTransform().m11() > 1 ? 0.5 : 0;
}

/// The pixels of a rectangle that leaves out its right and bottom edge; none of one that is turned around.
QRect covered(int left, int top, int right, int bottom) {
    return right > left && bottom > top ? QRect(left, top, right - left, bottom - top) : QRect();
}

} // namespace

QColor toQColor(int packed) {
    return QColor(packed & 0xff, packed >> 8 & 0xff, packed >> 16 & 0xff);
}

int toPacked(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

GdiPainter::GdiPainter(QPainter& painter) : painter_(painter) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void GdiPainter::setPen(const QColor& color) {
    painter_.setPen(QPen(color, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

void GdiPainter::setBrush(const QColor& color) {
    painter_.setBrush(color);
}

void GdiPainter::setHollowBrush() {
    painter_.setBrush(Qt::NoBrush);
}

void GdiPainter::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    painter_.fillRect(covered(left, top, right, bottom), color);
}

void GdiPainter::frameRectangle(int left, int top, int right, int bottom, const QColor& color) {
    drawOutline(left, top, right, bottom, color);
}

void GdiPainter::rectangle(int left, int top, int right, int bottom) {
    painter_.fillRect(covered(left, top, right, bottom), painter_.brush());
    drawOutline(left, top, right, bottom, painter_.pen().color());
}

void GdiPainter::drawOutline(int left, int top, int right, int bottom, const QColor& color) {
    if (covered(left, top, right, bottom).isEmpty())
        return;
    fillRectangle(left, top, right, top + 1, color);
    fillRectangle(left, bottom - 1, right, bottom, color);
    fillRectangle(left, top, left + 1, bottom, color);
    fillRectangle(right - 1, top, right, bottom, color);
}

void GdiPainter::ellipse(int left, int top, int right, int bottom) {
    const double offset = outlineOffset(painter_);
    // The outline's middle runs through the middles of the outermost pixels, one less than there are.
    painter_.drawEllipse(QRectF(left + offset, top + offset, right - left - 1, bottom - top - 1));
}

void GdiPainter::lines(std::initializer_list<QPoint> points) {
    for (const QPoint* from = points.begin(); from != points.end() && from + 1 != points.end(); ++from) {
        const QPoint way = from[1] - from[0];
        const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
        for (int step = 0; step < steps; ++step) {
            const QPoint at = *from + QPointF(QPointF(way) * step / steps).toPoint();
            setPixel(at.x(), at.y(), painter_.pen().color());
        }
    }
}

void GdiPainter::setPixel(int x, int y, const QColor& color) {
    painter_.fillRect(QRect(x, y, 1, 1), color);
}

void GdiPainter::text(int x, int y, const QString& text, const QColor& color) {
    const QPen pen = painter_.pen();
    painter_.setPen(color);
    painter_.drawText(QPoint(x, y + painter_.fontMetrics().ascent()), text);
    painter_.setPen(pen);
}

void GdiPainter::textDownwards(int x, int y, const QString& text, const QColor& color) {
    painter_.save();
    painter_.translate(x, y);
    painter_.rotate(kDownwards);
    this->text(0, 0, text, color);
    painter_.restore();
}

} // namespace ovsettings
