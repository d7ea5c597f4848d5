#include "dialog/pages/editor/newsheetdialog.h"

#include "orv/projectconfiguration.h"
#include "store/unitglue.h"
#include "suite/bordersymbolsfile.h"
#include "suite/projectdatafile.h"
#include "tests/editor/editorfixture.h"

#include <limits>

using Orv::Metrics::Unit;
using ovsettings::CNewSheetDialog;
using namespace testsupport;

namespace {

using Texts = std::vector<std::string>;

constexpr const char* kAutomatic = "Automatically add border to new schematic sheets.";
constexpr const char* kConfigurable = "Enable user-configurable border symbols.";
constexpr const char* kSheet1 = "Use sheet 1 border for underlying schematics.";

class NewSheetsPage : public EditorPages {
protected:
    /// Opens the page in a project with these border symbols.
    CNewSheetDialog& openWith(const Texts& borders) {
        borders_.GetTable().clear();
        for (const std::string& border : borders)
            borders_.GetTable()[border] = "borders:ANY";
        project_.borderSymbols = &borders_;
        return open<CNewSheetDialog>(&project_);
    }

    QComboBox& size() { return *find<QComboBox>(window_, "Size"); }
    QLineEdit& width() { return *find<QLineEdit>(window_, "Width"); }
    QLineEdit& height() { return *find<QLineEdit>(window_, "Height"); }
    QCheckBox& box(const char* caption) { return *find<QCheckBox>(window_, caption); }
    QRadioButton& radio(const char* caption) { return *find<QRadioButton>(window_, caption); }
    void press(QAbstractButton& button) { QTest::keyClick(&button, Qt::Key_Space); }

    /// "A: 11.00 x 8.50 Landscape".
    std::string shown() {
        return (size().currentText() + QStringLiteral(": ") + width().text() + QStringLiteral(" x ") +
                height().text() +
                (radio("Portrait").isChecked() ? QStringLiteral(" Portrait") : QStringLiteral(" Landscape")))
            .toStdString();
    }
    Texts listed() {
        const Texts all = textsOf(size());
        return {all.begin() + 10, all.end()};
    }
    Texts storedSides() const {
        Texts sides;
        Orv::getValues(appConfig_, "Z_SIZE_HR", sides);
        return sides;
    }

    NProjectTools::CBorderSymbolsFile borders_;
    Orv::CProjectConfiguration project_;
};

} // namespace

TEST_F(NewSheetsPage, OffersEachBorderWhoseNameHoldsASizeOnce) {
    load({});
    const std::pair<Texts, Texts> rows[] = {
        {{}, {"Custom"}},
        {{"A4SHEETL", "34x22", "SHEET", "34X22SHEET"}, {"Custom"}},
        {{"34x22SHEET", "34x22SHEET1"}, {"34x22SHEET", "Custom"}},
        {{"34x22SHEET1"}, {"34x22SHEET", "Custom"}},
        {{"34x22SHEET1A", "34x22SHEET1B"}, {"34x22SHEET1", "Custom"}},
        {{"34x22SHEETA", "34x22SHEETB"}, {"34x22SHEETA", "34x22SHEETB", "Custom"}},
    };
    for (const auto& [names, expected] : rows) {
        openWith(names);
        EXPECT_EQ(listed(), expected);
    }
    NProjectTools::CProjectDataFile anotherClass;
    openWith({"34x22SHEET"});
    project_.borderSymbols = &anotherClass;
    page_->onEnter();
    EXPECT_EQ(listed(), Texts{"Custom"});
    page_->setProjectConfiguration(nullptr);
    page_->onEnter();
    EXPECT_EQ(listed(), Texts{"Custom"});
}

