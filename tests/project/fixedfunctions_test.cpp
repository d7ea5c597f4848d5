#include "details/pages/project/fixedfunctionsdialog.h"

#include "orv/projectconfiguration.h"
#include "orv/updater.h"
#include "ovsettings/showsettingsdialog.h"
#include "ovsettings/updatehost.h"
#include "tests/project/projectfixture.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

#include <algorithm>

using ovsettings::CFixedFunctionsDialog;

namespace {

using Names = std::vector<std::string>;

class AskingUpdater : public Orv::IUpdater {
public:
    bool updateSettings(ovsettings::IUpdateHost* host) override {
        changed.push_back(host->isPageChanged("Fixed Functions"));
        return true;
    }
    std::vector<bool> changed;
};

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
    static void press(QWidget& dialog, const char* button) {
        QTest::mouseClick(testsupport::find<QPushButton>(dialog, button), Qt::LeftButton);
    }
};

TEST_F(FixedFunctions, WhatCouldNotBeWrittenIsTriedAgain) {
    CFixedFunctionsDialog& page = openWith({"A"});
    key(page, 0, Qt::Key_Delete);
    const std::string text = testsupport::readFile(projectPath());
    std::filesystem::remove(projectPath());
    NProjectTools::CProjectFile::SetErrorHandler([](const std::string&) {});
    EXPECT_TRUE(page.onApply());
    boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "Yes");
    NProjectTools::CProjectFile::SetErrorHandler({});
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
        {"rename",
         [](QWidget& page) {
             key(page, 1, Qt::Key_F2);
             typeIn("D");
         },
         {"B", "D", "A"}},
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
    testsupport::writeFile(installation_.standard() / "settings.xml",
                           "<settings><dialog><name>Fixed Functions</name><classid>Fixed Functions</classid>"
                           "<localization>internal</localization></dialog></settings>");
    ASSERT_TRUE(appConfig_.load());
    openProject();
    project().projectFile->SetFixedFunctions({"A", "B", "C"});
    AskingUpdater updater;
    testsupport::whenDialog([&](QDialog& dialog) {
        press(dialog, "Apply");
        EXPECT_EQ(updater.changed, (std::vector{false}));
        key(dialog, 0, Qt::Key_Delete);
        press(dialog, "Apply");
        EXPECT_EQ(updater.changed, (std::vector{false, false, false}));
        EXPECT_EQ(onDiskNow(), (Names{"B", "C"}));
        key(dialog, 0, Qt::Key_Delete);
        press(dialog, "OK");
    });
    ovsettings::showSettingsDialog(appConfig_, project(), &updater);
    EXPECT_EQ(updater.changed, (std::vector{false, false, false, true}));
    EXPECT_EQ(onDiskNow(), (Names{"C"}));
}

TEST_F(FixedFunctions, LeavingAsksOnceAndKeepsOrDropsTheChange) {
    const SeenBox question{"Project Settings", "Do you want to save the changes you've made in this page?",
                           QMessageBox::Question};
    for (const bool keep : {true, false}) {
        CFixedFunctionsDialog& page = openWith({"A", "B"});
        EXPECT_TRUE(page.onLeave()) << "nothing has changed";
        key(page, 0, Qt::Key_Delete);
        EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, keep ? "Yes" : "No"), question);
        EXPECT_EQ(onDiskNow(), keep ? Names({"B"}) : Names({"A", "B"}));
        EXPECT_EQ(list(page).count(), keep ? 1 : 2);
        EXPECT_FALSE(page.isModified());
    }
}

} // namespace
