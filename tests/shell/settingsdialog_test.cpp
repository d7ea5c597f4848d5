#include "dialog/shell/internalpages.h"
#include "dialog/shell/noticelabel.h"
#include "dialog/shell/stringtable.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/waitcursor.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "suite/openproject.h"
#include "tests/support/widgets.h"

#include <gtest/gtest-spi.h>

using namespace ovsettings;

namespace {

TEST(MessageBox, ShowsNoWaitCursorAndItsTextAsItStands) {
    const WaitCursor wait;
    Qt::CursorShape shape = Qt::WaitCursor;
    testsupport::whenModal([&shape](QWidget& box) {
        shape = QGuiApplication::overrideCursor()->shape();
        testsupport::textsWithoutEffect(box);
        box.close();
    });
    showMessage(nullptr, QString::fromStdString(testsupport::kActingText));
    EXPECT_EQ(shape, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST(MessageBox, QuestionIsEndedByItsTwoButtonsAlone) {
    for (const bool yes : {true, false}) {
        testsupport::whenModal([yes](QWidget& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            box.close();
            dynamic_cast<QDialog&>(box).reject();
            EXPECT_TRUE(box.isVisible());
            testsupport::press(box, yes ? "Yes" : "No");
        });
        EXPECT_EQ(askYesNo(nullptr, QStringLiteral("text"), QStringLiteral("title")), yes);
    }
}

TEST(MessageBox, NobodyAnswersFailsTheTestAndDoesNotHangIt) {
    bool answer = true;
    EXPECT_NONFATAL_FAILURE(answer = askYesNo(nullptr, QStringLiteral("Anyone?"), QString()),
                            "nobody answered the message box: Anyone?");
    EXPECT_FALSE(answer);
}

TEST(NoticeLabel, ShowsItsNoticesAsTheyStand) {
    NoticeLabel label;
    label.addNotice(QString::fromStdString(testsupport::kActingText));
    label.addNotice(QStringLiteral("Lost:\nGrid"));
    const auto texts = testsupport::textsWithoutEffect(label);
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_TRUE(testsupport::contains(texts[0], "X\nLost:\nGrid"));
    EXPECT_TRUE(testsupport::contains(texts[1], "X Lost: Grid"));
}

TEST(StringTables, HaveEveryCaptionInEveryLanguage) {
    constexpr unsigned kJapanese = 1041;
    constexpr unsigned kUnused = 20034;
    const unsigned last = lastStringId(kEnglish);
    EXPECT_GT(last, kUnused);
    EXPECT_EQ(lastStringId(kJapanese), last);
    for (unsigned id = 20001; id <= last; ++id) {
        for (const unsigned language : {kEnglish, kJapanese})
            EXPECT_EQ(loadString(id, language).has_value(), id != kUnused) << id << " in " << language;
    }
    EXPECT_FALSE(loadString(20001, 1031).has_value());
}

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
        for (const PageRow& page : internalPages()) {
            EXPECT_TRUE(with.hasPage(page.key)) << page.key;
            EXPECT_EQ(without.hasPage(page.key), page.condition == PageCondition::always) << page.key;
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
    for (const PageRow& row : internalPages()) {
        if (row.condition != PageCondition::always || row.key == std::string_view("Color Schemes"))
            continue; // that one would miss its file
        CPropDialogTemplate* page = factory.createPage(row.key, &parent);
        ASSERT_NE(page, nullptr) << row.key;
        EXPECT_TRUE(page->hasWindow() && page->isHidden()) << row.key;
        EXPECT_EQ(page->parentWidget(), &parent) << row.key;
        EXPECT_EQ(page->pageName(), std::string(row.name));
        EXPECT_EQ(page->dialogId(), row.templateId) << row.key;
    }
    EXPECT_FALSE(factory.hasPage("grid"));
    EXPECT_EQ(factory.createPage("grid", &parent), nullptr);
    factory.removePage("no such page");
    factory.removePage("Grid");
    EXPECT_FALSE(factory.hasPage("Grid"));
}

} // namespace
