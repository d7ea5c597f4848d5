#include "dialog/pages/editor/griddialog.h"

#include "dialog/widgets/decimalspinctrl.h"
#include "store/unitglue.h"
#include "tests/editor/editorfixture.h"

using Orv::Metrics::Unit;
using ovsettings::CDecimalSpinCtrl;
using ovsettings::CGridDialog;
using namespace testsupport;

namespace {

class GridPage : public EditorPages {
protected:
    CDecimalSpinCtrl& spacing() { return *find<CDecimalSpinCtrl>(window_, "Grid Spacing"); }
    QCheckBox& display() { return *find<QCheckBox>(window_, "Display"); }
    QCheckBox& markings() { return *find<QCheckBox>(window_, "Grid Interval Markings"); }
};

} // namespace

TEST_F(GridPage, ShowsWhatIsStoredAndStoresWhatTheUserSets) {
    load({{"GRIDON", "1"}, {"GRID_HIGHLIGHT_MARKS", "2"}});
    CGridDialog& page = open<CGridDialog>();
    EXPECT_TRUE(display().isChecked());
    EXPECT_FALSE(markings().isChecked()) << "only 1 is checked";
    EXPECT_EQ(spacing().text().toStdString(), "0.10");

    QTest::keyClick(&display(), Qt::Key_Space);
    QTest::keyClick(&markings(), Qt::Key_Space);
    type(spacing(), "0.25");
    EXPECT_EQ(keysWrittenBy(page), (std::vector<std::string>{"GRIDON", "GRID_HIGHLIGHT_MARKS", "GRID_HR"}));
    EXPECT_EQ(stored("GRIDON"), "0");
    EXPECT_EQ(stored("GRID_HIGHLIGHT_MARKS"), "1");
    EXPECT_EQ(Orv::lengthFromText(stored("GRID_HR")), 635000);
}

TEST_F(GridPage, RefusesASpacingBeyondTheLimitsOfTheUnit) {
    struct {
        const char *unit, *typed, *message;
    } const rows[] = {
        {"in", "0.001", "Grid Spacing value should be between 0.01 and 10.00"},
        {"mm", "10.01", "Grid Spacing value should be between 0.01 and 10.00"},
        {"cm", "0", "Grid Spacing value should be between 0.001 and 1.00"},
        {"th", "nonsense", "Grid Spacing value should be between 1 and 1000.00"},
        {"th", "-5", "Grid Spacing value should be between 1 and 1000.00"},
        {"in", "1e400", "Grid Spacing value should be between 0.01 and 10.00"},
    };
    for (const auto& row : rows) {
        load({{"UNIT", row.unit}});
        CGridDialog& page = open<CGridDialog>();
        QTest::keyClick(&display(), Qt::Key_Space);
        const std::string before = stored("GRIDON");
        type(spacing(), row.typed);
        for (const auto& check : {&CGridDialog::isValid, &CGridDialog::onLeave, &CGridDialog::onApply})
            EXPECT_EQ(messageDuring([&] { EXPECT_FALSE((page.*check)()); }), row.message) << row.typed;
        EXPECT_EQ(stored("GRIDON"), before) << "a refused page writes nothing";
        EXPECT_EQ(spacing().text().toStdString(), row.typed);
    }
    for (const char* limit : {"10", "0.01"}) {
        type(spacing(), limit);
        EXPECT_TRUE(page_->onApply()) << limit;
    }
}

TEST_F(GridPage, AcceptsASpacingFinerThanTheUnitOnlyIfItWasStoredSo) {
    for (const char* length : {"1270", "1000", "1"}) {
        load({{"GRID_HR", length}});
        CGridDialog& page = open<CGridDialog>();
        const std::string shown = spacing().text().toStdString();
        EXPECT_GT(spacing().getValue(), 0);
        EXPECT_FALSE(page.isModified());
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("GRID_HR"), length);

        type(spacing(), shown);
        EXPECT_NE(messageDuring([&] { EXPECT_FALSE(page.onApply()); }), "") << shown;
    }
}

TEST_F(GridPage, ShowsTheSameLengthAfterAChangeOfTheUnit) {
    load({});
    CGridDialog& page = open<CGridDialog>();
    type(spacing(), "0.3");
    Orv::setConfiguredUnit(appConfig_, Unit::millimetre);
    EXPECT_TRUE(page.onEnter());
    EXPECT_EQ(spacing().text().toStdString(), "7.62");
    EXPECT_NE(controlByCaption(window_, "mm"), nullptr);
    EXPECT_TRUE(page.isModified()) << "the edit is not stored yet";
    double minimum, maximum, step;
    spacing().getRange(minimum, maximum, step);
    EXPECT_DOUBLE_EQ(minimum, 0.01);
    EXPECT_DOUBLE_EQ(maximum, 10);

    // Two thousandths of an inch in millimetres round to 0.05, yet the length stays what it was.
    Orv::setConfiguredUnit(appConfig_, Unit::thousandth);
    page.onEnter();
    type(spacing(), "2");
    for (const Unit unit : {Unit::millimetre, Unit::inch, Unit::thousandth}) {
        Orv::setConfiguredUnit(appConfig_, unit);
        page.onEnter();
    }
    ASSERT_TRUE(page.onOk());
    EXPECT_EQ(Orv::lengthFromText(stored("GRID_HR")), 5080);
    EXPECT_FALSE(page.isModified());
}

TEST_F(GridPage, IsModifiedWhileItShowsAnotherValueThanItWasFilledWith) {
    load({{"GRID_HIGHLIGHT_MARKS", "2"}}); // neither checked nor not
    CGridDialog& page = open<CGridDialog>();
    EXPECT_FALSE(page.isModified());
    type(spacing(), "0.1000");
    EXPECT_FALSE(page.isModified()) << "the same length in another text";
    type(spacing(), "0.2");
    EXPECT_TRUE(page.isModified());
    type(spacing(), "0.1");
    EXPECT_FALSE(page.isModified());
    QTest::keyClick(&markings(), Qt::Key_Space);
    EXPECT_TRUE(page.isModified());
    // Seven digits are one more than the store keeps.
    type(spacing(), "0.7777777");
    ASSERT_TRUE(page.onApply());
    EXPECT_FALSE(page.isModified());
}

TEST_F(GridPage, DisablesALockedFlagAndNoOther) {
    load({{"GRIDON", "1", true}});
    CGridDialog& page = open<CGridDialog>();
    EXPECT_FALSE(display().isEnabled());
    EXPECT_EQ(display().toolTip().toStdString(), "Locked by " + siteDirectory());
    EXPECT_TRUE(markings().isEnabled() && markings().toolTip().isEmpty());
    EXPECT_EQ(keysWrittenBy(page), (std::vector<std::string>{"GRIDON", "GRID_HIGHLIGHT_MARKS", "GRID_HR"}));
}
