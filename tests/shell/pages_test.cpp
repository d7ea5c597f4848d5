// What the pages of this library say of themselves, held against the declarations and against what they do.

#include "dialog/shell/internalpages.h"
#include "dialog/shell/pagesettings.h"
#include "dialog/widgets/formkeys.h"
#include "orv/declaration.h"
#include "ovsettings/propertypagefactory.h"
#include "store/appcfg.h"
#include "tests/support/configuredpages.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <fstream>
#include <map>
#include <set>

using namespace ovsettings;

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

class WritingPages : public ConfiguredPages {};

TEST_F(WritingPages, WriteInTheOrderOfTheirRows) {
    loadSections(testsupport::setting("SHEETSIZE", "10", false));
    CFactoryEx factory;
    factory.setConfigurations(&appConfig_, nullptr);
    registerInternalPages(factory, nullptr);
    for (const PageRow& row : internalPages()) {
        std::vector<std::string> expected;
        if (row.gridSettings) {
            for (const GridSetting& setting : row.gridSettings())
                expected.push_back(setting.key);
        }
        expected.insert(expected.end(), row.writes.begin(), row.writes.end());
        if (expected.empty() || row.condition != PageCondition::always ||
            row.key == std::string("Color Schemes"))
            continue; // the palettes are never written
        CPropDialogTemplate* page = factory.createPage(row.key, &window_);
        ASSERT_NE(page, nullptr) << row.key;
        std::vector<std::string> written = keysWrittenBy(*page);
        written.erase(std::ranges::unique(written).begin(), written.end()); // each field is told of
        EXPECT_EQ(written, expected) << row.key;
    }
}

} // namespace