TEST_F(NewSheetsPage, ReadsTheSizeInInchesOutOfABordersNameHoweverOddItIs) {
    const struct {
        const char *name, *shown;
        Texts stored; ///< none where the sides are refused
        const char* unit = "mm";
    } rows[] = {
        {"34x22SHEET", "864.00 x 559.00", {"86360000", "55880000"}},
        // To whole millimetres in every unit but inches, whatever it shows.
        {"34x22SHEET", "86.400 x 55.900", {"86360000", "55880000"}, "cm"},
        {"34x22SHEET", "34016 x 22008", {"86360000", "55880000"}, "th"},
        {"34x22SHEET", "34.00 x 22.00", {"86360000", "55880000"}, "in"},
        {"8.9x 11cSHEET", "203.00 x 279.00", {"20320000", "27940000"}},
        {"1e30x1SHEET", "25.00 x 25.00", {"2540000", "2540000"}},
        {"1x-1SHEET1", "25.00 x -25.00", {}},
        {"xSHEET", "0.00 x 0.00", {}},
        {"SHEETx", "0.00 x 0.00", {}},
        {"7SHEETx5", "178.00 x 0.00", {}},
        {"99999999999x1SHEET1", "2539999999975.00 x 25.00", {}},
        {"9999999999999999999x-9999999999999999999SHEET", "92233720368547.00 x -92233720368547.00", {}},
    };
    for (const auto& row : rows) {
        load({{"UNIT", row.unit}, {"SHEETSIZE", "1"}});
        CNewSheetDialog& page = openWith({row.name});
        size().setCurrentIndex(10);
        EXPECT_EQ((width().text() + " x " + height().text()).toStdString(), row.shown) << row.name;
        if (!row.stored.empty()) {
            EXPECT_TRUE(page.onApply());
            EXPECT_EQ(storedSides(), row.stored) << row.name;
            continue;
        }
        answerNextMessageBox("OK");
        EXPECT_FALSE(page.onApply()) << row.name;
        EXPECT_EQ(stored("SHEETSIZE"), "1");
    }
}

TEST_F(NewSheetsPage, FindsABorderAgainByTheTextOfItsSides) {
    load({});
    CNewSheetDialog& page = openWith({"22x34SHEET", "34x22SHEET"});
    size().setCurrentIndex(11);
    EXPECT_EQ(shown(), "34x22SHEET: 34.00 x 22.00 Landscape");
    EXPECT_EQ(keysWrittenBy(page),
              (Texts{"Z_SIZE_HR", "SHEETSIZE", "ORIENTATION", "DEFSHEET", "DEFMETHOD", "DEF_USESHEET1"}));
    EXPECT_EQ(stored("SHEETSIZE"), "10");
    EXPECT_EQ(storedSides(), (Texts{"86360000", "55880000"}));

    openWith({"11x17SHEET", "22x34SHEET", "34x22SHEET"});
    EXPECT_EQ(shown(), "34x22SHEET: 34.00 x 22.00 Landscape");
    openWith({"22x34SHEET"});
    EXPECT_EQ(shown(), "Custom: 34.00 x 22.00 Landscape") << "in this order of the sides";
}

TEST_F(NewSheetsPage, ShowsTheStoredSizeInTheStoredOrientation) {
    const struct {
        const char *size, *orientation, *shown, *storedAgain;
    } rows[] = {
        {"0", "0", "A: 11.00 x 8.50 Landscape", "0"},      {"0", "1", "A: 8.50 x 11.00 Portrait", "0"},
        {"0", "2", "A: 11.00 x 8.50 Landscape", "0"},      {"5", "1", "A4: 8.27 x 11.69 Portrait", "5"},
        {"10", "1", "Custom: 4.00 x 2.00 Portrait", "10"}, {"11", "0", "Custom: 4.00 x 2.00 Landscape", "10"},
        {"12", "0", ": 4.00 x 2.00 Landscape", "12"},      {"-5", "0", ": 4.00 x 2.00 Landscape", "-5"},
        {"1e+30", "0", "B: 17.00 x 11.00 Landscape", "1"},
    };
    for (const auto& row : rows) {
        load({{"SHEETSIZE", row.size}, {"ORIENTATION", row.orientation}});
        Orv::setValues(appConfig_, "Z_SIZE_HR", {"10160000", "5080000"});
        CNewSheetDialog& page = openWith({"1x1SHEET"});
        EXPECT_EQ(shown(), row.shown) << row.size;
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("SHEETSIZE"), row.storedAgain) << row.size;
    }
}

