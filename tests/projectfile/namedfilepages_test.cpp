// The pages that write a file which the project names, in the dialog: a save that fails, and a store of
// another page while they hold edits.

#include "dialog/pages/borders/attributesgrid.h"
#include "dialog/pages/borders/bordersgrid.h"
#include "dialog/pages/project/projectdialog.h"
#include "dialog/projectfile/ownplace.h"
#include "ovsettings/showsettingsdialog.h"
#include "platform/writtenplace.h"
#include "suite/bordersymbolsfile.h"
#include "suite/specialcomponentsfile.h"
#include "tests/support/projectfixture.h"

using namespace testsupport;

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;
using Table = Orv::IBorderSymbols::Table;

constexpr int kPortIn = 0;
constexpr int kGround = 10;

class NamedFilePages : public ProjectPages {
protected:
    NamedFilePages() {
        installation_.writeCatalogue(installation_.category("Elsewhere", "Advanced") +
                                     installation_.category("Borders", "Borders") +
                                     installation_.category("Special Components", "Special Components") +
                                     installation_.category("Project", "Netlist Project"));
        EXPECT_TRUE(appConfig_.load());
        openNew();
    }
    void openNew() {
        writeFile(directory() / "lib.lmc", "[CentralLibrary]\n[Partitions.Symbols]\nb=b\n"
                                           "[SpecialSymbols.Border]\nSymbol#0=b:NEW\n"
                                           "[SpecialSymbols.Port]\nSymbol#0=b:PORT\n");
        for (const std::string name : {"mine", "other"}) {
            writeFile(directory() / (name + ".ini"),
                      "[Borders]\nASHEETL=b:" + name + "\n[Properties]\nTITLE=" + name + "\n");
            writeFile(directory() / (name + ".pin"), "[Ground]\nSymbol#0=b:" + name + "\n");
        }
        openProject("[DesignInfo]\nBorderSymbols=" + path("mine.ini") +
                    "\nPinComponents=" + path("mine.pin") + "\nCentralLibrary=" + path("lib.lmc") + "\n");
    }

    std::string path(const std::string& name) const { return (directory() / name).string(); }

    void run(const std::function<void(QDialog& dialog)>& script) {
        whenDialog(script);
        ovsettings::showSettingsDialog(appConfig_, project(), nullptr);
    }
    static void chooseFirstSymbol() {
        whenDialog([](QDialog& chooser) {
            QTest::keyClick(chooser.focusWidget(), Qt::Key_Down);
            press(chooser, "OK");
        });
    }
    /// Gives the portrait of size A a symbol, and the title another value.
    static void editBorders(QDialog& dialog) {
        selectCategory(dialog, "Borders");
        chooseFirstSymbol();
        clickCell(*dialog.findChild<ovsettings::CBordersGrid*>(), 2, 3);
        whenDialog([](QDialog& properties) {
            auto& grid = *properties.findChild<ovsettings::CAttributesGrid*>();
            grid.setCurrentCell(1, 2);
            QTest::keyClicks(&grid, "n");
            press(properties, "OK");
        });
        press(dialog, "Properties");
    }
    /// Adds a symbol to a list that is empty.
    static void editComponents(QDialog& dialog) {
        selectCategory(dialog, "Special Components");
        chooseFirstSymbol();
        press(dialog, "New");
    }

    void expectStored(const std::string& name) const {
        NProjectTools::CBorderSymbolsFile borders;
        borders.Reload(path(name + ".ini"));
        EXPECT_EQ(borders.GetTable(), (Table{{"ASHEETL", "b:" + name}, {"ASHEETP", "b:NEW"}}));
        EXPECT_EQ(borders.GetProperties().at(0).second, "n");
        NProjectTools::CSpecialComponentsFile components;
        components.Reload(path(name + ".pin"));
        EXPECT_EQ(components.GetCategory(kPortIn), Names{"b:PORT"});
        EXPECT_EQ(components.GetCategory(kGround), Names{"b:" + name});
    }
};

