#include "dialog/widgets/gdipainter.h"

#include "tests/support/ink.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <gtest/gtest.h>

#include <functional>

using ovsettings::GdiPainter;

namespace {

/// What a drawing leaves on white paper of 40 by 40 pixels, each a square of `scale` pixels.
QImage drawn(int scale, const std::function<void(GdiPainter& gdi)>& draw) {
    QImage image(40 * scale, 40 * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    GdiPainter gdi(painter);
    gdi.setPen(Qt::red);
    gdi.setBrush(Qt::blue);
    draw(gdi);
    return image;
}

} // namespace

TEST(GdiPainter, LeavesOutRightAndBottomEdgesAndTheLastPointOfALine) {
    struct {
        const char* name;
        void (*draw)(GdiPainter& gdi);
        QRect ink;
    } const rows[] = {
        {"rectangle", [](GdiPainter& gdi) { gdi.rectangle(2, 3, 12, 9); }, {2, 3, 10, 6}},
        {"ellipse", [](GdiPainter& gdi) { gdi.ellipse(2, 3, 12, 9); }, {2, 3, 10, 6}},
        {"odd ellipse", [](GdiPainter& gdi) { gdi.ellipse(2, 3, 23, 34); }, {2, 3, 21, 31}},
        {"fill", [](GdiPainter& gdi) { gdi.fillRectangle(2, 3, 12, 9, Qt::green); }, {2, 3, 10, 6}},
        {"frame", [](GdiPainter& gdi) { gdi.frameRectangle(2, 3, 12, 9, Qt::green); }, {2, 3, 10, 6}},
        {"one pixel", [](GdiPainter& gdi) { gdi.rectangle(2, 3, 3, 4); }, {2, 3, 1, 1}},
        {"turned rectangle", [](GdiPainter& gdi) { gdi.rectangle(12, 9, 2, 3); }, {}},
        {"pixel", [](GdiPainter& gdi) { gdi.setPixel(2, 3, Qt::green); }, {2, 3, 1, 1}},
    };
    struct {
        std::initializer_list<QPoint> points;
        QRect ink;
    } const lines[] = {
        {{{2, 3}, {12, 3}}, {2, 3, 10, 1}},
        {{{2, 12}, {2, 3}}, {2, 4, 1, 9}},
        {{{2, 3}, {12, 8}}, {2, 3, 10, 6}},
        {{{2, 9}, {2, 3}, {12, 3}}, {2, 3, 10, 7}},
        {{{2, 3}, {2, 3}}, {}},
    };
    for (const int scale : {1, 2, 3}) {
        for (const auto& row : rows) {
            const QRect expected(row.ink.topLeft() * scale, row.ink.size() * scale);
            EXPECT_EQ(inkOf(drawn(scale, row.draw), Qt::white), expected) << row.name << " at " << scale;
        }
        for (const auto& line : lines) {
            const QRect expected(line.ink.topLeft() * scale, line.ink.size() * scale);
            EXPECT_EQ(inkOf(drawn(scale, [&](GdiPainter& gdi) { gdi.lines(line.points); }), Qt::white),
                      expected)
                << "line " << line.ink.height() << " high at " << scale;
        }
    }
}

TEST(GdiPainter, OutlinesAreOnePixelWideAroundTheBrush) {
    for (const int scale : {1, 2, 3}) {
        const auto colorAt = [scale](const QImage& image, int x, int y) {
            return image.pixelColor(x * scale + scale / 2, y * scale + scale / 2);
        };
        const QImage box = drawn(scale, [](GdiPainter& gdi) { gdi.rectangle(2, 3, 12, 9); });
        const QImage circle = drawn(scale, [](GdiPainter& gdi) { gdi.ellipse(2, 3, 12, 13); });
        for (const int x : {2, 11}) {
            EXPECT_EQ(colorAt(box, x, 6), QColor(Qt::red));
            EXPECT_EQ(colorAt(circle, x, 8), QColor(Qt::red));
        }
        for (const int x : {3, 10}) {
            EXPECT_EQ(colorAt(box, x, 6), QColor(Qt::blue));
            EXPECT_EQ(colorAt(circle, x, 8), QColor(Qt::blue));
        }
        const QImage hollow = drawn(scale, [](GdiPainter& gdi) {
            gdi.setHollowBrush();
            gdi.rectangle(2, 3, 12, 9);
            gdi.ellipse(20, 3, 30, 13);
        });
        EXPECT_EQ(colorAt(hollow, 6, 6), QColor(Qt::white));
        EXPECT_EQ(colorAt(hollow, 25, 8), QColor(Qt::white));
    }
}

TEST(GdiPainter, PlacesATextByTheCornerOfItsCell) {
    QImage image(100, 100, QImage::Format_RGB32);
    for (const bool downwards : {false, true}) {
        image.fill(Qt::white);
        QPainter painter(&image);
        const QFontMetrics metrics = painter.fontMetrics();
        GdiPainter gdi(painter);
        QRect cell(50, 20, metrics.horizontalAdvance("$1X"), metrics.height());
        if (downwards) {
            gdi.textDownwards(50, 20, "$1X", Qt::red);
            cell = QRect(50 - cell.height(), 20, cell.height(), cell.width());
        } else {
            gdi.text(50, 20, "$1X", Qt::red);
        }
        const QRect ink = inkOf(image, Qt::white);
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_TRUE(cell.adjusted(-1, -1, 1, 1).contains(ink)) << (downwards ? "downwards" : "upright");
    }
}

TEST(GdiPainter, KeepsRedInTheLowByteOfAPackedColor) {
    EXPECT_EQ(ovsettings::toQColor(0x80B0E0), QColor(0xE0, 0xB0, 0x80));
    EXPECT_EQ(ovsettings::toPacked(QColor(0xE0, 0xB0, 0x80, 0x10)), 0x80B0E0);
}