TEST_F(NewSheetsPage, TypedSidesSelectTheirSizeAndOrientation) {
    load({{"SHEETSIZE", "1"}});
    CNewSheetDialog& page = openWith({"34x22SHEET", "40x30SHEET"});
    const struct {
        const char *width, *height, *shown;
    } rows[] = {
        {"11", "8.5", "A: 11 x 8.5 Landscape"},
        {"8.5", "11", "A: 8.5 x 11 Portrait"},
        {"34", "22", "D: 34 x 22 Landscape"},
        {"30", "40", "40x30SHEET: 30 x 40 Portrait"},
        {"5", "5", "Custom: 5 x 5 Landscape"},
        {"11.69", "8.27", "Custom: 11.69 x 8.27 Landscape"},
        {"1e30", "-1", "Custom: 1e30 x -1 Landscape"},
        {"8,5", "nonsense", "Custom: 8,5 x nonsense Landscape"},
    };
    for (const auto& row : rows) {
        type(width(), row.width);
        type(height(), row.height);
        EXPECT_EQ(shown(), row.shown);
    }
    type(width(), "3");
    type(height(), "5");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedSides(), (Texts{"7620000", "12700000"}));
    EXPECT_EQ(stored("ORIENTATION"), "1");
}

TEST_F(NewSheetsPage, ChoosingAnOrientationTurnsTheSides) {
    load({{"SHEETSIZE", "0"}});
    CNewSheetDialog& page = openWith({});
    press(radio("Portrait"));
    EXPECT_EQ(shown(), "A: 8.50 x 11.00 Portrait");
    QTest::keyClick(&size(), Qt::Key_Down);
    EXPECT_EQ(shown(), "B: 11.00 x 17.00 Portrait");
    press(radio("Landscape"));
    EXPECT_EQ(shown(), "B: 17.00 x 11.00 Landscape");

    type(width(), "7");
    press(radio("Landscape"));
    EXPECT_EQ(shown(), "Custom: 11.00 x 7.00 Landscape") << "typed upright, and laid down";
    press(radio("Portrait"));
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedSides(), (Texts{"17780000", "27940000"}));
}

TEST_F(NewSheetsPage, RefusesSidesBelowOneAndAboveAHundredMillionOnTheirText) {
    load({{"SHEETSIZE", "0"}});
    CNewSheetDialog& page = openWith({});
    const struct {
        const char *width, *height, *message;
    } rows[] = {
        {"0.99", "0.99", "Incorrect sheet height"},
        {"", "5", "Incorrect sheet width"},
        {"5", "-3", "Incorrect sheet height"},
        {"100000001", "5", "Incorrect sheet width"},
        {"5", "9999999999999", "Incorrect sheet height"},
        {"text", "5", "Incorrect sheet width"},
    };
    for (const auto& row : rows) {
        type(width(), row.width);
        type(height(), row.height);
        for (const auto& check :
             {&CNewSheetDialog::isValid, &CNewSheetDialog::onLeave, &CNewSheetDialog::onApply})
            EXPECT_EQ(messageDuring([&] { EXPECT_FALSE((page.*check)()); }), row.message);
        EXPECT_EQ(stored("SHEETSIZE"), "0");
    }
    type(width(), "100000000");
    type(height(), "1e30");
    EXPECT_TRUE(page.onApply()) << "the first digits count";
    EXPECT_EQ(storedSides(), (Texts{"254000000000000", std::to_string(std::numeric_limits<long>::max())}));
}

