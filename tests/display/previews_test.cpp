#include "dialog/pages/display/sampleschematic.h"
#include "dialog/widgets/gdipainter.h"
#include "tests/display/objectspage.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

using ovsettings::SampleColors;

namespace {

constexpr QSize kSize(222, 145);
constexpr int kRule = 0xc0c0c0;

const SampleColors kColors{
    .background = QColor(1, 2, 3),
    .border = QColor(10, 0, 0),
    .box = QColor(20, 0, 0),
    .pin = QColor(30, 0, 0),
    .net = QColor(40, 0, 0),
    .label = QColor(50, 0, 0),
    .attribute = QColor(60, 0, 0),
    .text = QColor(70, 0, 0),
    .circle = QColor(80, 0, 0),
    .grid = QColor(90, 0, 0),
};

QImage sample(const SampleColors& colors, int scale = 1, QSize size = kSize) {
    QImage image(size * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    ovsettings::paintSampleSchematic({painter, size, ovsettings::DrawAction::entire}, colors);
    return image;
}

/// Every edge of the sample schematic: a point on it, and its neighbour off it.
void expectSample(const QImage& image, const SampleColors& colors) {
    const QColor &paper = colors.background, &border = colors.border, &box = colors.box, &pin = colors.pin,
                 &net = colors.net, &circle = colors.circle;
    const QColor grid = colors.grid.value_or(paper);
    struct {
        int x, y;
        QColor color;
    } const rows[] = {
        {0, 0, paper},    {221, 144, paper}, {2, 70, paper},   {3, 70, border},    {218, 70, border},
        {219, 70, paper}, {110, 2, paper},   {110, 3, border}, {110, 141, border}, {110, 142, paper},
        {4, 4, grid},     {5, 4, paper},     {4, 5, paper},    {19, 4, grid},      {4, 19, grid},
        {214, 139, grid}, {34, 34, paper},   {19, 30, paper},  {20, 30, box},      {21, 30, paper},
        {49, 30, box},    {50, 30, paper},   {35, 14, paper},  {35, 15, box},      {35, 16, paper},
        {35, 59, box},    {35, 60, paper},   {50, 25, pin},    {59, 25, pin},      {55, 24, paper},
        {50, 50, pin},    {51, 50, paper},   {59, 50, pin},    {60, 50, paper},    {55, 44, paper},
        {55, 45, pin},    {55, 46, paper},   {55, 54, pin},    {55, 55, paper},    {60, 25, net},
        {90, 25, net},    {91, 25, paper},   {90, 24, paper},  {90, 44, net},      {89, 45, paper},
        {90, 45, net},    {114, 45, net},    {114, 41, paper}, {115, 40, net},     {115, 39, paper},
        {124, 49, net},   {125, 47, paper},  {120, 50, paper}, {59, 80, paper},    {60, 80, circle},
        {61, 80, paper},  {79, 80, circle},  {80, 80, paper},  {70, 69, paper},    {70, 70, circle},
        {70, 71, paper},  {70, 89, circle},  {70, 90, paper},
    };
    const int scale = static_cast<int>(image.devicePixelRatio());
    for (const auto& row : rows) {
        for (const int part : {0, scale - 1}) {
            EXPECT_EQ(image.pixelColor(row.x * scale + part, row.y * scale + part).name(), row.color.name())
                << row.x << ", " << row.y << " at " << scale;
        }
    }
}

class PreviewOfObjects : public ObjectsPage {
protected:
    void SetUp() override {
        load();
        openObjects();
        window_.resize(700, 600);
        objects_->resize(700, 600);
    }

    /// What is shown beside the grid; the surface may be larger than the sample.
    QImage grab() { return objects_->findChild<ovsettings::OwnerDrawButton*>()->grab().toImage(); }

    ovsettings::CMappingRow& row(const char* mode, const char* key) { return *grid(mode).rowOfKey(key); }

    /// Where a change of the text colour shows.
    QRect inkOfText(const char* key) {
        row("ICT", key).setTextColor(0);
        const QImage before = grab();
        row("ICT", key).setTextColor(0xffffff);
        const QImage after = grab();
        QRect ink;
        for (int y = 0; y < after.height(); ++y) {
            for (int x = 0; x < after.width(); ++x) {
                if (after.pixel(x, y) != before.pixel(x, y))
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }
};

} // namespace

TEST(SampleSchematic, HasEveryObjectAtItsPlaceToThePixel) {
    for (const int scale : {1, 2}) {
        expectSample(sample(kColors, scale), kColors);
        SampleColors plain = kColors;
        plain.grid = {};
        expectSample(sample(plain, scale), plain);
    }
}

TEST(SampleSchematic, EndsTheGridBeforeTheEdgesOfItsRectangle) {
    const QImage image = sample(kColors, 1, QSize(38, 38));
    EXPECT_EQ(image.pixelColor(19, 4), *kColors.grid);
    EXPECT_EQ(image.pixelColor(34, 4), kColors.border);
    EXPECT_EQ(image.pixelColor(4, 34), kColors.border);
}

TEST(SampleSchematic, WritesEachTextInItsColorAtItsPlace) {
    struct {
        QColor SampleColors::*color;
        QPoint corner;
        const char* text;
    } const rows[] = {
        {&SampleColors::label, {90, 50}, "LABEL"},
        {&SampleColors::attribute, {20, 60}, "ATTR"},
        {&SampleColors::text, {20, 80}, "TEXT"},
    };
    for (const auto& row : rows) {
        SampleColors colors{Qt::white, Qt::white, Qt::white, Qt::white, Qt::white,
                            Qt::white, Qt::white, Qt::white, Qt::white};
        colors.*row.color = Qt::red;
        const QRect ink = inkOf(sample(colors), Qt::white);
        const QFontMetrics metrics{QFont()};
        const QRect cell(row.corner, QSize(metrics.horizontalAdvance(row.text), metrics.height()));
        EXPECT_TRUE(cell.adjusted(-1, 0, 1, 0).contains(ink)) << row.text;
        EXPECT_GT(ink.width(), cell.width() / 2) << row.text;
    }
}

TEST_F(PreviewOfObjects, ShowsTheColorsOfTheGridBeforeTheyAreStored) {
    const std::pair<const char*, QColor> rows[] = {
        {"BACKGROUND_LAYER", kColors.background},
        {"BORDER_LAYER", kColors.border},
        {"BOX", kColors.box},
        {"PIN", kColors.pin},
        {"NET", kColors.net},
        {"LABEL", kColors.label},
        {"ATTRIBUTE", kColors.attribute},
        {"TEXT", kColors.text},
        {"CIRCLE", kColors.circle},
        {"GRID_LAYER", *kColors.grid},
    };
    for (const auto& [key, color] : rows)
        row("OV", key).setColor(ovsettings::toPacked(color));
    const QImage image = grab();
    EXPECT_EQ(image, sample(kColors, 1, image.size()).convertedTo(image.format()));
    EXPECT_NE(stored("BOX").at(2), "0x140000");
}

TEST_F(PreviewOfObjects, ShowsATableWhoseHeadersAndCellsHaveTheColorsOfTheirRows) {
    QTest::mouseClick(testsupport::controlByCaption(window_, "ICT"), Qt::LeftButton);
    const char* const keys[] = {"BLOCK",    "COMPONENT", "FUB",      "FPGA",        "SYMBOL",
                                "PIN",      "GROUP",     "NET",      "NETS",        "BUS",
                                "DIFFPAIR", "PORT",      "EDITCELL", "INVALIDCELL", "HIGHLIGHT_LAYER"};
    constexpr int kFirst = 0x100001, kFirstNet = kFirst + 7, kCell = kFirst + 12, kPaper = kFirst + 13,
                  kHighlight = kFirst + 14;
    int next = kFirst;
    for (const char* key : keys)
        row("ICT", key).setColor(next++);
    const QImage image = grab();
    const auto at = [&image](int x, int y) {
        return ovsettings::toPacked(image.pixelColor(x, y));
    };
    const auto expectTile = [&image](int x, int y, int paper) {
        EXPECT_GE(inkOf(image.copy(x, y, 16, 16), ovsettings::toQColor(paper)).width(), 8) << x << ", " << y;
    };
    for (int column = 0; column < 7; ++column) {
        // Beside the tile and the text; the left edge has a rule on it, the first header a frame in it.
        const int inset = column == 0 ? 2 : 1;
        EXPECT_EQ(at(72 + 21 * column + inset, 2 + inset), kFirst + column) << keys[column];
        EXPECT_EQ(at(72 + 21 * column + 20 - (inset - 1), 51 - (inset - 1)), kFirst + column);
        expectTile(73 + 21 * column, 5, kFirst + column);
    }
    for (int line = 0; line < 5; ++line) {
        EXPECT_EQ(at(3, 53 + 18 * line), kFirstNet + line);
        EXPECT_EQ(at(71, 69 + 18 * line), kFirstNet + line);
        expectTile(5, 53 + 18 * line, kFirstNet + line);
    }
    const char* const lattice[] = {"###.###", "###.###", "###.###", "###.###", "#.....#"};
    for (int line = 0; line < 5; ++line) {
        for (int column = 0; column < 7; ++column) {
            const int expected = lattice[line][column] == '#' ? kCell : kPaper;
            EXPECT_EQ(at(73 + 21 * column, 53 + 18 * line), expected) << column << ", " << line;
            EXPECT_EQ(at(92 + 21 * column, 69 + 18 * line), expected) << column << ", " << line;
        }
    }
    struct {
        int x, y, color;
    } const edges[] = {
        {0, 0, kPaper},       {1, 70, kPaper},      {70, 1, kPaper},     {2, 2, kRule},
        {2, 142, kRule},      {2, 143, kPaper},     {218, 2, kRule},     {219, 2, kRule},
        {219, 141, kRule},    {219, 142, kPaper},   {220, 70, kPaper},   {72, 2, kRule},
        {72, 141, kRule},     {93, 30, kRule},      {2, 52, kRule},      {218, 52, kRule},
        {218, 142, kRule},    {110, 143, kPaper},   {110, 70, kRule},    {30, 30, kPaper},
        {73, 30, kHighlight}, {92, 30, kHighlight}, {83, 3, kHighlight}, {83, 51, kHighlight},
        {74, 50, kFirst},     {94, 40, kFirst + 1},
    };
    for (const auto& edge : edges)
        EXPECT_EQ(at(edge.x, edge.y), edge.color) << edge.x << ", " << edge.y;
}

TEST_F(PreviewOfObjects, WritesDownwardsInColumnHeadersAndUprightElsewhere) {
    QTest::mouseClick(testsupport::controlByCaption(window_, "ICT"), Qt::LeftButton);
    struct {
        const char* key;
        QRect cell; ///< a character's cell is 11 pixels high
    } const rows[] = {
        {"COMPONENT", {99, 26, 12, 26}}, {"GROUP", {72 + 6 * 21 + 6, 26, 12, 26}},
        {"NET", {28, 56, 44, 11}},       {"PORT", {28, 56 + 4 * 18, 44, 11}},
        {"EDITCELL", {77, 56, 142, 83}},
    };
    for (const auto& row : rows) {
        const QRect ink = inkOfText(row.key);
        EXPECT_FALSE(ink.isEmpty()) << row.key;
        EXPECT_TRUE(row.cell.contains(ink))
            << row.key << " " << ink.x() << " " << ink.y() << " " << ink.width() << " " << ink.height();
        EXPECT_EQ(ink.height() > ink.width(), row.cell.height() > row.cell.width()) << row.key;
    }
}
