#include "orv/printingaccess.h"

#include "tests/store/storetest.h"

#include <limits>
#include <map>

using Orv::CPrintingAccess;
using Orv::ObjectAttributes;

class PrintingAccess : public StoreTest {
protected:
    PrintingAccess() { EXPECT_TRUE(store.load()); }

    void print(const char* forceBlack) {
        access.setFlag("PRINTING", true);
        access.setString("PRINTFORCEBLACK", forceBlack);
    }
    template <typename Key>
    int printedColor(Key key) const {
        ObjectAttributes attributes;
        access.getPrintObject(key, attributes);
        return attributes.color;
    }
    int objectColor(int number) const {
        ObjectAttributes attributes;
        access.getObject(number, attributes);
        return attributes.color;
    }

    CPrintingAccess access{store};
};

TEST_F(PrintingAccess, ReadsAndWritesEachTypeAndAnswersWhatThereIsNot) {
    struct Row {
        const char* key;
        float number;
        int integer;
        bool flag;
        const char* text;
    };
    const Row rows[] = {
        {"GRID_HR", 254000.0F, 254000, true, "254000"},
        {"BELL", 1, 1, true, "1"},
        {"PRINTING", 0, 0, false, "0"},
        {"UNIT", 0, 0, true, "in"},
        {"SCALEFACTOR", 1, 1, true, "1.0"},
        {"MRU_PROJECTS", 0, 0, false, ""},
        {"NO_SUCH_KEY", 0, 0, false, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        EXPECT_EQ(access.getFloat(row.key), row.number);
        EXPECT_EQ(access.getInt(row.key), row.integer);
        EXPECT_EQ(access.getFlag(row.key), row.flag);
        EXPECT_EQ(access.getString(row.key), row.text);
        EXPECT_FALSE(access.isReadOnly(row.key));
    }
    EXPECT_TRUE(access.setFloat("GRID_HR", 0.5F) && access.setInt("SHEETSIZE", 6) &&
                access.setFlag("BELL", false) && access.setString("LANGUAGE", "Japanese"));
    EXPECT_EQ(value("GRID_HR") + value("SHEETSIZE") + value("BELL") + value("LANGUAGE"), "0.560Japanese");
    EXPECT_FALSE(access.setInt("NO_SUCH_KEY", 1));
    EXPECT_FALSE(access.setFloat("GRID_HR", std::numeric_limits<float>::quiet_NaN()));
}

TEST_F(PrintingAccess, ReadsLocksAndASizeWithItsFractionsWhateverTheUnit) {
    writeLevel(installation.site(),
               object("NET", attribute("COLOR", "0x00c000", true)) + setting("UNIT", "mm", true));
    ASSERT_TRUE(store.load());
    EXPECT_EQ(access.getReadOnlyFlags("NET"), (std::vector<std::uint8_t>{0, 0, 1, 0, 0, 0}));
    EXPECT_FALSE(access.isReadOnly("NET"));
    EXPECT_TRUE(access.isReadOnly("UNIT"));

    double width = 1;
    double height = 1;
    constexpr int kA0 = 9;
    EXPECT_EQ(access.sheetKey(kA0), "A0_SIZE_HR");
    EXPECT_TRUE(access.getSize(kA0, width, height));
    EXPECT_EQ(width, 118900000.96);
    EXPECT_EQ(height, 84099999.44);
    EXPECT_TRUE(access.setSize("Z_SIZE_HR", height, 1e-7));
    EXPECT_EQ(values("Z_SIZE_HR"), (Texts{"84099999.44", "0.0000001"}));
    EXPECT_FALSE(access.setSize("Z_SIZE_HR", 1e308 * 10, 1));
    EXPECT_FALSE(access.getSize(11, width, height));
    EXPECT_EQ(width, 0.0);
}

TEST_F(PrintingAccess, TheStylesShareAWordWithWhatTheHostKeepsThere) {
    ObjectAttributes wire;
    wire.otherBits = 0x123456;
    ASSERT_TRUE(store.setGraphics("WIRE", 1, 0, 0x030201, 37, 10, 7));
    ASSERT_TRUE(access.getObject(10, wire));
    EXPECT_EQ(wire.name, "WIRE");
    EXPECT_EQ(wire.color, 0x030201);
    EXPECT_EQ(wire.fillStyle, 5U);
    EXPECT_EQ(wire.lineStyle, 2U);
    EXPECT_EQ(wire.thickness, 7);
    EXPECT_EQ(wire.otherBits, 0x123456U);

    wire.color = 0x0000ff;
    ASSERT_TRUE(access.setObject(10, wire));
    EXPECT_EQ(values("WIRE"), (Texts{"1", "0", "0xff0000", "5", "2", "7"}));
    ASSERT_TRUE(access.setLayer(1041, {.color = 0xff0000, .fillStyle = 3, .lineStyle = 1}));
    EXPECT_EQ(values("HIGHLIGHT_LAYER"), (Texts{"0x0000ff", "3", "1"}));
    Orv::LayerAttributes layer;
    EXPECT_TRUE(access.getLayer(16, layer));
    EXPECT_EQ(layer.color, 0xff0000);
    for (const int unknown : {-1, 17, 1035, 1042}) {
        EXPECT_FALSE(access.getObject(unknown, wire));
        EXPECT_FALSE(access.getPrintObject(unknown, wire));
        EXPECT_FALSE(access.setObject(unknown, wire));
        EXPECT_FALSE(access.setLayer(unknown, layer));
    }
}

TEST_F(PrintingAccess, PrintsInTheColorOfTheSlot) {
    constexpr int kRed = 0x0000ff;
    constexpr int kGreenOnScreen = 0x00ff00;
    EXPECT_EQ(printedColor("NET"), kGreenOnScreen) << "nothing is printed yet";
    store.setNumber("PRINTING", 2.0F);
    EXPECT_EQ(printedColor("NET"), kGreenOnScreen) << "only exactly 1 is printing";

    print("1");
    for (const char* key : {"LINE", "NET", "BACKGROUND_LAYER", "SELECTION"})
        EXPECT_EQ(printedColor(key), 0) << key;
    EXPECT_EQ(printedColor("BACKGROUND"), 0xffffff);
    ObjectAttributes background;
    EXPECT_FALSE(access.getPrintObject("BACKGROUND", background)) << "no key of the configuration";

    // The default list has its twelfth and thirteenth colours in one field, so later ones are a place early.
    print("0");
    EXPECT_EQ(printedColor("SELECTION"), 0xffffff);
    EXPECT_EQ(printedColor("BACKGROUND"), 0);
    EXPECT_EQ(printedColor("BORDER"), 0) << "beyond the end of the list";

    ASSERT_TRUE(store.setProperty([] {
        Property colors("PRINTINGCOLORS");
        colors.values = {"0xff0000", "16711680", "0x00ff00,0x1", "word", "010", "0x0000ff", "0x123456"};
        return colors;
    }()));
    const std::map<int, int> printed{{0, kRed}, {1, kRed},     {2, 0x00ff00},
                                     {3, 0},    {4, 0x080000}, {5, 0xff0000}};
    for (const auto& [number, color] : printed)
        EXPECT_EQ(printedColor(number), color) << number;
    EXPECT_EQ(printedColor("PROPERTY"), 0x563412);
    for (const char* other : {"ATTRIBUTE", "VALUE_LAYER", "BUS"})
        EXPECT_EQ(printedColor(other), kRed) << other << " has no slot of its own";
}

TEST_F(PrintingAccess, HeldObjectsStayUntilTheyAreReleased) {
    print("1");
    access.holdObjects(true);
    access.setFlag("PRINTING", false);
    access.holdObjects(true);
    EXPECT_EQ(objectColor(5), 0) << "as it was printed when the holding began";
    EXPECT_EQ(objectColor(11), 0);
    ObjectAttributes line;
    line.otherBits = 0x123456;
    EXPECT_TRUE(access.getObject(0, line));
    EXPECT_EQ(line.otherBits, 0x123456U) << "the host's";
    line.color = 0x010203;
    access.setObject(0, line);
    EXPECT_EQ(objectColor(0), 0x010203);
    access.holdObjects(false);
    EXPECT_EQ(objectColor(5), 0);
    access.holdObjects(false);
    EXPECT_EQ(objectColor(5), 0x00ff00);

    access.holdObjects(false);
    EXPECT_EQ(objectColor(5), 0) << "at -1, what was held last";
    access.holdObjects(true);
    EXPECT_EQ(objectColor(5), 0x00ff00);
}

TEST_F(PrintingAccess, DefaultsComeFromAFileThatNamesAllObjects) {
    const std::string most = "# NET 1 1 1\nNET 4 3 2\r\nCOMPONENT 1\nLABEL\nPIN 5,6\nBOX 0 33 9\nLINE 1 2 3\n"
                             "CIRCLE 7 0 0\nARC 2147483648 1 1\nother\n";
    const auto path = (installation.user() / "objects.txt").string();
    EXPECT_FALSE(access.loadDefaults(path));
    testsupport::writeFile(path, most + "ATTRIBUTE 14 0 0");
    EXPECT_FALSE(access.loadDefaults(path)) << "without TEXT";
    EXPECT_FALSE(access.isDefaultsChanged());
    EXPECT_TRUE(access.loadDefaults("")) << "the file that was loaded last, before the first";

    testsupport::writeFile(path, most + "ATTRIBUTETEXT 9 1 1\nNET 9 9 9\n");
    ASSERT_TRUE(access.loadDefaults(path));
    EXPECT_TRUE(access.isDefaultsChanged());
    const CPrintingAccess::ObjectDefaults expected{
        {"NET", {4, 0x43}},  {"COMPONENT", {1, 0}},  {"LABEL", {15, 0}}, {"PIN", {5, 0}},
        {"BOX", {0, 0x21}},  {"LINE", {1, 0x62}},    {"CIRCLE", {7, 0}}, {"ARC", {2, 0}},
        {"TEXT", {9, 0x21}}, {"ATTRIBUTE", {14, 0}},
    };
    EXPECT_EQ(access.objectDefaults(), expected);
    std::filesystem::remove(path);
    EXPECT_TRUE(access.loadDefaults(path)) << "it is not read again";
}
