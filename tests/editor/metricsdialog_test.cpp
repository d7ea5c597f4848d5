#include "dialog/pages/editor/metricsdialog.h"

#include "tests/editor/editorfixture.h"

using ovsettings::CMetricsDialog;
using testsupport::find;

namespace {

class UnitsPage : public EditorPages {
protected:
    QComboBox& units() { return *find<QComboBox>(window_, "Unit"); }

    void choose(const char* unit) { QTest::keyClicks(&units(), QLatin1String(unit)); }
};

} // namespace

TEST_F(UnitsPage, OffersEveryUnitAndStoresTheAbbreviation) {
    load({});
    CMetricsDialog& page = open<CMetricsDialog>();
    EXPECT_EQ(units().count(), 4);
    EXPECT_EQ(units().currentText().toStdString(), "Inches");
    EXPECT_FALSE(page.isModified());

    choose("Milli");
    EXPECT_TRUE(page.isModified());
    EXPECT_EQ(stored("UNIT"), "in");
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(stored("UNIT"), "mm");
    EXPECT_FALSE(page.isModified());
}

TEST_F(UnitsPage, AsksOnLeavingAndIsLeftEitherWay) {
    for (const bool yes : {false, true}) {
        load({});
        CMetricsDialog& page = open<CMetricsDialog>();
        EXPECT_TRUE(page.onLeave()) << "nothing changed, nothing asked";
        choose("Cent");
        std::string text, title;
        testsupport::whenModal([&](QWidget& modal) {
            auto& box = dynamic_cast<QMessageBox&>(modal);
            text = box.text().toStdString();
            title = box.windowTitle().toStdString();
            EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
            QTest::mouseClick(box.button(yes ? QMessageBox::Yes : QMessageBox::No), Qt::LeftButton);
        });
        EXPECT_TRUE(page.onLeave());
        EXPECT_EQ(text, "Do you want to save the changes you've made in this page?");
        EXPECT_EQ(title, "Metrics");
        EXPECT_EQ(stored("UNIT"), yes ? "cm" : "in");
        EXPECT_TRUE(!yes || page.onLeave()) << "what is stored is not asked about again";
        // Stored or not, the host has not been told before the commit.
        EXPECT_TRUE(page.isModified());
        EXPECT_TRUE(page.onApply());
        EXPECT_FALSE(page.isModified());
        EXPECT_EQ(stored("UNIT"), "cm");
    }
}

TEST_F(UnitsPage, ShowsALockedUnitDisabled) {
    load({{"UNIT", "mm", true}});
    open<CMetricsDialog>();
    EXPECT_EQ(units().currentText().toStdString(), "Millimeters");
    EXPECT_FALSE(units().isEnabled());
    EXPECT_EQ(units().toolTip().toStdString(), "Locked by " + siteDirectory());
}
