#include "dialog/pages/display/mappinggrid.h"

#include "tests/display/objectspage.h"

using ovsettings::GridCellKind;
using ovsettings::GridCellStyle;
using namespace testsupport;

namespace {

const std::string kRange = "Please enter a value between 1 and 10";

class MappingGrid : public ObjectsPage {};

} // namespace

TEST_F(MappingGrid, OpensTheColumnsThatEachKindOfRowHas) {
    load();
    openObjects();
    struct {
        const char *mode, *key, *columns; ///< from "Color" on, "-" for one that is closed
    } const rows[] = {
        {"OV", "ANNOTATION_LAYER", "C-----"}, {"OV", "ARC", "C-FL--"},        {"OV", "BUS", "C-FL-W"},
        {"OV", "HIGHLIGHT_LAYER", "C-FL--"},  {"OV", "LABEL", "-T--A-"},      {"OV", "TEXT", "-T--A-"},
        {"OV", "ATTRIBUTE", "C---A-"},        {"ICT", "COMPONENT", "CT----"}, {"ICT", "BLOCK", "CT----"},
    };
    for (const auto& row : rows) {
        std::string columns;
        const int number = grid(row.mode).rowOfKey(row.key)->row();
        for (int column = Row::kColorColumn; column <= Row::kColumns; ++column) {
            const GridCellStyle style = grid(row.mode).cellStyle(number, column);
            columns += style.readOnly ? '-' : "CTFLAW"[column - Row::kColorColumn];
            EXPECT_EQ(style.readOnly, style.interior.has_value()) << "closed cells are grey";
        }
        EXPECT_EQ(columns, row.columns) << row.key;
    }
    EXPECT_EQ(grid("OV").mappingRowCount(), 18);
    EXPECT_EQ(grid("ICT").mappingRowCount(), 15);
}

TEST_F(MappingGrid, StoresEachCellInItsFieldOfTheKeyAndReportsTheEditUntilThen) {
    load();
    openObjects();
    const std::function<void()> edits[] = {
        [this] { chooseColor("OV", "BUS", Row::kColorColumn, "#800000"); },
        [this] {
            choose("BUS", Row::kFillColumn, {Qt::Key_End, Qt::Key_Return});
        },
        [this] {
            choose("BUS", Row::kLineColumn, {Qt::Key_Down, Qt::Key_Return});
        },
        [this] { typeWidth("BUS", "7"); }, // and leaves it open
        [this] { chooseColor("OV", "TEXT", Row::kTextColumn, "#800000"); },
        [this] {
            choose("ATTRIBUTE", Row::kFontColumn, {Qt::Key_End, Qt::Key_Return});
        },
        [this] {
            choose("HIGHLIGHT_LAYER", Row::kLineColumn, {Qt::Key_End, Qt::Key_Return});
        },
        [this] {
            find<QAbstractButton>(window_, "ICT")->click();
            chooseColor("ICT", "BLOCK", Row::kTextColumn, "#800000");
        },
    };
    for (const auto& edit : edits) {
        EXPECT_FALSE(objects_->isModified()) << &edit - edits;
        edit();
        EXPECT_TRUE(objects_->isModified()) << &edit - edits;
        ASSERT_TRUE(objects_->isValid() && objects_->onOk());
    }
    EXPECT_FALSE(objects_->isModified());

    EXPECT_EQ(stored("BUS"), (Texts{"1", "1", "0x800000", "15", "1", "7"}));
    EXPECT_EQ(stored("TEXT"), (Texts{"1", "1", "0x800000", "0", "0", "1"}));
    EXPECT_EQ(stored("ATTRIBUTE"), (Texts{"1", "1", "0xffff00", "12", "12", "1"}))
        << "a font is written as fill and line";
    EXPECT_EQ(stored("HIGHLIGHT_LAYER"), (Texts{"0xff00ff", "1", "7"}));
    EXPECT_EQ(stored("ICTBLOCK"), (Texts{"0xfffbf0", "0x800000"}));
    EXPECT_EQ(stored("ICTCOMPONENT"), (Texts{"0xfffbf0", "0x000000"}));
}

TEST_F(MappingGrid, KeepsAStyleWithoutANameAndTakesAStrangeNameForTheFirst) {
    load(object("ARC", R"(<attribute name="FILL_STYLE">99</attribute>)") +
         object("BOX", R"(<attribute name="LINE_STYLE">3</attribute>)"));
    openObjects();
    EXPECT_EQ(cell("OV", "ARC", Row::kFillColumn), "");
    EXPECT_EQ(cell("OV", "BOX", Row::kLineColumn), "Phantom");
    grid().setCellText(grid().rowOfKey("BOX")->row(), Row::kLineColumn, QStringLiteral("Wavy"));
    objects_->onApply();
    EXPECT_EQ(stored("ARC").at(3), "99");
    EXPECT_EQ(stored("BOX").at(4), "0");
}

