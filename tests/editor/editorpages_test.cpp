// What all pages of this room have in common, and their neighbours of advanced and startup with them.

#include "dialog/pages/advanced/generaldialog.h"
#include "dialog/pages/editor/griddialog.h"
#include "dialog/pages/editor/metricsdialog.h"
#include "dialog/pages/editor/netsdialog.h"
#include "dialog/pages/editor/newobjectdialog.h"
#include "dialog/pages/editor/newsheetdialog.h"
#include "dialog/pages/editor/panandzoomdialog.h"
#include "dialog/pages/startup/runonstartupdialog.h"
#include "dialog/widgets/decimalspinctrl.h"
#include "store/unitglue.h"
#include "tests/editor/editorfixture.h"

using namespace testsupport;

/// The lengths that the pages of this room show, as they come with the product.
TEST_F(EditorPages, DefaultLengthsPassTheLimitsOfTheirPagesInEveryUnit) {
    std::list<Orv::Metrics::Unit> units;
    Orv::Metrics::ListAvaibleUnits(units);
    load({});
    const auto check = [&](ovsettings::CPropDialogTemplate& page, double inches) {
        const auto& length = *page.findChild<ovsettings::CDecimalSpinCtrl*>();
        for (const Orv::Metrics::Unit unit : units) {
            Orv::setConfiguredUnit(appConfig_, unit);
            page.onEnter();
            double minimum, maximum, step;
            length.getRange(minimum, maximum, step);
            EXPECT_GE(length.getValue(), minimum) << length.text().toStdString();
            EXPECT_LE(length.getValue(), maximum) << length.text().toStdString();
            EXPECT_EQ(Orv::fromDisplay(length.getValue(), unit),
                      Orv::fromDisplay(inches, Orv::Metrics::Unit::inch))
                << "the same length in each unit";
        }
        Orv::setConfiguredUnit(appConfig_, Orv::Metrics::Unit::inch);
    };
    check(open<ovsettings::CGridDialog>(), 0.1);
    check(open<ovsettings::CNetsDialog>(), 0.2);
    check(open<ovsettings::CNewObjectDialog>(), 0.1);
}

TEST_F(EditorPages, ALockedValueBeyondItsLimitsHoldsTheUserOnNoPage) {
    const auto check = [](ovsettings::CPropDialogTemplate& page) {
        EXPECT_TRUE(page.onLeave() && page.isValid() && page.onApply()) << page.metaObject()->className();
    };
    for (const char* length : {"0", "-254000", "1270", "5.08e+07"}) {
        load({{"GRID_HR", length, true},
              {"ADISTANCE_HR", length, true},
              {"TEXTSIZE_HR", length, true},
              {"SHEETSIZE", "10", true}});
        Orv::setValues(appConfig_, "Z_SIZE_HR", {length, length});
        check(open<ovsettings::CGridDialog>());
        check(open<ovsettings::CNetsDialog>());
        check(open<ovsettings::CNewObjectDialog>());
        check(open<ovsettings::CNewSheetDialog>());
        EXPECT_EQ(stored("GRID_HR"), length);
    }
}

TEST_F(EditorPages, APageWithoutAWindowRefusesNothingAndWritesNothing) {
    load({});
    const auto check = [this](ovsettings::CPropDialogTemplateEx&& page) {
        page.setAppConfiguration(&appConfig_);
        EXPECT_TRUE(page.isValid() && page.onEnter());
        EXPECT_FALSE(page.isModified());
        EXPECT_TRUE(keysWrittenBy(page).empty()) << page.metaObject()->className();
    };
    for (QWidget* parent : {static_cast<QWidget*>(nullptr), &window_}) {
        check(ovsettings::CGridDialog(parent));
        check(ovsettings::CGeneralDialog(parent));
        check(ovsettings::CMetricsDialog(parent));
        check(ovsettings::CNetsDialog(parent));
        check(ovsettings::CNewObjectDialog(parent));
        check(ovsettings::CPanAndZoomDialog(parent));
        check(ovsettings::CRunOnStartupDialog(parent));
    }
    EXPECT_FALSE(std::filesystem::exists(installation_.user() / "scripts.ini"));
}
