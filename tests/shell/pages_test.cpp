// What the pages of this library say of themselves, held against the declarations and against what they do.

#include "dialog/shell/internalpages.h"
#include "dialog/shell/pagesettings.h"
#include "dialog/widgets/formkeys.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "orv/declaration.h"
#include "ovsettings/propertypagefactory.h"
#include "store/unitglue.h"
#include "tests/support/configuredpages.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QHelpEvent>
#include <QtWidgets/QToolTip>

#include <fstream>
#include <map>
#include <set>

using namespace ovsettings;
using namespace testsupport;

namespace {

/// A caption as it is read: without the marks of shortcuts, the colon, and blanks around it.
std::string asRead(const std::string& label) {
    QString text = QString::fromStdString(label).remove(QLatin1Char('&')).trimmed();
    if (text.endsWith(QLatin1Char(':')))
        text.chop(1);
    return text.toStdString();
}

/// Where a page shows another text than the declaration has, by setting and value, and why.
const std::map<std::pair<std::string, std::string>, std::string> kOtherLabels{
    {{"STROKES", "0"}, "Strokes off"},    // the group has the caption
    {{"MIDSTROKE", "0"}, "Right Button"}, // one flag, two buttons
};

/// What a page is to show for a setting or one of its values.
std::string declaredLabel(const PageSetting& setting) {
    const SettingField named = settingField(setting.name);
    const Orv::SettingDeclaration* declared = Orv::declarationOf(named.key);
    if (!declared || (setting.name.find('.') != std::string::npos) != named.field.has_value())
        return "no setting " + setting.name;
    if (const auto other = kOtherLabels.find({setting.name, setting.value}); other != kOtherLabels.end())
        return other->second;
    const Orv::FieldDeclaration& field = declared->fields[named.field.value_or(0)];
    const auto choice = std::ranges::find(field.choices, setting.value, &Orv::SettingChoice::value);
    if (!setting.value.empty() && choice != field.choices.end())
        return std::string(choice->caption);
    return std::string(named.field ? field.caption : declared->caption);
}

TEST(PageRows, ShowTheCaptionsThatAreDeclared) {
    for (const PageRow& page : internalPages()) {
        for (const PageSetting& setting : settingsOf(page)) {
            EXPECT_EQ(asRead(setting.label), declaredLabel(setting))
                << page.key << ": " << setting.name << ' ' << setting.value;
        }
    }
}

TEST(PageRows, ShowEverySettingButThoseThatAreNamed) {
    std::multiset<std::string> settings;
    std::ifstream onNoPage(OV_ON_NO_PAGE);
    for (std::string key; std::getline(onNoPage, key);)
        settings.insert(key);
    std::set<std::string> shown;
    for (const PageRow& page : internalPages()) {
        for (const PageSetting& setting : settingsOf(page))
            shown.insert(settingField(setting.name).key);
    }
    settings.insert(shown.begin(), shown.end());
    std::multiset<std::string> declared;
    for (const Orv::SettingDeclaration& setting : Orv::declarations()) {
        if (!setting.key.starts_with("SPARE_"))
            declared.emplace(setting.key);
    }
    EXPECT_EQ(settings, declared);
}

TEST(PageRows, NoTranslatorCanUnbindAControl) {
    const QRegularExpression texts(
        QStringLiteral("name=\"setting\\w+\"[^>]*>\\s*<string(?! notr=\"true\">)"));
    for (const PageRow& page : internalPages()) {
        QFile form(QString::fromLatin1(page.form));
        ASSERT_TRUE(form.open(QIODevice::ReadOnly)) << page.form;
        EXPECT_FALSE(QString::fromUtf8(form.readAll()).contains(texts)) << page.form;
    }
}

class PagesOverAConfiguration : public ConfiguredPages {
protected:
    PagesOverAConfiguration() {
        factory_.setConfigurations(&appConfig_, nullptr);
        registerInternalPages(factory_, nullptr);
    }

