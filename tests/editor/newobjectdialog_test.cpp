#include "dialog/pages/editor/newobjectdialog.h"

#include "dialog/widgets/decimalspinctrl.h"
#include "store/unitglue.h"
#include "tests/editor/editorfixture.h"

using ovsettings::CDecimalSpinCtrl;
using ovsettings::CNewObjectDialog;
using namespace testsupport;

namespace {

class NewObjectsPage : public EditorPages {
protected:
    QComboBox& origin() { return *find<QComboBox>(window_, "Default Text Origin"); }
    CDecimalSpinCtrl& size() { return *find<CDecimalSpinCtrl>(window_, "Default Text Size"); }
    long storedSize() const { return Orv::lengthFromText(stored("TEXTSIZE_HR")); }
};

} // namespace

TEST_F(NewObjectsPage, ShowsTheStoredOriginByItsIndexAndWritesItBack) {
    struct {
        const char *stored, *shown, *written;
    } const rows[] = {
        {"0", "None", "0"}, {"1", "Upper left", "1"}, {"9", "Lower right", "9"},
        {"10", "", "-1"},   {"-1", "", "-1"},         {"2.9", "Middle left", "2"},
    };
    const std::vector<std::string> kOrigins{"None",         "Upper left",    "Middle left",  "Lower left",
                                            "Upper center", "Middle center", "Lower center", "Upper right",
                                            "Middle right", "Lower right"};
    for (const auto& row : rows) {
        load({{"TEXTORIGIN", row.stored}});
        CNewObjectDialog& page = open<CNewObjectDialog>();
        EXPECT_EQ(textsOf(origin()), kOrigins);
        EXPECT_EQ(origin().currentText().toStdString(), row.shown) << row.stored;
        EXPECT_FALSE(page.isModified()) << row.stored;
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("TEXTORIGIN"), row.written) << row.stored;
        EXPECT_FALSE(page.isModified());
    }
}

TEST_F(NewObjectsPage, StoresWhatTheUserChooses) {
    load({});
    CNewObjectDialog& page = open<CNewObjectDialog>();
    EXPECT_EQ(origin().currentText().toStdString(), "Lower left");
    EXPECT_EQ(size().text().toStdString(), "0.10");
    EXPECT_FALSE(page.isModified());

    QTest::keyClick(&origin(), Qt::Key_Down);
    EXPECT_TRUE(page.isModified());
    type(size(), "0.25");
    QTest::keyClick(&size(), Qt::Key_Up);
    EXPECT_EQ(size().text().toStdString(), "0.26");
    EXPECT_TRUE(page.isValid());
    EXPECT_EQ(keysWrittenBy(page), (std::vector<std::string>{"TEXTORIGIN", "TEXTSIZE_HR"}));
    EXPECT_EQ(stored("TEXTORIGIN"), "4");
    EXPECT_EQ(stored("TEXTSIZE_HR"), "660400");
    EXPECT_FALSE(page.isModified());
}

TEST_F(NewObjectsPage, RefusesATypedSizeBeyondTheLimitsOfTheUnit) {
    struct {
        const char *unit, *typed;
        const char* message; ///< empty if the size is accepted
    } const rows[] = {
        {"in", "10", ""},
        {"in", "10.01", "Default Text Size value should be between 0.01 and 10.00"},
        {"in", "0.01", ""},
        {"in", "0.001", "Default Text Size value should be between 0.01 and 10.00"},
        {"mm", "", "Default Text Size value should be between 0.01 and 10.00"},
        {"cm", "0.001", ""},
        {"cm", "1.1", "Default Text Size value should be between 0.001 and 1.000"},
        {"th", "1000", ""},
        {"th", "nonsense", "Default Text Size value should be between 1 and 1000"},
    };
    for (const auto& row : rows) {
        load({{"UNIT", row.unit}});
        CNewObjectDialog& page = open<CNewObjectDialog>();
        type(size(), row.typed);
        for (const auto& check : {&CNewObjectDialog::isValid, &CNewObjectDialog::onLeave}) {
            if (*row.message)
                EXPECT_EQ(messageDuring([&] { EXPECT_FALSE((page.*check)()); }), row.message) << row.typed;
            else
                EXPECT_TRUE((page.*check)()) << row.typed;
        }
        EXPECT_EQ(size().text().toStdString(), row.typed);
        EXPECT_EQ(storedSize(), 254000);
    }
}

