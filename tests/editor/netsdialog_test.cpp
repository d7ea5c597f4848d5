#include "dialog/pages/editor/netsdialog.h"

#include "tests/editor/editorfixture.h"

#include <QtWidgets/QGroupBox>

using ovsettings::CNetsDialog;
using namespace testsupport;

namespace {

constexpr const char* kRoute = "Route Mode ";
constexpr const char* kAttributes = "Apply Atributes in Series Split";
constexpr const char* kLabels = "Apply Labels in Series Split";

class NetsPage : public EditorPages {
protected:
    QGroupBox& group(const std::string& title) {
        for (QGroupBox* box : window_.findChildren<QGroupBox*>()) {
            if (box->title().toStdString() == title)
                return *box;
        }
        throw std::runtime_error("no group " + title);
    }

    std::string checkedIn(const std::string& title) {
        std::string checked;
        for (const QRadioButton* button : group(title).findChildren<QRadioButton*>())
            checked += button->isChecked() ? button->text().toStdString() : "";
        return checked;
    }
};

} // namespace

TEST_F(NetsPage, ShowsEachStoredChoiceAndWritesItBackInNormalForm) {
    struct {
        const char *key, *stored, *group, *caption, *written;
    } const rows[] = {
        {"ROUTE", "0", kRoute, "Straight", "0"},
        {"ROUTE", "1", kRoute, "Orthogonal", "1"},
        {"ROUTE", "2", kRoute, "Avoidance", "2"},
        {"ROUTE", "7", kRoute, "Straight", "0"},
        {"ROUTE", "1.9", kRoute, "Orthogonal", "1"},
        {"ATTR_ON_SPLIT", "0", kAttributes, "Top or Left Segment", "0"},
        {"ATTR_ON_SPLIT", "1", kAttributes, "Bottom or Right Segment", "1"},
        {"ATTR_ON_SPLIT", "2", kAttributes, "Both Segments", "2"},
        {"ATTR_ON_SPLIT", "9", kAttributes, "None", "3"},
        {"LABEL_ON_SPLIT", "0", kLabels, "Dangling, solder, or corner joint", "0"},
        {"LABEL_ON_SPLIT", "1", kLabels, "Top or Left Segment", "1"},
        {"LABEL_ON_SPLIT", "2", kLabels, "Bottom or Right Segment", "2"},
        {"LABEL_ON_SPLIT", "3", kLabels, "None", "3"},
    };
    for (const auto& row : rows) {
        load({{row.key, row.stored}});
        CNetsDialog& page = open<CNetsDialog>();
        EXPECT_EQ(checkedIn(row.group), row.caption) << row.key << ' ' << row.stored;
        EXPECT_FALSE(page.isModified()) << "the user has changed nothing";
        ASSERT_TRUE(page.onApply());
        EXPECT_EQ(stored(row.key), row.written) << row.stored;
        EXPECT_FALSE(page.isModified());
    }
}

TEST_F(NetsPage, ChoosesByKeyboardWithinOneGroup) {
    load({{"ROUTE", "0"}});
    CNetsDialog& page = open<CNetsDialog>();
    activate(window_);
    auto* snap = find<QCheckBox>(window_, "Snap Nets To Pin");
    const bool snapped = snap->isChecked();
    snap->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    for (int group = 0; group < 3; ++group) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    }
    EXPECT_EQ(checkedIn(kRoute), "Orthogonal");
    EXPECT_EQ(checkedIn(kAttributes), "Bottom or Right Segment");
    EXPECT_EQ(checkedIn(kLabels), "Top or Left Segment");
    EXPECT_EQ(keysWrittenBy(page), (std::vector<std::string>{"SNAPTOPIN", "ADISTANCE_HR", "ROUTE",
                                                             "ATTR_ON_SPLIT", "LABEL_ON_SPLIT"}));
    EXPECT_EQ(stored("SNAPTOPIN"), snapped ? "0" : "1");
    EXPECT_EQ(stored("ROUTE"), "1");
    EXPECT_EQ(stored("ATTR_ON_SPLIT"), "1");
    EXPECT_EQ(stored("LABEL_ON_SPLIT"), "1");
}

TEST_F(NetsPage, RefusesADistanceBeyondTheLimitsEvenIfLeftAlone) {
    struct {
        Entry entry;
        const char *unit, *message;
    } const rows[] = {
        {{"ADISTANCE_HR", "1270"}, "in", "Avoidance value should be between 0.01 and 10.00"},
        {{"ADISTANCE_HR", "40"}, "cm", "Avoidance value should be between 0.00 and 1.00"},
        {{"ADISTANCE_HR", "5.08e+06"}, "th", "Avoidance value should be between 1.00 and 1000.00"},
    };
    for (const auto& row : rows) {
        load({row.entry, {"UNIT", row.unit}});
        CNetsDialog& page = open<CNetsDialog>();
        for (const auto& check : {&CNetsDialog::isValid, &CNetsDialog::onLeave, &CNetsDialog::onApply})
            EXPECT_EQ(messageDuring([&] { EXPECT_FALSE((page.*check)()); }), row.message);
    }
}

TEST_F(NetsPage, DisablesALockedGroupAsAWhole) {
    load({{"ATTR_ON_SPLIT", "2", true}});
    CNetsDialog& page = open<CNetsDialog>();
    const std::string toolTip = "Locked by " + siteDirectory();
    EXPECT_FALSE(group(kAttributes).isEnabled()) << "its title too";
    for (const QRadioButton* button : group(kAttributes).findChildren<QRadioButton*>()) {
        EXPECT_FALSE(button->isEnabled());
        EXPECT_EQ(button->toolTip().toStdString(), toolTip);
    }
    EXPECT_TRUE(group(kRoute).isEnabled());
    EXPECT_TRUE(group(kLabels).isEnabled());
    EXPECT_FALSE(page.isModified());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("ATTR_ON_SPLIT"), "2");
}
