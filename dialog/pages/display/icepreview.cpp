#include "dialog/pages/display/icepreview.h"

#include "dialog/pages/display/mappinggrid.h"
#include "dialog/pages/display/mappingrow.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/ownerdrawbutton.h"

#include <QtCore/QRect>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <algorithm>
#include <optional>

namespace ovsettings {

namespace {

constexpr int kCellWidth = 21;
constexpr int kCellHeight = 18;
constexpr QSize kBlockSize(70, 50);
constexpr QSize kMargin(2, 2);
constexpr QPoint kCellsOrigin(kBlockSize.width() + kMargin.width(), kBlockSize.height() + kMargin.height());
constexpr int kIndentUnit = 14;

constexpr QSize kTileSize(20, 16);
constexpr int kTileCount = 12;
constexpr const char* kTileImage = ":/ovsettings/images/icttiles.svg";

constexpr const char* kFace = "Tahoma";
constexpr int kFontHeight = 11;

constexpr int kRuleColor = 0xc0c0c0;
constexpr int kDefaultHighlight = 0xff00ff;

struct TileOfKey {
    std::string_view key;
    int tile;
};

constexpr TileOfKey kTiles[] = {
    {"BUS", 0}, {"ATTRIBUTE", 1}, {"BLOCK", 2},  {"DIFFPAIR", 3},   {"FPGA", 4},  {"FUB", 5},  {"GROUP", 6},
    {"NET", 7}, {"NETS", 8},      {"SYMBOL", 9}, {"COMPONENT", 10}, {"PORT", 11}, {"PIN", 11},
};

/// Column and row of each cell that is filled.
constexpr QPoint kLattice[] = {
    {0, 0}, {1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}, {0, 2}, {1, 2}, {2, 2}, {0, 3}, {1, 3}, {2, 3}, {0, 4},
    {4, 0}, {5, 0}, {4, 1}, {5, 1}, {4, 2}, {5, 2}, {4, 3}, {5, 3}, {6, 0}, {6, 1}, {6, 2}, {6, 3}, {6, 4},
};

std::optional<int> tileOf(std::string_view key) {
    const auto* found = std::ranges::find(kTiles, key, &TileOfKey::key);
    return found != std::end(kTiles) ? std::optional(found->tile) : std::nullopt;
}

/// All tiles in one image as sharp as the sharpest screen; what the image leaves open lets the cell through.
QPixmap renderTiles() {
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap tiles((QSizeF(kTileCount * kTileSize.width(), kTileSize.height()) * ratio).toSize());
    tiles.fill(Qt::transparent);
    QPainter painter(&tiles);
    QSvgRenderer(QString::fromLatin1(kTileImage)).render(&painter);
    return tiles;
}

/// The height is that of the whole cell of a character, which is more than that of the characters.
QFont sampleFont() {
    QFont font = QGuiApplication::font();
    font.setFamilies(QStringList{QString::fromLatin1(kFace)} + font.families());
    font.setWeight(QFont::Bold);
    int size = kFontHeight;
    do
        font.setPixelSize(size);
    while (QFontMetrics(font).height() > kFontHeight && --size > 0);
    return font;
}

/// A closed cell, whose colour is negative, counts as a row that is not there.
QColor colorOf(const CMappingRow* row, int otherwise = 0) {
    return toQColor(row && row->getColor() >= 0 ? row->getColor() : otherwise);
}

QColor textColorOf(const CMappingRow* row) {
    return toQColor(row ? std::max(row->getTextColor(), 0) : 0);
}

void fill(GdiPainter& gdi, const QRect& place, const QColor& color) {
    gdi.fillRectangle(place.x(), place.y(), place.x() + place.width(), place.y() + place.height(), color);
}

bool isVertical(const QRect& place) {
    return place.height() > place.width();
}

QRect indented(QRect place, int indent) {
    if (isVertical(place))
        place.setTop(place.top() + indent * kIndentUnit);
    else
        place.setLeft(place.left() + indent * kIndentUnit);
    return place;
}

} // namespace

const CICEPreview::SampleItem CICEPreview::kBlockItems[] = {
    {"BLOCK", "Block", 5, 0},   {"COMPONENT", "Comp", 0, 2}, {"FUB", "Fub", 0, 1},     {"FPGA", "FPGA", 0, 1},
    {"SYMBOL", "Symbol", 0, 2}, {"PIN", "Pin", 0, 0},        {"GROUP", "Group", 2, 1},
};

const CICEPreview::SampleItem CICEPreview::kNetItems[] = {
    {"NET", "Net", 0, 0},   {"NETS", "Global Net", 0, 0},
    {"BUS", "Bus", 0, 0},   {"DIFFPAIR", "Diff Pair", 0, 0},
    {"PORT", "Port", 0, 0},
};

CICEPreview::CICEPreview(const CMappingGrid& grid)
    : grid_(grid),
      blocks_(std::begin(kBlockItems), std::end(kBlockItems)),
      nets_(std::begin(kNetItems), std::end(kNetItems)),
      tiles_(renderTiles()),
      font_(sampleFont()) {
    // The sample shows a flat table, whatever the lists say: users know it so.
    for (auto* items : {&blocks_, &nets_}) {
        for (SampleItem& sample : *items)
            sample.number = sample.indent = 0;
    }
}

void CICEPreview::draw(const DrawItem& item) {
    if (item.action != DrawAction::entire)
        return;
    GdiPainter gdi(item.painter);
    item.painter.setFont(font_);
    fill(gdi, QRect(QPoint(0, 0), item.size), colorOf(rowOf("INVALIDCELL")));
    drawHeaders(item, gdi);
    drawCells(gdi);
    drawRules(gdi);
}

const CMappingRow* CICEPreview::rowOf(std::string_view key) const {
    return grid_.rowOfKey(key);
}

void CICEPreview::drawHeaders(const DrawItem& item, GdiPainter& gdi) const {
    QRect column(kCellsOrigin.x(), kMargin.height(), kCellWidth, kBlockSize.height());
    for (const SampleItem& block : blocks_) {
        drawItem(item, gdi, column, block);
        if (&block == &blocks_.front()) {
            const QRect frame = indented(column, block.indent);
            gdi.setPen(colorOf(rowOf("HIGHLIGHT_LAYER"), kDefaultHighlight));
            gdi.setHollowBrush();
            gdi.rectangle(frame.x() + 1, frame.y() + 1, frame.x() + frame.width(),
                          frame.y() + frame.height());
        }
        column.translate(kCellWidth, 0);
    }
    QRect row(kMargin.width(), kCellsOrigin.y(), kBlockSize.width(), kCellHeight);
    for (const SampleItem& net : nets_) {
        drawItem(item, gdi, row, net);
        row.translate(0, kCellHeight);
    }
}

void CICEPreview::drawItem(const DrawItem& item, GdiPainter& gdi, QRect place,
                           const SampleItem& sample) const {
    const std::optional<int> tile = tileOf(sample.key);
    if (!tile)
        return;
    const CMappingRow* row = rowOf(sample.key);
    // The way it reads is that of the whole header, before the indent.
    const bool vertical = isVertical(place);
    place = indented(place, sample.indent);
    fill(gdi, place, colorOf(row));

    const double ratio = static_cast<double>(tiles_.width()) / (kTileCount * kTileSize.width());
    const QRectF source(*tile * kTileSize.width() * ratio, 0, kTileSize.width() * ratio,
                        kTileSize.height() * ratio);
    const QPoint tileOffset = vertical ? QPoint(1, 3) : QPoint(3, 1);
    item.painter.drawPixmap(QRectF(place.topLeft() + tileOffset, kTileSize), tiles_, source);

    const QString text = QStringLiteral("$1X");
    if (vertical)
        gdi.textDownwards(place.x() + place.width() - 3, place.y() + 24, text, textColorOf(row));
    else
        gdi.text(place.x() + 26, place.y() + 4, text, textColorOf(row));
}

void CICEPreview::drawCells(GdiPainter& gdi) const {
    const CMappingRow* row = rowOf("EDITCELL");
    for (const QPoint& position : kLattice) {
        const QRect cell(kCellsOrigin.x() + position.x() * kCellWidth,
                         kCellsOrigin.y() + position.y() * kCellHeight, kCellWidth, kCellHeight);
        fill(gdi, cell, colorOf(row));
        gdi.text(cell.x() + 5, cell.y() + 4, QStringLiteral("P1"), textColorOf(row));
    }
}

void CICEPreview::drawRules(GdiPainter& gdi) const {
    const int columns = static_cast<int>(blocks_.size()), rows = static_cast<int>(nets_.size());
    const int left = kMargin.width(), top = kMargin.height();
    const int right = kCellsOrigin.x() + columns * kCellWidth;
    const int bottom = kCellsOrigin.y() + rows * kCellHeight;
    gdi.setPen(toQColor(kRuleColor));
    gdi.lines({{left, bottom}, {left, top}, {right, top}});
    for (int x = kCellsOrigin.x(); x <= right; x += kCellWidth)
        gdi.lines({{x, top}, {x, bottom}});
    for (int y = kCellsOrigin.y(); y <= bottom; y += kCellHeight)
        gdi.lines({{left, y}, {right, y}});
}

} // namespace ovsettings