TEST_F(NewObjectsPage, KeepsAStoredSizeThatTheUnitCouldNotType) {
    struct {
        const char *stored, *unit, *shown;
        long kept;
    } const rows[] = {
        {"317500", "in", "0.12", 317500},
        {"1000", "in", "0.0004", 1000},
        {"5.08e+07", "in", "20.00", 50800000},
        {"5.08e+06", "th", "2000", 5080000},
        {"0", "mm", "0.00", 0},
        {"-254000", "mm", "-2.54", -254000},
    };
    for (const auto& row : rows) {
        for (const bool locked : {false, true}) {
            load({{"TEXTSIZE_HR", row.stored, locked}, {"UNIT", row.unit}});
            CNewObjectDialog& page = open<CNewObjectDialog>();
            EXPECT_EQ(size().text().toStdString(), row.shown);
            EXPECT_TRUE(page.isValid());
            EXPECT_TRUE(page.onLeave());
            EXPECT_FALSE(page.isModified());
            EXPECT_TRUE(page.onOk());
            EXPECT_EQ(storedSize(), row.kept);
        }
    }
}

TEST_F(NewObjectsPage, DisablesWhatIsLockedAndSaysByWhom) {
    struct {
        const char *key, *value, *caption;
    } const rows[] = {
        {"TEXTORIGIN", "7", "Default Text Origin"},
        {"TEXTSIZE_HR", "508000", "Default Text Size"},
    };
    for (const auto& row : rows) {
        load({{row.key, row.value, true}});
        CNewObjectDialog& page = open<CNewObjectDialog>();
        for (const QLabel* label : page.findChildren<QLabel*>()) {
            // The label that shows the unit goes with the size.
            const QWidget* control = label->buddy() ? label->buddy() : &size();
            const bool locked = control == controlByCaption(window_, row.caption);
            EXPECT_EQ(label->isEnabled(), !locked) << label->text().toStdString();
            EXPECT_EQ(control->isEnabled(), !locked);
            EXPECT_EQ(label->toolTip().toStdString(), locked ? "Locked by " + siteDirectory() : "");
            EXPECT_EQ(control->toolTip(), label->toolTip());
        }
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored(row.key), row.value);
    }
}

TEST_F(NewObjectsPage, TakesABrokenConfigurationWithoutHarm) {
    for (const char* text : {"nonsense", "", "1e400", "-1e400", "nan"}) {
        loadAsWritten({{"TEXTORIGIN", text}, {"TEXTSIZE_HR", text}, {"UNIT", text}});
        CNewObjectDialog& page = open<CNewObjectDialog>();
        EXPECT_TRUE(page.onLeave()) << text;
        QTest::keyClick(&origin(), Qt::Key_End);
        type(size(), "2");
        EXPECT_TRUE(page.isValid());
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("TEXTORIGIN"), "9") << text;
        EXPECT_EQ(storedSize(), 5080000) << text;
    }
}

TEST_F(NewObjectsPage, FailsToApplyWithoutAConfiguration) {
    CNewObjectDialog page(nullptr);
    page.createWindow(&window_);
    EXPECT_TRUE(page.onEnter());
    EXPECT_TRUE(page.isValid());
    EXPECT_FALSE(page.isModified());
    EXPECT_FALSE(page.onOk());
    EXPECT_EQ(origin().count(), 10);
    EXPECT_NE(controlByCaption(window_, "in"), nullptr);
}
