#include "dialog/pages/project/fixedfunctionsdialog.h"

#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "tests/support/askingupdater.h"
#include "tests/support/projectfixture.h"

#include <algorithm>

using ovsettings::CFixedFunctionsDialog;
using testsupport::press;

namespace {

using Names = std::vector<std::string>;

/// Keeps the list in an order of its own.
class SortingFile : public NProjectTools::CProjectFile {
    void SetFixedFunctions(const Names& functions) override {
        Names sorted = functions;
        std::sort(sorted.begin(), sorted.end());
        CProjectFile::SetFixedFunctions(sorted);
    }
};

class FixedFunctions : public ProjectPages {
protected:
    CFixedFunctionsDialog& openWith(const Names& functions) {
        openProject();
        project().projectFile->SetFixedFunctions(functions);
        return openPage<CFixedFunctionsDialog>("Fixed Functions");
    }
    Names onDiskNow() const {
        Names functions;
        onDisk()->GetFixedFunctions(functions);
        return functions;
    }
    static QListWidget& list(QWidget& root) {
        return *testsupport::find<QListWidget>(root, "Fixed Functions");
    }
    static void key(QWidget& root, int row, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QApplication::setActiveWindow(root.window());
        list(root).setCurrentRow(row);
        list(root).setFocus();
        QTest::keyClick(&list(root), key, modifiers);
    }
    static void typeIn(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
};

TEST_F(FixedFunctions, WhatCouldNotBeWrittenIsTriedAgain) {
    CFixedFunctionsDialog& page = openWith({"A"});
    key(page, 0, Qt::Key_Delete);
    const std::string text = testsupport::readFile(projectPath());
    std::filesystem::remove(projectPath());
    const ProjectErrors told;
    EXPECT_TRUE(page.onApply());
    boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "Yes");
    EXPECT_TRUE(page.isModified());
    testsupport::writeFile(projectPath(), text);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(onDiskNow(), Names{});
}

TEST_F(FixedFunctions, AListThatTheHostKeepsInItsOwnOrderIsStored) {
    CFixedFunctionsDialog& page = openWith({"A", "C"});
    SortingFile file;
    ASSERT_TRUE(file.openProjectFile(projectPath().string()));
    Orv::IProjectFileData* const before = std::exchange(project().projectFile, &file);
    key(page, 0, Qt::Key_Insert);
    typeIn("B");
    EXPECT_TRUE(page.onApply());
    EXPECT_FALSE(page.isModified());
    EXPECT_EQ(onDiskNow(), (Names{"A", "B", "C"}));
    project().projectFile = before;
}

TEST_F(FixedFunctions, EachKindOfChangeIsStoredAndNoneIsNot) {
    struct Row {
        const char* what;
        std::function<void(QWidget&)> change;
        Names stored;
    };
    const Row rows[] = {
        {"nothing", [](QWidget&) {}, {"B", "\xFF", "A"}},
        {"delete", [](QWidget& page) { key(page, 0, Qt::Key_Delete); }, {"\xFF", "A"}},
        {"move", [](QWidget& page) { key(page, 2, Qt::Key_Up, Qt::AltModifier); }, {"B", "A", "\xFF"}},
        {"add, still in its editor",
         [](QWidget& page) {
             key(page, 0, Qt::Key_Insert);
             typeIn("C");
         },
         {"B", "\xFF", "A", "C"}},
        {"delete all",
         [](QWidget& page) {
             while (list(page).count() > 0)
                 key(page, 0, Qt::Key_Delete);
         },
         {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        CFixedFunctionsDialog& page = openWith({"B", "\xFF", "A"});
        const std::string before = testsupport::readFile(projectPath());
        row.change(page);
        EXPECT_EQ(page.isModified(), row.stored != Names({"B", "\xFF", "A"}));
        EXPECT_TRUE(page.onApply());
        EXPECT_FALSE(page.isModified());
        EXPECT_EQ(onDiskNow(), row.stored);
        EXPECT_EQ(testsupport::readFile(projectPath()) == before, row.stored == Names({"B", "\xFF", "A"}));
    }
}

TEST_F(FixedFunctions, ApplyTellsTheHostTwiceWithoutNamingThePageAndOkOnceWithItsName) {
    installation_.writeCatalogue(installation_.category("Fixed Functions", "Fixed Functions"));
    ASSERT_TRUE(appConfig_.load());
    openProject();
    project().projectFile->SetFixedFunctions({"A", "B", "C"});
    AskingUpdater updater({"Fixed Functions"});
    const std::set<std::string> none, named{"Fixed Functions"};
    testsupport::whenDialog([&](QDialog& dialog) {
        press(dialog, "Apply");
        EXPECT_EQ(updater.notifications, (std::vector{none}));
        key(dialog, 0, Qt::Key_Delete);
        press(dialog, "Apply");
        EXPECT_EQ(updater.notifications, (std::vector{none, none, none}));
        EXPECT_EQ(onDiskNow(), (Names{"B", "C"}));
        key(dialog, 0, Qt::Key_Delete);
        press(dialog, "OK");
    });
    ovsettings::showSettingsDialog(appConfig_, project(), &updater);
    EXPECT_EQ(updater.notifications, (std::vector{none, none, none, named}));
    EXPECT_EQ(onDiskNow(), (Names{"C"}));
}

TEST_F(FixedFunctions, LeavingAsksOnceAndKeepsOrDropsTheChange) {
    for (const bool keep : {true, false}) {
        CFixedFunctionsDialog& page = openWith({"A", "B"});
        EXPECT_TRUE(page.onLeave()) << "nothing has changed";
        key(page, 0, Qt::Key_Delete);
        EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, keep ? "Yes" : "No"), kSaveQuestion);
        EXPECT_EQ(onDiskNow(), keep ? Names({"B"}) : Names({"A", "B"}));
        EXPECT_EQ(list(page).count(), keep ? 1 : 2);
        EXPECT_FALSE(page.isModified());
    }
}

} // namespace
