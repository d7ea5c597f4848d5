#include "dialog/pages/advanced/generaldialog.h"

#include "dialog/pages/advanced/generalgrid.h"
#include "store/unitglue.h"
#include "tests/editor/editorfixture.h"

#include <algorithm>
#include <map>
#include <sstream>

using Orv::Metrics::Unit;
using ovsettings::CGeneralDialog;
using ovsettings::CGeneralGrid;
using ovsettings::GridCellKind;

namespace {

class AdvancedPage : public EditorPages {
protected:
    CGeneralDialog& openPage() {
        auto& page = open<CGeneralDialog>();
        page.resize(600, 300);
        window_.resize(600, 300);
        testsupport::activate(window_);
        return page;
    }

    CGeneralGrid& grid() { return *window_.findChild<CGeneralGrid*>(); }

    int rowOf(const std::string& caption) {
        for (int row = 1; row <= grid().rowCount(); ++row) {
            if (grid().cellText(row, 1).toStdString() == caption)
                return row;
        }
        ADD_FAILURE() << "no row " << caption;
        return 0;
    }

    std::string shown(const std::string& caption) { return grid().cellText(rowOf(caption), 2).toStdString(); }

    /// Where keys go. A box or list that has just closed leaves the activation on its way back, so the
    /// application may know of no focus.
    QWidget* focus() { return window_.focusWidget(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(focus(), key, modifiers);
    }

    void goTo(const std::string& caption) {
        grid().setFocus();
        grid().setCurrentCell(rowOf(caption), 2);
    }

    void typeInto(const std::string& caption, const char* text) {
        goTo(caption);
        press(Qt::Key_F2);
        QTest::keyClicks(focus(), QLatin1String(text));
    }

    void enter(const std::string& caption, const char* text) {
        typeInto(caption, text);
        press(Qt::Key_Return);
    }

    void choose(const std::string& caption, const char* choice) {
        goTo(caption);
        press(Qt::Key_Down, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        auto* list = QApplication::activePopupWidget()->findChild<QAbstractItemView*>();
        const auto found =
            list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, QLatin1String(choice));
        ASSERT_FALSE(found.isEmpty()) << choice;
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < found.front().row(); ++step)
            QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        QApplication::processEvents();
    }
};

} // namespace

TEST_F(AdvancedPage, ShowsTheDefaultsAndAppliesThemUnchanged) {
    load({});
    CGeneralDialog& page = openPage();
    EXPECT_EQ(shown("Crosshair Cursor"), "None");
    EXPECT_EQ(shown("Pintype Arrows"), "None");
    EXPECT_EQ(shown("Language"), "Default");
    EXPECT_EQ(shown("Box Size [in]"), "0.05");
    std::map<std::string, std::string> before;
    for (const std::string& key : appConfig_.keys())
        before[key] = stored(key);
    EXPECT_TRUE(page.onApply());
    for (const auto& [key, value] : before)
        EXPECT_EQ(stored(key), value) << key;
}

TEST_F(AdvancedPage, EachRowHasItsCaptionAndWritesItsKey) {
    load({});
    CGeneralDialog& page = openPage();
    std::istringstream sheet(testsupport::readFile(OV_SHEET));
    std::vector<std::string> keys;
    int row = 0;
    for (std::string caption, key; std::getline(std::getline(sheet, key, ' ') >> std::ws, caption);) {
        ASSERT_EQ(grid().cellText(++row, 1).toStdString(), caption);
        keys.push_back(key);
        if (key == "PINTYPE_ARROWS")
            keys.push_back("EURO_ARROWS");
        const std::string before = stored(key);
        goTo(caption);
        if (caption.ends_with("[in]"))
            enter(caption, "0.33");
        else if (grid().cellStyle(row, 2).kind == GridCellKind::checkBox)
            press(Qt::Key_Space);
        else
            choose(caption, grid().cellStyle(row, 2).choices.back().toLatin1());
        ASSERT_TRUE(page.onApply());
        EXPECT_NE(stored(key), before) << caption;
        EXPECT_FALSE(page.isModified()) << "the page does not report itself";
    }
    EXPECT_EQ(grid().rowCount(), row);
    EXPECT_EQ(row, 25);
    EXPECT_EQ(keysWrittenBy(page), keys);
}

