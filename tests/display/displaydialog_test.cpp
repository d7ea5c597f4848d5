#include "dialog/pages/display/displaydialog.h"

#include "tests/display/displaypages.h"

using ovsettings::CDisplayDialog;
using testsupport::find;
using Texts = std::vector<std::string>;

namespace {

class DisplayPage : public DisplayPages {
protected:
    QCheckBox& box(const std::string& caption) { return *find<QCheckBox>(window_, caption); }
    std::string first(const std::string& key) const { return stored(key).at(0); }

    /// Sets the first field of a key.
    void set(const std::string& key, const std::string& text) { Orv::setValueAt(appConfig_, 0, key, text); }
};

constexpr std::pair<const char*, const char*> kBoxes[] = {
    {"Common Properties", "ATTRIBUTE"},
    {"Reference Designators", "RNUMSON"},
    {"Pin Numbers", "PNUMSON"},
    {"Name", "LABEL"},
    {"Border", "BORDERON"},
    {"Symbol Text", "COMPTEXTON"},
    {"Graphical Text", "TEXT"},
    {"Components", "COMPONENT_TOOLTIPS"},
    {"Nets", "NET_TOOLTIPS"},
    {"Pins", "PIN_TOOLTIPS"},
};

} // namespace

TEST_F(DisplayPage, EachBoxStandsForTheFirstFieldOfItsKey) {
    for (const auto& [caption, key] : kBoxes) {
        load();
        for (const auto& other : kBoxes)
            set(other.second, "1");
        set(key, "0");
        CDisplayDialog& page = open<CDisplayDialog>();
        for (const auto& other : kBoxes)
            EXPECT_EQ(box(other.first).isChecked(), other.second != key) << other.first << " and " << key;

        const Texts before = stored(key);
        QTest::mouseClick(&box(caption), Qt::LeftButton, {}, QPoint(5, box(caption).height() / 2));
        EXPECT_FALSE(page.isModified()) << "no host is told of this page";
        EXPECT_TRUE(page.onOk());
        Texts expected = before;
        expected.at(0) = "1";
        EXPECT_EQ(stored(key), expected) << "only the first field is the page's";
    }
}

TEST_F(DisplayPage, ChecksAndGreysTheNumbersOfHiddenProperties) {
    load();
    set("ATTRIBUTE", "0");
    set("PNUMSON", "1");
    set("RNUMSON", "0");
    CDisplayDialog& page = open<CDisplayDialog>();
    EXPECT_TRUE(box("Pin Numbers").isChecked() && !box("Pin Numbers").isEnabled());
    EXPECT_FALSE(box("Reference Designators").isChecked() || box("Reference Designators").isEnabled());

    QTest::keyClick(&box("Common Properties"), Qt::Key_Space);
    EXPECT_TRUE(box("Pin Numbers").isEnabled() && box("Reference Designators").isEnabled());
    box("Common Properties").setChecked(false);
    EXPECT_TRUE(box("Pin Numbers").isChecked() && !box("Pin Numbers").isEnabled());

    EXPECT_EQ(keysWrittenBy(page), (Texts{"ATTRIBUTE", "PNUMSON", "RNUMSON", "LABEL", "COMPTEXTON", "TEXT",
                                          "BORDERON", "NET_TOOLTIPS", "PIN_TOOLTIPS", "COMPONENT_TOOLTIPS"}));
    EXPECT_EQ(first("PNUMSON"), "0") << "whatever the box shows";
    EXPECT_EQ(first("ATTRIBUTE"), "0");
}

TEST_F(DisplayPage, CountsEveryTextButNoughtAsOnAndDisablesNothingForALock) {
    load(R"(<section path="Orvane/SETTINGS"><value name="BORDERON" locked="yes">2</value></section>)");
    set("COMPTEXTON", "2");
    CDisplayDialog& page = open<CDisplayDialog>();
    EXPECT_TRUE(box("Symbol Text").isChecked());
    EXPECT_TRUE(box("Border").isChecked() && box("Border").isEnabled());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(first("COMPTEXTON"), "1");
    EXPECT_EQ(first("BORDERON"), "2");
}

TEST_F(DisplayPage, SplitsTheTextOfPropertiesAtEveryCommaAndTrimsAllPiecesButTheLast) {
    EXPECT_EQ(CDisplayDialog::joinProperties({"REFDES", "PART NUMBER", "VALUE"}),
              "REFDES ,PART NUMBER ,VALUE");
    EXPECT_EQ(CDisplayDialog::joinProperties({}), "");
    const std::pair<const char*, Texts> rows[] = {
        {"REFDES ,PART NUMBER ,VALUE", {"REFDES", "PART NUMBER", "VALUE"}},
        {" A , B ", {"A", " B "}},
        {"A,, ,B", {"A", "B"}},
        {"A,", {"A"}},
        {" ", {" "}},
        {"", {}},
    };
    for (const auto& [text, pieces] : rows)
        EXPECT_EQ(CDisplayDialog::splitProperties(text), pieces) << '"' << text << '"';
}