    CFactoryEx factory_;
};

/// The keys of a page in the order in which it is to write them; what its row does not name comes behind.
std::vector<std::string> orderOfWriting(const PageRow& row) {
    std::vector<std::string> keys;
    if (row.gridSettings) {
        for (const GridSetting& setting : row.gridSettings())
            keys.push_back(setting.key);
    }
    keys.insert(keys.end(), row.writes.begin(), row.writes.end());
    for (const PageSetting& setting : settingsOf(row)) {
        if (const std::string key = settingField(setting.name).key; std::ranges::count(keys, key) == 0)
            keys.push_back(key);
    }
    return keys;
}

TEST_F(PagesOverAConfiguration, WriteInTheOrderOfTheirRows) {
    loadSections(setting("SHEETSIZE", "10"));
    for (const PageRow& row : internalPages()) {
        const std::vector<std::string> expected = orderOfWriting(row);
        if (expected.empty() || row.key == std::string("Color Schemes"))
            continue; // the palettes are never written
        CPropDialogTemplate* page = factory_.createPage(row.key, &window_);
        ASSERT_NE(page, nullptr) << row.key;
        std::vector<std::string> written = keysWrittenBy(*page);
        written.erase(std::unique(written.begin(), written.end()), written.end()); // each field is told of
        EXPECT_EQ(written, expected) << row.key;
    }
}

/// What is shown where a tool tip is asked for.
std::string tipAt(QWidget& widget, QPoint at = {}) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted() ? QToolTip::text().toStdString() : "";
}

TEST_F(PagesOverAConfiguration, TellInToolTipsWhatIsDeclaredAndWhoLocksIt) {
    const std::string site = installation_.site().string();
    const std::string lock = "Locked by " + site + "\nHouse rule\nContact: cad";
    struct {
        const char *page, *caption;
        std::string tip;
    } const rows[] = {
        {"Grid", "Grid Spacing",
         "Grid Spacing\nLimits: between 0.01 and 10.00 mm\nDefault: 2.54 mm\n" + lock},
        {"Grid", "Display", "Display\nDefault: On\n" + lock},
        {"Nets", "Straight", "Route Mode\nDefault: Avoidance\n" + lock},
        {"New Sheet", "Width", "Width\nLimits: between 1 and 100000000 mm\nDefault: 25.40 mm"},
        {"Display", "Name", "Name\nDefault: On"},
        {"Font Mappings", "Scale factor", "Scale factor\nLimits: above 0\nDefault: 1.0\n" + lock},
    };
    loadSections(section("Orvane/SETTINGS",
                         settingValue("GRID_HR", "254000", true) + settingValue("GRIDON", "1", true) +
                             settingValue("UNIT", "mm") + settingValue("ROUTE", "1", true) +
                             settingValue("AUTOPAN", "1", true) + settingValue("SCALEFACTOR", "1", true),
                         LockNotes{"House rule", "cad"}));
    for (const auto& row : rows) {
        QWidget& page = *factory_.createPage(row.page, &window_);
        EXPECT_EQ(tipAt(*controlByCaption(page, row.caption)), row.tip) << row.caption;
        delete &page;
    }
    QWidget& page = *factory_.createPage("Advanced", &window_);
    auto& grid = *page.findChild<GridWnd*>();
    EXPECT_EQ(tipAt(*grid.viewport(), centreOf(grid, 2, 1)), "Auto Pan\nDefault: On\n" + lock);
    EXPECT_EQ(tipAt(*grid.viewport(), centreOf(grid, 4, 2)), "Box Size\nDefault: 1.27 mm");
    Orv::setConfiguredUnit(appConfig_, Orv::Metrics::Unit::inch);
    EXPECT_EQ(tipAt(*grid.viewport(), centreOf(grid, 4, 2)), "Box Size\nDefault: 0.05 in")
        << "it is laid together when it is asked for";
}

} // namespace