TEST_F(NamedFilePages, AFailedSaveIsToldAndKeepsTheEditsInTheOpenDialog) {
    const ProjectErrors quiet;
    struct {
        const char* file;
        void (*edit)(QDialog& dialog);
    } const rows[] = {{"mine.ini", &editBorders}, {"mine.pin", &editComponents}};
    run([&](QDialog& dialog) {
        for (const auto& row : rows) {
            row.edit(dialog);
            const std::string text = readFile(path(row.file));
            fs::remove(path(row.file));
            fs::create_directory(path(row.file));
            const auto refused = [&](const char* button) {
                const SeenBox box = boxDuring([&] { press(dialog, button); });
                EXPECT_EQ(box.icon, QMessageBox::Critical);
                EXPECT_TRUE(box.text.starts_with(path(row.file) + ": ")) << box.text;
                QApplication::processEvents();
                EXPECT_TRUE(dialog.isVisible()) << button;
            };
            for (const char* button : {"OK", "OK", "Apply", "OK"})
                refused(button);
            if (row.edit == &editBorders)
                boxDuring([&] { selectCategory(dialog, "Elsewhere"); }, "No");
            else
                selectCategory(dialog, "Elsewhere");
            refused("OK");
            // What is not saved is not the host's: it has what stands in the files.
            auto& borders = dynamic_cast<Orv::IBorderSymbols&>(*project().borderSymbols);
            EXPECT_EQ(borders.GetTable().contains("ASHEETP"), row.edit == &editComponents);
            EXPECT_EQ(borders.GetProperties().at(0).second, row.edit == &editComponents ? "n" : "mine");
            auto& components = dynamic_cast<Orv::ISpecialComponents&>(*project().pinComponents);
            EXPECT_TRUE(components.GetCategory(kPortIn).empty());
            fs::remove(path(row.file));
            writeFile(path(row.file), text);
        }
        press(dialog, "OK");
    });
    expectStored("mine");
}

TEST_F(NamedFilePages, AnotherPagesStoreLeavesUnsavedEditsToBeStored) {
    const struct {
        const char* name;
        bool byPage; ///< and not by another program
    } rows[] = {{"mine", true}, {"other", true}, {"other", false}};
    for (const auto& row : rows) {
        const std::string name = row.name;
        openNew();
        run([&](QDialog& dialog) {
            editBorders(dialog);
            boxDuring([&] { editComponents(dialog); }, "No");
            if (!row.byPage) {
                onDisk()->SetValue("DesignInfo", "BorderSymbols", path(name + ".ini"));
                onDisk()->SetValue("DesignInfo", "PinComponents", path(name + ".pin"));
                return press(dialog, "OK");
            }
            selectCategory(dialog, "Project");
            auto& page = *dialog.findChild<ovsettings::CProjectDialog*>();
            testsupport::type(*find<QLineEdit>(page, "Border Symbols"), path(name + ".ini"));
            testsupport::type(*find<QLineEdit>(page, "Special Components"), path(name + ".pin"));
            press(dialog, "Apply");
            press(dialog, "OK");
        });
        expectStored(name);
    }
}

TEST_F(NamedFilePages, AFileThatNobodyHasReadIsReadOnceASaveOfItWasRefused) {
    const ProjectErrors quiet;
    onDisk()->SetValue("DesignInfo", "BorderSymbols", path("other.ini"));
    onDisk()->SetValue("DesignInfo", "PinComponents", path("other.pin"));
    run([&](QDialog& dialog) {
        editBorders(dialog);
        boxDuring([&] { press(dialog, "Apply"); });
        press(dialog, "Apply");
        editComponents(dialog);
        boxDuring([&] { press(dialog, "OK"); });
        press(dialog, "OK");
    });
    expectStored("other");
}

