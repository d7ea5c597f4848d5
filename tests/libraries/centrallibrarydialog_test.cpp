#include "dialog/pages/libraries/centrallibrarydialog.h"

#include "orv/projectfiledata.h"
#include "suite/locationmap.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>

using ovsettings::CCentralLibraryDialog;

namespace {

const char* const kFileCaptions[] = {"Special Components", "Border Symbols", "Bus Contents"};

class CentralLibraryPage : public ProjectPages {
protected:
    CCentralLibraryDialog& open(const std::string& text = "[DesignInfo]\n") {
        openProject(text);
        return openPage<CCentralLibraryDialog>("Central Library");
    }
    QCheckBox& useServer() { return control<QCheckBox>("Use Remote Server Configuration Manager"); }
    std::string inDirectory(const std::string& name) const { return (directory() / name).string(); }
};

struct ReloadLog : Orv::IProjectFileConsumer {
    explicit ReloadLog(std::vector<std::string>& log) : log_(log) {}
    virtual ~ReloadLog() = default;
    void Reload(const std::string& path) override { log_.push_back(path); }
    std::vector<std::string>& log_;
};

} // namespace

TEST_F(CentralLibraryPage, WritesWhatChangedInItsOrderAndHasItReadAgain) {
    CCentralLibraryDialog& page = open();
    std::vector<std::string> reloaded;
    ReloadLog log(reloaded);
    project().pinComponents = project().borderSymbols = project().busContents = &log;
    const std::string soon = inDirectory("Not yet.lmc  ");
    type("Central Library Path", soon);
    for (const char* caption : kFileCaptions)
        type(caption, inDirectory(std::string(caption) + ".ini"));
    QTest::keyClick(&useServer(), Qt::Key_Space);
    type("Server Name", "Zürich");
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(reloaded,
              (std::vector<std::string>{inDirectory("Special Components.ini"),
                                        inDirectory("Border Symbols.ini"), inDirectory("Bus Contents.ini")}));
    EXPECT_EQ(stored("CentralLibrary"), soon) << "one that does not exist is stored as it was typed";
    EXPECT_EQ(onDisk()->GetServerName(), "Zürich");

    type("Border Symbols", "");
    QTest::keyClick(&useServer(), Qt::Key_Space);
    EXPECT_FALSE(control<QLineEdit>("Server Name").isEnabled());
    project().borderSymbols = nullptr;
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(reloaded.size(), 3u);
    EXPECT_EQ(stored("BorderSymbols"), "");
    EXPECT_EQ(onDisk()->GetServerName(), "");
    EXPECT_EQ(stored("Bus_Contents"), inDirectory("Bus Contents.ini"));
}

TEST_F(CentralLibraryPage, AStoreOfUnchangedTextsKeepsTheFile) {
    // Two of the names are no UTF-8, and one is longer than its field takes.
    const std::string text = "; ours\n[DesignInfo]\nBus_Contents = /bus.ini\nPinComponents=/G\xe4ng.pin\n"
                             "BorderSymbols=/" +
                             std::string(40'000, 'x') + "\nServerName=b\xfcro\n";
    CCentralLibraryDialog& page = open(text);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(testsupport::readFile(projectPath()), text);
}

TEST_F(CentralLibraryPage, FindsSoftNamesInTheMapOfItsOwnProject) {
    testsupport::writeFile(directory() / "location.map", "$HERE .\n");
    CCentralLibraryDialog& page = open("[DesignInfo]\nPinComponents=$HERE/new.pin\n");
    InitLocationMap("", 0);
    EXPECT_TRUE(page.onLeave());
}

TEST_F(CentralLibraryPage, TakesWhatIsPastedUpToTheLineBreak) {
    CCentralLibraryDialog& page = open();
    control<QLineEdit>("Bus Contents").setText(QStringLiteral("/bus.ini\nrest"));
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("Bus_Contents"), "/bus.ini");
}

TEST_F(CentralLibraryPage, TriesAgainWhatCouldNotBeWritten) {
    CCentralLibraryDialog& page = open();
    type("Bus Contents", "/bus.ini");
    const ProjectErrors told;
    const std::string text = testsupport::readFile(projectPath());
    std::filesystem::remove(projectPath());
    EXPECT_TRUE(page.onApply());
    EXPECT_FALSE(told.errors.empty());
    testsupport::writeFile(projectPath(), text);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("Bus_Contents"), "/bus.ini");
}