TEST_F(MappingGrid, AStoredMinusOneClosesNoColumn) {
    load(object("BUS",
                R"(<attribute name="FILL_STYLE">-1</attribute><attribute name="LINE_STYLE">-1</attribute>
                          <attribute name="LINE_THICKNESS">-1</attribute>)"));
    openObjects();
    ASSERT_TRUE(objects_->isValid() && objects_->onApply());
    EXPECT_EQ(stored("BUS"), (Texts{"1", "1", "0xffff00", "-1", "-1", "-1"}));
    const int row = grid().rowOfKey("BUS")->row();
    grid().setCellText(row, Row::kFillColumn, QStringLiteral("Solid"));
    grid().setCellText(row, Row::kLineColumn, QStringLiteral("Dash"));
    grid().setCellText(row, Row::kWidthColumn, QStringLiteral("3"));
    ASSERT_TRUE(objects_->isValid() && objects_->onApply());
    EXPECT_EQ(stored("BUS"), (Texts{"1", "1", "0xffff00", "1", "1", "3"}));
}

TEST_F(MappingGrid, RefusesAWidthOutOfRangeWhenTheCellIsLeft) {
    load();
    openObjects();
    for (const char* text : {"0", "11", "", "x", "1.5", "99999999999999999999"}) {
        typeWidth("LINE", text);
        for (int attempt = 0; attempt < 2; ++attempt) {
            EXPECT_EQ(
                messageDuring([&] { EXPECT_FALSE(attempt ? objects_->onLeave() : objects_->isValid()); }),
                kRange)
                << text;
        }
        EXPECT_TRUE(grid().isEditing()) << "the edit stays open";
        QTest::keyClick(openEditor(), Qt::Key_Escape);
    }
    typeWidth("LINE", "10");
    EXPECT_TRUE(objects_->isValid());
    EXPECT_EQ(cell("OV", "LINE", Row::kWidthColumn), "10");
}

TEST_F(MappingGrid, AsksEveryRowAndShowsWhereAStoredWidthIsWrong) {
    const std::string wide = R"(<attribute name="LINE_THICKNESS">11</attribute>)";
    load(object("BUS", wide) + object("LINE", wide));
    openObjects();
    auto& ict = *find<QAbstractButton>(window_, "ICT");
    ict.click();
    ict.setFocus();
    Texts boxes(2);
    whenModal([&](QWidget& first) {
        boxes[0] = dynamic_cast<QMessageBox&>(first).text().toStdString();
        answerNextMessageBox("OK", &boxes[1]);
        first.close();
    });
    EXPECT_FALSE(objects_->isValid());
    EXPECT_EQ(boxes, (Texts{kRange, kRange}));
    EXPECT_TRUE(grid().isVisible()) << "the grid with the fault is on show";
    EXPECT_EQ(window_.focusWidget(), &grid());
}

TEST_F(MappingGrid, LockedFieldsShowTheirValueAndKeepIt) {
    load(object("BUS", R"(<attribute name="COLOR" locked="yes">0x123456</attribute>
                          <attribute name="FILL_STYLE" locked="yes">2</attribute>)") +
         R"(<section path="Orvane/ICTOBJECTS"><group type="object" name="ICTBUS">
            <attribute name="COLOR" locked="yes">0x00ff00</attribute></group></section>)");
    openObjects();
    const int bus = grid().rowOfKey("BUS")->row();
    for (const int column : {Row::kColorColumn, Row::kFillColumn}) {
        const GridCellStyle style = grid().cellStyle(bus, column);
        EXPECT_TRUE(style.readOnly && style.greyed && style.enabled && style.interior);
        EXPECT_EQ(style.toolTip.toStdString(), "Locked by " + installation_.site().string());
        goTo("OV", "BUS", column);
        QTest::keyClick(&grid(), Qt::Key_Space);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    EXPECT_EQ(cell("OV", "BUS", Row::kColorColumn), std::to_string(0x563412));
    EXPECT_EQ(cell("OV", "BUS", Row::kFillColumn), "Diagdn1");
    EXPECT_FALSE(grid().cellStyle(bus, Row::kLineColumn).readOnly);
    for (const char* mode : {"OV", "ICT"})
        grid(mode).rowOfKey("BUS")->applySchema("0xabcdef", "0xabcdef");
    objects_->onApply();
    EXPECT_EQ(stored("BUS"), (Texts{"1", "1", "0x123456", "2", "0", "10"}));
    EXPECT_EQ(stored("ICTBUS"), (Texts{"0x00ff00", "0xabcdef"}));
}

TEST_F(MappingGrid, CellsOfFieldsThatAKeyDoesNotHaveAreClosed) {
    for (const Texts& fields : {Texts{}, Texts{"1"}, Texts{"1", "1", "0x0000ff", "2"}}) {
        load();
        for (const char* key : {"BUS", "LABEL", "HIGHLIGHT_LAYER", "ICTBUS"})
            Orv::setValues(appConfig_, key, fields);
        openObjects();
        EXPECT_EQ(cell("OV", "BUS", Row::kWidthColumn), "");
        EXPECT_EQ(grid().rowOfKey("BUS")->getWidth(), -1);
        for (const char* mode : {"OV", "ICT"})
            grid(mode).rowOfKey("BUS")->applySchema("0x0000ff", "0x0000ff");
        EXPECT_TRUE(objects_->isValid() && objects_->onApply());
        EXPECT_EQ(stored("BUS"), fields);
        EXPECT_EQ(stored("LABEL"), fields);
        find<QAbstractButton>(window_, "ICT")->click();
        EXPECT_EQ(previewAt(3, 53 + 2 * 18), fields.empty() ? Qt::black : Qt::blue) << "the bus";
    }
}