TEST_F(NamedFilePages, EditsOfAFileThatIsNamedNoMoreAreToldAtACommitAndStayForTheNextOne) {
    const struct {
        const char *page, *field, *name;
        void (*edit)(QDialog& dialog);
    } rows[] = {{"Borders", "Border Symbols", "mine.ini", &editBorders},
                {"Special Components", "Special Components", "mine.pin", &editComponents}};
    run([&](QDialog& dialog) {
        for (const auto& row : rows) {
            row.edit(dialog);
            if (row.edit == &editBorders)
                boxDuring([&] { selectCategory(dialog, "Project"); }, "No");
            selectCategory(dialog, "Project");
            auto& field = *find<QLineEdit>(*dialog.findChild<ovsettings::CProjectDialog*>(), row.field);
            testsupport::type(field, "");
            EXPECT_EQ(boxDuring([&] { press(dialog, "Apply"); }).text,
                      std::string("The changes of \"") + row.page +
                          "\" cannot be saved: the project names no file for them.");
            selectCategory(dialog, row.page);
            selectCategory(dialog, "Project"); // without a question: Yes could do nothing
            testsupport::type(field, path(row.name));
            press(dialog, "Apply");
        }
        press(dialog, "OK");
    });
    expectStored("mine");
}

TEST_F(NamedFilePages, AFileOutsideOfTheProjectIsAskedAboutOnceAndByTheNameThatItReallyHas) {
    const TemporaryDirectory elsewhere;
    const struct {
        const char *key, *file, *link, *page;
        void (*edit)(QDialog& dialog);
    } rows[] = {{"BorderSymbols", "mine.ini", "b.ini", "Borders", &editBorders},
                {"PinComponents", "mine.pin", "s.pin", "Special Components", &editComponents}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.page);
        const std::string real = fs::canonical(elsewhere.path()) / row.file;
        fs::rename(path(row.file), real);
        fs::create_directory_symlink(elsewhere.path(), path(std::string("d") + row.link));
        fs::create_symlink(fs::path(std::string("d") + row.link) / row.file, path(row.link));
        openProject("[DesignInfo]\n" + std::string(row.key) + "=" + row.link + "\nCentralLibrary=lib.lmc\n");
        const std::string text = readFile(real);
        const auto isAskedAbout = [&](const SeenBox& box) {
            EXPECT_EQ(box, (SeenBox{"Project Settings",
                                    real + "\n\nThe project names this file, which lies outside of the "
                                           "project, its libraries and the working directories.\nWrite to it "
                                           "anyway?",
                                    QMessageBox::Question}));
        };
        run([&](QDialog& dialog) {
            selectCategory(dialog, row.page);
            press(dialog, "Apply"); // without edits there is nothing to ask
            row.edit(dialog);
            whenModal([](QWidget& question) { // Escape answers nothing, Enter No
                QTest::keyClick(&question, Qt::Key_Escape);
                QTest::keyClick(&question, Qt::Key_Return);
            });
            press(dialog, "OK");
            for (const char* button : {"Apply", "OK"}) {
                const SeenBox box = boxDuring([&] { press(dialog, button); });
                EXPECT_EQ(box.icon, QMessageBox::Critical);
                EXPECT_TRUE(box.text.starts_with(real + ": cannot save: ")) << box.text;
                QApplication::processEvents();
                EXPECT_TRUE(dialog.isVisible());
            }
            EXPECT_EQ(readFile(real), text);
            press(dialog, "Cancel");
        });
        run([&](QDialog& dialog) {
            row.edit(dialog);
            isAskedAbout(boxDuring([&] { press(dialog, "Apply"); }, "Yes"));
            EXPECT_NE(readFile(real), text);
            fs::remove(real);
            row.edit(dialog);
            press(dialog, "OK");
            EXPECT_TRUE(fs::exists(real));
        });
        // Another project has to ask for itself, and so has this one where its link leads elsewhere.
        fs::remove(path(row.link));
        fs::create_symlink(elsewhere / "new", path(row.link));
        run([&](QDialog& dialog) {
            row.edit(dialog);
            boxDuring([&] { press(dialog, "Apply"); }, "No");
            EXPECT_FALSE(fs::exists(elsewhere / "new"));
            press(dialog, "Cancel");
        });
    }
}