TEST_F(NewSheetsPage, KeepsWhatIsNotStoredYetWhenItIsEnteredAgain) {
    load({{"SHEETSIZE", "0"}});
    CNewSheetDialog& page = openWith({"34x22SHEET"});
    Orv::setValue(appConfig_, "SHEETSIZE", "1");
    page.onEnter();
    EXPECT_EQ(shown(), "B: 17.00 x 11.00 Landscape") << "nothing was changed on the page";

    size().setCurrentIndex(10);
    press(radio("Portrait"));
    press(box(kAutomatic));
    borders_.GetTable()["20x10SHEET"];
    Orv::setConfiguredUnit(appConfig_, Unit::millimetre);
    page.onEnter();
    EXPECT_EQ(shown(), "34x22SHEET: 559.00 x 864.00 Portrait");
    EXPECT_TRUE(box(kAutomatic).isChecked() && page.isModified());
    EXPECT_NE(controlByCaption(window_, "mm"), nullptr);

    // An eighth of an inch does not become twelve hundredths by having been looked at.
    type(width(), "3.175");
    for (const Unit unit : {Unit::inch, Unit::millimetre}) {
        Orv::setConfiguredUnit(appConfig_, unit);
        page.onEnter();
    }
    EXPECT_EQ(shown(), "Custom: 3.17 x 864.00 Portrait");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedSides(), (Texts{"317500", "86400000"}));
    EXPECT_FALSE(page.isModified());

    Orv::setValue(appConfig_, "SHEETSIZE", "99");
    page.onEnter();
    press(box(kAutomatic));
    page.onEnter();
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("SHEETSIZE"), "99") << "what names no size becomes none by being looked at";
}

TEST_F(NewSheetsPage, TheBorderOfTheFirstSheetFollowsTheConfigurableBorders) {
    load({{"DEFMETHOD", "0"}, {"DEF_USESHEET1", "1"}, {"DEFSHEET", "1"}});
    CNewSheetDialog& page = openWith({});
    EXPECT_TRUE(box(kAutomatic).isChecked());
    EXPECT_TRUE(box(kSheet1).isChecked() && !box(kSheet1).isEnabled());
    press(box(kConfigurable));
    EXPECT_TRUE(box(kSheet1).isEnabled());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("DEFMETHOD") + stored("DEF_USESHEET1"), "11");
    press(box(kConfigurable));
    EXPECT_FALSE(box(kSheet1).isEnabled());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("DEFMETHOD") + stored("DEF_USESHEET1"), "00");
}

TEST_F(NewSheetsPage, ALockDisablesAllControlsThatItConcerns) {
    const struct {
        Entry locked;
        Texts disabled;
    } rows[] = {
        {{"SHEETSIZE", "0", true}, {"Size", "Width", "Height"}},
        {{"ORIENTATION", "1", true}, {"Portrait", "Landscape"}},
        {{"DEFMETHOD", "1", true}, {kConfigurable, kSheet1}},
        {{"DEFSHEET", "1", true}, {kAutomatic, kSheet1}},
        {{"DEF_USESHEET1", "1", true}, {kSheet1}},
    };
    for (const auto& row : rows) {
        load({{row.locked}});
        if (row.locked.key != "DEFMETHOD")
            Orv::setValue(appConfig_, "DEFMETHOD", "1");
        openWith({});
        Texts disabled;
        for (const char* caption :
             {"Size", "Width", "Height", "Portrait", "Landscape", kAutomatic, kConfigurable, kSheet1}) {
            const QWidget* control = controlByCaption(window_, caption);
            if (control->isEnabled())
                continue;
            disabled.push_back(caption);
            EXPECT_EQ(control->toolTip().toStdString(), "Locked by " + siteDirectory());
        }
        EXPECT_EQ(disabled, row.disabled) << row.locked.key;
        if (row.locked.key == "DEFSHEET") {
            press(box(kConfigurable));
            press(box(kConfigurable));
            EXPECT_FALSE(box(kSheet1).isEnabled()) << "turned on again";
        }
    }

    loadSections(R"(<section path="Orvane/SIZES"><group type="size" name="Z_SIZE_HR">)"
                 R"(<attribute name="HEIGHT" locked="yes"/></group></section>)");
    openWith({});
    EXPECT_TRUE(size().isEnabled());
    EXPECT_FALSE(width().isEnabled() || height().isEnabled()) << "one field of the size is enough";
}