TEST_F(AdvancedPage, StoresWhatTheUserSets) {
    load({});
    testsupport::writeFile(installation_.user() / "orvane.xml", "<configuration/>");
    CGeneralDialog& page = openPage();
    goTo("Auto Pan");
    press(Qt::Key_Space);
    choose("Pintype Arrows", "Half Size");
    typeInto("Selection Distance [in]", "0.25");
    EXPECT_TRUE(page.isValid()) << "ends the edit";
    EXPECT_FALSE(grid().isEditing());
    ASSERT_TRUE(page.onOk());
    ASSERT_TRUE(appConfig_.save());

    Orv::iAppConfiguration reread;
    ASSERT_TRUE(reread.load());
    EXPECT_EQ(reread.getNumber("AUTOPAN"), 0);
    EXPECT_EQ(reread.getNumber("PINTYPE_ARROWS"), 1);
    EXPECT_EQ(reread.getNumber("EURO_ARROWS"), 1);
    EXPECT_EQ(reread.getNumber("SDISTANCE_HR"), 635000);
}

TEST_F(AdvancedPage, ShowsAChoiceForEachStoredValueAndAppliesWhatItShows) {
    struct {
        const char* caption;
        std::vector<Entry> stored;
        const char* shown;
        std::vector<std::string> applied;
    } const rows[] = {
        {"Crosshair Cursor", {{"CROSSCURSOR", "1"}}, "Small", {"1"}},
        // Shown in another spelling than the choice, and so not written.
        {"Crosshair Cursor", {{"CROSSCURSOR", "2"}}, "Full Extant", {"2"}},
        {"Crosshair Cursor", {{"CROSSCURSOR", "5"}}, "", {"5"}},
        {"Language", {{"LANGUAGE", "ENG"}}, "English", {"ENG"}},
        {"Language", {{"LANGUAGE", "JPN"}}, "Japanese", {"JPN"}},
        {"Language", {{"LANGUAGE", "eng"}}, "Japanese", {"JPN"}},
        {"Language", {{"LANGUAGE", "Default\nENG"}}, "Japanese", {"JPN"}},
        {"Pintype Arrows", {{"PINTYPE_ARROWS", "0"}, {"EURO_ARROWS", "1"}}, "None", {"0", "0"}},
        {"Pintype Arrows", {{"PINTYPE_ARROWS", "1"}, {"EURO_ARROWS", "0"}}, "Full Size", {"1", "0"}},
        {"Pintype Arrows", {{"PINTYPE_ARROWS", "7"}, {"EURO_ARROWS", "-1"}}, "Half Size", {"1", "1"}},
    };
    for (const auto& row : rows) {
        load(row.stored);
        CGeneralDialog& page = openPage();
        SCOPED_TRACE(row.stored.front().value);
        EXPECT_EQ(shown(row.caption), row.shown);
        ASSERT_TRUE(page.onApply());
        for (std::size_t at = 0; at < row.stored.size(); ++at)
            EXPECT_EQ(stored(row.stored[at].key), row.applied[at]);
    }
}

