#include "details/shell/settingsdialog.h"

#include "details/pages/editor/metricsdialog.h"
#include "details/pages/editor/panandzoomdialog.h"
#include "details/pages/startup/runonstartupdialog.h"
#include "details/shell/internalpages.h"
#include "details/shell/notifyupdaters.h"
#include "details/shell/pagestarter.h"
#include "details/shell/stringtable.h"
#include "details/widgets/messagebox.h"
#include "details/widgets/waitcursor.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "orv/updater.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "ovsettings/updatehost.h"
#include "suite/openproject.h"
#include "tests/support/testsupport.h"

#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

using namespace ovsettings;

namespace {

/// A page that tells the host in the midst of its store, as pages do whose change cannot wait.
class CTellingPage : public CPropDialogTemplate {
public:
    explicit CTellingPage(QWidget* parent) : CPropDialogTemplate(1, parent) { name = "Telling"; }
    bool onApply() override {
        modified_ = false;
        notifyUpdatersOf(*this);
        return true;
    }
    bool isModified() const override { return modified_; }

private:
    bool modified_ = true;
};

class CountingUpdater : public Orv::IUpdater {
public:
    bool updateSettings(ovsettings::IUpdateHost* host) override {
        changed.push_back(host->isPageChanged("telling"));
        return true;
    }
    std::vector<bool> changed;
};

TEST(NotifyUpdaters, FromWithinAStoreLosesThePagesOwnNameInBothNotifications) {
    const testsupport::Installation installation;
    testsupport::writeFile(installation.standard() / "settings.xml", "<settings/>");
    Orv::iAppConfiguration configuration;
    ASSERT_TRUE(configuration.load());
    Orv::CProjectConfiguration project;
    CountingUpdater updater;
    CFactory factory;
    factory.addPage<CTellingPage>("Telling");
    {
        CSettingsDialog dialog(configuration, project, &updater);
        dialog.addCategory(std::make_unique<CPageStarter>(factory, "Telling"), 0, "Telling", true);
        testsupport::whenModal([](QWidget& modal) {
            QTest::mouseClick(testsupport::find<QPushButton>(modal, "Apply"), Qt::LeftButton);
            QTest::mouseClick(testsupport::find<QPushButton>(modal, "Cancel"), Qt::LeftButton);
        });
        EXPECT_EQ(dialog.DoModal(), 1);
    }
    EXPECT_EQ(updater.changed, (std::vector<bool>{false, false}));

    CTellingPage elsewhere(nullptr);
    elsewhere.onApply();
    EXPECT_EQ(updater.changed.size(), 2u);
}

TEST(PageWithAParent, StoresNothingBeforeItHasItsWindow) {
    const testsupport::Installation installation;
    Orv::iAppConfiguration configuration;
    ASSERT_TRUE(configuration.load());
    QWidget parent;
    CMetricsDialog units(&parent);
    CPanAndZoomDialog panAndZoom(&parent);
    CRunOnStartupDialog runOnStartup(&parent);
    for (CPropDialogTemplateEx* page :
         std::initializer_list<CPropDialogTemplateEx*>{&units, &panAndZoom, &runOnStartup}) {
        page->setAppConfiguration(&configuration);
        EXPECT_FALSE(page->isModified()) << page->pageName();
        EXPECT_TRUE(page->onOk()) << page->pageName();
    }
    EXPECT_FALSE(std::filesystem::exists(installation.user() / "scripts.ini"));
}

TEST(MessageBox, ShowsNoWaitCursorWhileItAsks) {
    const WaitCursor wait;
    Qt::CursorShape shape = Qt::WaitCursor;
    testsupport::whenModal([&shape](QWidget& box) {
        shape = QGuiApplication::overrideCursor()->shape();
        box.close();
    });
    showMessage(nullptr, QStringLiteral("text"));
    EXPECT_EQ(shape, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST(StringTables, HaveEveryCaptionInEveryLanguage) {
    constexpr unsigned kJapanese = 1041;
    constexpr unsigned kUnused = 20034;
    for (unsigned id = 20001; id <= 20035; ++id) {
        for (const unsigned language : {kEnglish, kJapanese})
            EXPECT_EQ(loadString(id, language).has_value(), id != kUnused) << id << " in " << language;
    }
    EXPECT_FALSE(loadString(20001, 1031).has_value());
}

struct PageRow {
    const char* key;
    bool needsProject;
};

constexpr PageRow kPages[] = {
    {"Pan and Zoom", false},
    {"Advanced", false},
    {"Metrics", false},
    {"Grid", false},
    {"Nets", false},
    {"PCB", false},
    {"Color Schemes", false},
    {"Font Mappings", false},
    {"New Sheet", false},
    {"Global Nets", false},
    {"Run on Startup", false},
    {"New Object", false},
    {"Empty", false},
    {"Special Components", true},
    {"Central Library", true},
    {"Netlist Project", true},
    {"Borders", true},
    {"Symbol Libraries", true},
    {"NetNameDelimiter", true},
    {"Fixed Functions", true},
    {"PartBookDialog", true},
    {"Display", false},
    {"Objects", false},
};

TEST(InternalFactory, HasThePagesOfAProjectOnlyWhileOneIsOpen) {
    const testsupport::Installation installation;
    testsupport::writeFile(installation.user() / "board.prj", "[DesignInfo]\n");
    std::string error;
    const auto project =
        NProjectTools::COpenProject::open((installation.user() / "board.prj").string(), error);
    ASSERT_NE(project, nullptr) << error;
    CFactoryEx with;
    registerInternalPages(with, &project->configuration());
    Orv::CProjectConfiguration none;
    for (Orv::CProjectConfiguration* closed : {&none, static_cast<Orv::CProjectConfiguration*>(nullptr)}) {
        CFactoryEx without;
        registerInternalPages(without, closed);
        for (const PageRow& row : kPages) {
            EXPECT_TRUE(with.hasPage(row.key)) << row.key;
            EXPECT_EQ(without.hasPage(row.key), !row.needsProject) << row.key;
        }
    }
}

TEST(InternalFactory, MakesAWindowForEachOfItsPagesAndKnowsKeysExactly) {
    const testsupport::Installation installation;
    Orv::iAppConfiguration configuration;
    ASSERT_TRUE(configuration.load());
    CFactoryEx factory;
    factory.setConfigurations(&configuration, nullptr);
    registerInternalPages(factory, nullptr);
    QWidget parent;
    for (const char* key : {"Metrics", "Grid", "Nets", "PCB", "Empty"}) {
        CPropDialogTemplate* page = factory.createPage(key, &parent);
        ASSERT_NE(page, nullptr) << key;
        EXPECT_TRUE(page->hasWindow()) << key;
        EXPECT_EQ(page->parentWidget(), &parent) << key;
        EXPECT_TRUE(page->isHidden()) << key;
    }
    EXPECT_FALSE(factory.hasPage("grid"));
    EXPECT_EQ(factory.createPage("grid", &parent), nullptr);
    factory.removePage("no such page");
    factory.removePage("Grid");
    EXPECT_FALSE(factory.hasPage("Grid"));
}

} // namespace
