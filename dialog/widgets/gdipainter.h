#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QColor>

#include <initializer_list>

class QPainter;
class QString;

namespace ovsettings {

/// A packed colour, red in the low byte, as the toolkit's.
QColor toQColor(int packed);
/// The other way; transparency is dropped.
int toPacked(const QColor& color);

/// Draws in the terms of the desktop platform's drawing interface, to the pixel, without antialiasing. Its
/// coordinates are the painter's own pixels, each of which is a square of several on a surface of higher
/// resolution; a rectangle or an ellipse is given by its left, top, right and bottom and leaves out its right
/// and bottom edge, and a line leaves out its last point. Outlines are one pixel wide.
class GdiPainter {
public:
    /// @param painter not owned, must outlive this object, which changes its pen and its brush.
    explicit GdiPainter(QPainter& painter);

    void setPen(const QColor& color);
    void setBrush(const QColor& color);
    /// Outlines only, until the next brush.
    void setHollowBrush();

    /// Fills every pixel of the rectangle but those of its right and bottom edge; no outline.
    void fillRectangle(int left, int top, int right, int bottom, const QColor& color);
    /// A frame one pixel wide inside the rectangle; neither pen nor brush take part.
    void frameRectangle(int left, int top, int right, int bottom, const QColor& color);
    /// Outlined with the pen, filled with the brush.
    void rectangle(int left, int top, int right, int bottom);
    void ellipse(int left, int top, int right, int bottom);
    /// Lines from point to point, without the last one.
    void lines(std::initializer_list<QPoint> points);
    void setPixel(int x, int y, const QColor& color);
    /// @param x, y the upper left corner of the text's cell, in the painter's font.
    void text(int x, int y, const QString& text, const QColor& color);
    /// As text, running downwards: the cell's upper left corner is its upper right one on the screen.
    void textDownwards(int x, int y, const QString& text, const QColor& color);

private:
    void drawOutline(int left, int top, int right, int bottom, const QColor& color);

    QPainter& painter_;
};

} // namespace ovsettings