TEST_F(AdvancedPage, WritesTheValuesOfAChoice) {
    struct {
        const char *caption, *choice;
        std::vector<std::pair<std::string, std::string>> written;
    } const rows[] = {
        {"Crosshair Cursor", "None", {{"CROSSCURSOR", "0"}}},
        {"Crosshair Cursor", "Full Extent", {{"CROSSCURSOR", "2"}}},
        {"Crosshair Cursor", "Small", {{"CROSSCURSOR", "1"}}},
        {"Language", "English", {{"LANGUAGE", "ENG"}}},
        {"Language", "Japanese", {{"LANGUAGE", "JPN"}}},
        {"Language", "Default", {{"LANGUAGE", "Default"}}},
        {"Pintype Arrows", "Full Size", {{"PINTYPE_ARROWS", "1"}, {"EURO_ARROWS", "0"}}},
        {"Pintype Arrows", "Half Size", {{"PINTYPE_ARROWS", "1"}, {"EURO_ARROWS", "1"}}},
        {"Pintype Arrows", "None", {{"PINTYPE_ARROWS", "0"}, {"EURO_ARROWS", "0"}}},
    };
    load({{"CROSSCURSOR", "2"}});
    CGeneralDialog& page = openPage();
    const std::vector<std::string> untouched = keysWrittenBy(page);
    EXPECT_EQ(std::ranges::count(untouched, "CROSSCURSOR"), 0);
    for (const auto& row : rows) {
        choose(row.caption, row.choice);
        ASSERT_TRUE(page.onApply());
        for (const auto& [key, value] : row.written)
            EXPECT_EQ(stored(key), value) << row.choice;
    }
}

TEST_F(AdvancedPage, ShowsWhichRowsAreLockedAndByWhom) {
    load({{"AUTOPAN", "0", true},
          {"BOXSIZE_HR", "254000", true},
          {"LANGUAGE", "ENG", true},
          {"CROSSCURSOR", "1", true},
          {"PINTYPE_ARROWS", "1", true}});
    CGeneralDialog& page = openPage();
    const std::string toolTip = "Locked by " + siteDirectory();
    for (const char* caption : {"Auto Pan", "Box Size [in]", "Language"}) {
        const int row = rowOf(caption);
        for (const int column : {1, 2}) {
            EXPECT_TRUE(grid().cellStyle(row, column).greyed) << caption;
            EXPECT_EQ(grid().cellStyle(row, column).toolTip.toStdString(), toolTip);
        }
        const std::string before = shown(caption);
        goTo(caption);
        EXPECT_EQ(grid().currentRow(), row) << "it can be read out";
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_F2, Qt::Key_7})
            press(key);
        EXPECT_FALSE(grid().isEditing());
        EXPECT_EQ(shown(caption), before);
    }
    EXPECT_FALSE(grid().cellStyle(rowOf("Dot Size [in]"), 2).greyed);

    // These two do not look locked; the store knows better.
    choose("Crosshair Cursor", "None");
    choose("Pintype Arrows", "None");
    ASSERT_TRUE(page.onApply());
    EXPECT_EQ(stored("CROSSCURSOR"), "1");
    EXPECT_EQ(stored("PINTYPE_ARROWS"), "1");
    EXPECT_EQ(shown("Crosshair Cursor"), "Small") << "what is stored";
    EXPECT_EQ(shown("Pintype Arrows"), "Full Size");
    EXPECT_EQ(stored("BOXSIZE_HR"), "254000");
}