TEST_F(NamedFilePages, AFileThatTheUserHasNamedHimselfIsNotAskedAbout) {
    const TemporaryDirectory elsewhere;
    // The second one's name begins with the project's.
    const fs::path neighbour = directory().string() + "2";
    for (const fs::path& place : {elsewhere.path(), neighbour}) {
        fs::create_directory(place);
        openNew();
        run([&](QDialog& dialog) {
            selectCategory(dialog, "Project");
            auto& page = *dialog.findChild<ovsettings::CProjectDialog*>();
            testsupport::type(*find<QLineEdit>(page, "Border Symbols"), (place / "mine.ini").string());
            testsupport::type(*find<QLineEdit>(page, "Special Components"), (place / "mine.pin").string());
            press(dialog, "Apply");
            editBorders(dialog);
            boxDuring([&] { editComponents(dialog); }, "No");
            press(dialog, "OK");
        });
        EXPECT_TRUE(fs::exists(place / "mine.ini") && fs::exists(place / "mine.pin")) << place;
    }
    fs::remove_all(neighbour);
}

TEST_F(NamedFilePages, APlaceIsTheProjectsOwnBelowItsDirectoriesAndThoseOfTheInstallation) {
    const TemporaryDirectory elsewhere;
    for (const std::string name : {"library/sym", "parts", ".hidden/library/sym", "plain"})
        fs::create_directories(elsewhere / name);
    writeFile(elsewhere / "parts/parts.lmc", "[CentralLibrary]\n");
    openProject("[DesignInfo]\nCentralLibrary=" + (elsewhere / "parts/parts.lmc").string() +
                "\n[SymbolLibraries]\nLocation#0=" + (elsewhere / "library").string() +
                "\nLocation#1=" + (elsewhere / ".hidden/library").string() +
                "\nLocation#2=" + (elsewhere / "plain").string() + "\n");
    fs::create_directory(path("below"));
    fs::create_symlink(elsewhere / "new.ini", path("out.ini"));
    fs::create_symlink(elsewhere.path(), path("out"));
    fs::create_symlink(directory(), elsewhere / "in");
    for (const auto& made : {installation_.user() / ".hidden", installation_.site(),
                             elsewhere / "library/.git", fs::path(directory().string() + "2")})
        fs::create_directories(made);
    const struct {
        fs::path path;
        bool isOwn;
    } rows[] = {
        {path("new.ini"), true},
        {path(".hidden.ini"), false},
        {elsewhere / "plain/new.ini", false},
        {path("below/new.ini"), true},
        {elsewhere / "in/new.ini", true},
        {elsewhere / "library/new.ini", true},
        {elsewhere / "parts/new.ini", true},
        {installation_.user() / ".hidden/new.ini", true},
        {installation_.site() / "new.ini", true},
        {installation_.standard() / "new.ini", true},
        {installation_.home() / "new.ini", true},
        {path("out.ini"), false},
        {path("out/new.ini"), false},
        {path("below/../../new.ini"), false},
        {directory().string() + "2/new.ini", false},
        {elsewhere / "new.ini", false},
        {elsewhere / "library/.profile", false},
        {elsewhere / "library/.git/config", false},
        {elsewhere / ".hidden/library/new.ini", false},
    };
    for (const auto& row : rows) {
        const auto place = platform::placeOfWrite(row.path);
        ASSERT_TRUE(place) << row.path;
        EXPECT_EQ(ovsettings::isOwnPlace(*place, project()), row.isOwn) << row.path;
    }
    EXPECT_FALSE(platform::placeOfWrite(path("none/new.ini")));
    fs::remove(directory().string() + "2");
}

TEST_F(NamedFilePages, ANewBorderSizeIsScrolledToWhole) {
    run([&](QDialog& dialog) {
        selectCategory(dialog, "Borders");
        whenDialog([](QDialog& size) {
            QTest::keyClicks(controlByCaption(size, "Width"), "3");
            QTest::keyClicks(controlByCaption(size, "Height"), "7");
            press(size, "OK");
        });
        press(dialog, "Add Custom");
        auto& grid = *dialog.findChild<ovsettings::CBordersGrid*>();
        EXPECT_EQ(grid.currentRow(), grid.rowCount());
        EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(grid.currentIndex())));
        press(dialog, "Cancel");
    });
}

} // namespace