TEST_F(CentralLibraryPage, TellsTheFirstFieldThatItRefuses) {
    testsupport::writeFile(directory() / "old.lmc", "of another age\n");
    const std::string oldLibrary =
        "The selected Central Library has not been updated to the current release\n"
        "and cannot be used to create a new design. Select a different Central Library or update\n"
        "the specified Central Library by opening it in Library Manager in Standalone mode or use the \n"
        "Update Central Library utility before continuing. Once the library has been updated,\n"
        "it can be selected as a Central Library for new projects.";
    const struct {
        const char *caption, *typed;
        std::string onStore, onLeave;
    } rows[] = {
        {"Central Library Path", "  OLD.lmc\t", oldLibrary, oldLibrary},
        {"Bus Contents", "$NOWHERE\\x", "Invalid Bus Contents file.", "Invalid Bus Contents file location."},
        {"Border Symbols", "x.ini", "Invalid Borders Symbol file.", "Invalid Borders Symbol file location."},
        {"Special Components", "%OV_UNSET%\\x", "Invalid Special Components file.",
         "Invalid Special Components file location."},
    };
    CCentralLibraryDialog& page = open();
    const std::string before = testsupport::readFile(projectPath());
    for (const auto& row : rows) { // each one comes before those that are refused already
        type(row.caption, std::string(row.caption) == "Central Library Path" ? "  " + inDirectory("OLD.lmc\t")
                                                                             : row.typed);
        EXPECT_EQ(boxDuring([&] { EXPECT_FALSE(page.onApply()); }),
                  (SeenBox{"Error", row.onStore, QMessageBox::Critical}));
        EXPECT_EQ(boxDuring([&] { EXPECT_FALSE(page.onLeave()); }),
                  (SeenBox{"Error", row.onLeave, QMessageBox::Critical}));
    }
    EXPECT_EQ(testsupport::readFile(projectPath()), before) << "a refused page writes nothing";
}

TEST_F(CentralLibraryPage, AMissingServerNameStopsTheStoreBehindTheFiles) {
    CCentralLibraryDialog& page = open();
    type("Central Library Path", inDirectory("new.lmc"));
    type("Special Components", inDirectory("new.pin"));
    QTest::keyClick(&useServer(), Qt::Key_Space);
    EXPECT_EQ(boxDuring([&] { EXPECT_FALSE(page.onApply()); }),
              (SeenBox{"Error", "Server name is empty.", QMessageBox::Critical}));
    EXPECT_EQ(stored("PinComponents"), inDirectory("new.pin"));
    EXPECT_EQ(stored("CentralLibrary"), "");
    type("Server Name", "host");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("CentralLibrary"), inDirectory("new.lmc"));
}

TEST_F(CentralLibraryPage, AsksBeforeItIsLeftWithChanges) {
    std::filesystem::create_directories(directory() / "vanishing");
    CCentralLibraryDialog& page = open("[DesignInfo]\nBorderSymbols=/before.ini\n");
    EXPECT_TRUE(page.onLeave());

    type("Border Symbols", "/After.ini");
    type("Central Library Path", std::string(10'000, 'x'));
    EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "No"), kSaveQuestion);
    EXPECT_EQ(shown("Border Symbols"), "/before.ini");
    EXPECT_EQ(shown("Central Library Path"), "");

    type("Border Symbols", "/After.ini");
    EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "Yes"), kSaveQuestion);
    EXPECT_EQ(stored("BorderSymbols"), "/After.ini");
    page.onEnter();

    type("Border Symbols", inDirectory("vanishing\\x.ini"));
    testsupport::whenModal([&](QWidget& asked) {
        std::filesystem::remove(directory() / "vanishing");
        testsupport::answerNextMessageBox("OK");
        static_cast<QMessageBox&>(asked).button(QMessageBox::Yes)->click();
    });
    EXPECT_FALSE(page.onLeave()) << "the result of the store counts";
    EXPECT_EQ(stored("BorderSymbols"), "/After.ini");
}

TEST_F(CentralLibraryPage, BrowsesWithTheTextsOfEachField) {
    open();
    testsupport::writeFile(directory() / "parts.ini", "x");
    const struct {
        const char *caption, *filter, *name;
    } rows[] = {
        {"Central Library", "Central Library (*.lmc)", "*.lmc"},
        {"Special Components", "Special Components File (*.ini)", "*.pin"},
        {"Border Symbols", "Border Symbols File (*.ini)", "*.ini"},
        {"Bus Contents", "Bus Contents File (*.ini)", "*.ini"},
    };
    const auto buttons = window_.findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 4);
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        testsupport::whenModal([&](QWidget& modal) {
            auto& chooser = dynamic_cast<QFileDialog&>(modal);
            auto* name = chooser.findChild<QLineEdit*>();
            EXPECT_EQ(chooser.windowTitle().toStdString(), rows[i].caption);
            EXPECT_EQ(chooser.nameFilters().value(0).toStdString(), rows[i].filter);
            EXPECT_EQ(name->text().toStdString(), rows[i].name);
            auto* accept = chooser.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            accept->click();
            EXPECT_TRUE(chooser.isVisible()) << "a pattern is no file";
            name->setText(QStringLiteral("parts.ini"));
            accept->click();
        });
        QTest::mouseClick(buttons[static_cast<int>(i)], Qt::LeftButton);
    }
    EXPECT_EQ(shown("Special Components"), inDirectory("parts.ini"));
    EXPECT_EQ(shown("Central Library Path"), inDirectory("parts.ini"));
}

TEST_F(CentralLibraryPage, DoesNothingWithoutAProject) {
    Orv::CProjectConfiguration empty;
    for (Orv::CProjectConfiguration* none : {&empty, static_cast<Orv::CProjectConfiguration*>(nullptr)}) {
        CCentralLibraryDialog page(nullptr);
        page.setProjectConfiguration(none);
        page.createWindow(&window_);
        EXPECT_TRUE(page.onEnter() && page.onApply() && page.onLeave());
    }
}