TEST_F(AdvancedPage, ShowsTheSameLengthsInAnotherUnit) {
    load({{"BOXSIZE_HR", "317500"}, {"DOTSIZE_HR", "1.016e+06"}});
    CGeneralDialog& page = openPage();
    EXPECT_EQ(shown("Box Size [in]"), "0.12");
    EXPECT_EQ(shown("Dot Size [in]"), "0.40");
    enter("Selection Distance [in]", "0.3");
    enter("Box Size [in]", "");
    typeInto("Box Size [in]", "0.13");
    press(Qt::Key_Escape);
    struct {
        Unit unit;
        const char *box, *dot, *distance, *abbreviation;
    } const rows[] = {
        {Unit::centimetre, "0.318", "1.016", "0.762", "cm"},
        {Unit::thousandth, "125", "400", "300", "th"},
        {Unit::millimetre, "3.17", "10.16", "7.62", "mm"},
        {Unit::inch, "0.12", "0.40", "0.30", "in"},
    };
    for (const auto& row : rows) {
        Orv::setConfiguredUnit(appConfig_, row.unit);
        ASSERT_TRUE(page.onEnter());
        const std::string unit = std::string(" [") + row.abbreviation + "]";
        EXPECT_EQ(shown("Box Size" + unit), row.box);
        EXPECT_EQ(shown("Dot Size" + unit), row.dot);
        EXPECT_EQ(shown("Selection Distance" + unit), row.distance);
    }
    ASSERT_TRUE(page.onApply());
    EXPECT_EQ(stored("BOXSIZE_HR"), "317500") << "a length that is only looked at stays";
    EXPECT_EQ(Orv::lengthFromText(stored("DOTSIZE_HR")), 1016000);
    EXPECT_EQ(Orv::lengthFromText(stored("SDISTANCE_HR")), 762000);
}

TEST_F(AdvancedPage, StoresAnyTextTypedForALengthAndShowsWhatItStored) {
    const struct {
        const char* typed;
        double stored;
        const char* shown;
    } rows[] = {
        {"0.12", 304800, "0.12"}, // as the eighth of an inch is shown that was there before
        {"nonsense", 0, "0.00"},   {"1.5 in", 3810000, "1.50"},
        {"-2", -5080000, "-2.00"}, {"1e400", 9.22337e18, "3631248833407.39"},
        {"nan", 0, "0.00"},        {"0.7777777", 1975560, "0.78"},
    };
    for (const auto& row : rows) {
        load({{"BOXSIZE_HR", "317500"}});
        CGeneralDialog& page = openPage();
        enter("Box Size [in]", row.typed);
        EXPECT_EQ(shown("Box Size [in]"), row.typed);
        EXPECT_TRUE(page.isValid()) << "the page sets no limits";
        for (int time = 0; time < 2; ++time) {
            ASSERT_TRUE(page.onApply());
            EXPECT_EQ(std::stod(stored("BOXSIZE_HR")), row.stored) << row.typed;
            EXPECT_EQ(shown("Box Size [in]"), row.shown) << row.typed;
        }
        Orv::setConfiguredUnit(appConfig_, Unit::millimetre);
        EXPECT_TRUE(page.onEnter());
        Orv::setConfiguredUnit(appConfig_, Unit::inch);
    }
}

TEST_F(AdvancedPage, CountsAFlagThatIsNoneAsOffAndKeepsIt) {
    loadSections(R"(<section path="Orvane/SETTINGS"><value name="AUTOPAN">2</value>)"
                 R"(<value name="BITNUMBERS"/><value name="LANGUAGE"/></section>)");
    CGeneralDialog& page = openPage();
    EXPECT_EQ(shown("Auto Pan"), "2");
    ASSERT_TRUE(page.onApply());
    EXPECT_EQ(stored("AUTOPAN"), "2");
    goTo("Auto Pan");
    press(Qt::Key_Space);
    ASSERT_TRUE(page.onApply());
    EXPECT_EQ(stored("AUTOPAN"), "1");
}

TEST_F(AdvancedPage, GivesTheValuesTheWidthThatTheCaptionsLeave) {
    load({});
    CGeneralDialog& page = openPage();
    const QString longest = QStringLiteral("Copy and Paste Sheet using Conflict Resolution");
    const int captions = grid().widthOfColumn(1);
    EXPECT_GT(captions, grid().fontMetrics().horizontalAdvance(longest));
    for (const int width : {600, 900, 500}) {
        page.resize(width, 300);
        QApplication::processEvents();
        EXPECT_EQ(grid().widthOfColumn(1), captions);
        EXPECT_EQ(grid().widthOfColumn(1) + grid().widthOfColumn(2), grid().clientWidth());
    }
}
