#include "dialog/pages/display/sampleschematic.h"

#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/ownerdrawbutton.h"

#include <QtCore/QString>

namespace ovsettings {

namespace {

constexpr int kBorderInset = 3;
constexpr int kGridInset = 4;
constexpr int kGridStep = 15;

struct Rectangle {
    int left, top, right, bottom;
};

constexpr Rectangle kBox{20, 15, 50, 60};
constexpr Rectangle kPin{50, 45, 60, 55};
constexpr Rectangle kNetEnd{115, 40, 125, 50};
constexpr Rectangle kCircle{60, 70, 80, 90};

struct Caption {
    int x, y;
    const char* text;
    QColor SampleColors::*color;
};

// The names of things of the schematic, the same in every language.
constexpr Caption kCaptions[] = {
    {90, 50, "LABEL", &SampleColors::label},
    {20, 60, "ATTR", &SampleColors::attribute},
    {20, 80, "TEXT", &SampleColors::text},
};

void drawGrid(GdiPainter& gdi, QSize size, const QColor& color) {
    for (int y = kGridInset; y < size.height() - kGridInset; y += kGridStep) {
        for (int x = kGridInset; x < size.width() - kGridInset; x += kGridStep)
            gdi.setPixel(x, y, color);
    }
}

} // namespace

void paintSampleSchematic(const DrawItem& item, const SampleColors& colors) {
    GdiPainter gdi(item.painter);
    const int width = item.size.width(), height = item.size.height();
    gdi.fillRectangle(0, 0, width, height, colors.background);
    gdi.setBrush(colors.background);

    gdi.setPen(colors.border);
    gdi.rectangle(kBorderInset, kBorderInset, width - kBorderInset, height - kBorderInset);
    if (colors.grid)
        drawGrid(gdi, item.size, *colors.grid);

    gdi.setPen(colors.box);
    gdi.rectangle(kBox.left, kBox.top, kBox.right, kBox.bottom);

    gdi.setPen(colors.pin);
    gdi.lines({{50, 25}, {60, 25}});
    gdi.ellipse(kPin.left, kPin.top, kPin.right, kPin.bottom);

    gdi.setPen(colors.net);
    gdi.lines({{60, 25}, {90, 25}, {90, 45}, {120, 45}});
    gdi.fillRectangle(kNetEnd.left, kNetEnd.top, kNetEnd.right, kNetEnd.bottom, colors.net);

    for (const Caption& caption : kCaptions)
        gdi.text(caption.x, caption.y, QString::fromLatin1(caption.text), colors.*caption.color);

    gdi.setPen(colors.circle);
    gdi.ellipse(kCircle.left, kCircle.top, kCircle.right, kCircle.bottom);
}

} // namespace ovsettings
