#include "tests/designs/designs.h"

#include "orv/projectfiledata.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/topleveldialogprovider.h"
#include "tests/support/projecterrors.h"

#include <QtWidgets/QAbstractItemView>

#include <set>
#include <sqlite3.h>

namespace {

using Names = std::vector<std::string>;

constexpr char kSymbols[] = "Symbol Partitions";
constexpr char kPdbs[] = "PDB Search Path";
constexpr char kScheme[] = "Search Path Scheme";
constexpr char kBlock[] = "Top level block";

TEST_F(Designs, PageShowsTheDesignAndStoresWhatTheUserChose) {
    openProject("TopBlock=ADC\nSearchScheme=Digital\nBackAnnotationBlocked=1\nConflictWinner=BE\n");
    run([&](QDialog& dialog) {
        EXPECT_EQ(captions(dialog), (Names{"main", "power"}));
        EXPECT_EQ(textsOf(combo(dialog, kBlock)), (Names{"TOP", "ADC", "DAC"}));
        EXPECT_EQ(combo(dialog, kBlock).currentText(), "ADC");
        EXPECT_EQ(textsOf(combo(dialog, kScheme)), (Names{"Default", "Digital", "Proto", "Local to design"}));
        EXPECT_EQ(combo(dialog, kScheme).currentText(), "Digital");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"logic"})); // without the partition that there is not
        EXPECT_EQ(lines(dialog, kPdbs), (Names{"pdbs/logic.pdb"}));
        EXPECT_FALSE(list(dialog, kSymbols).isEnabled()); // a scheme of type 0
        EXPECT_TRUE(testsupport::find<QCheckBox>(dialog, "Allow forward annotation")->isChecked());
        EXPECT_FALSE(testsupport::find<QCheckBox>(dialog, "Allow back annotation")->isChecked());
        EXPECT_TRUE(testsupport::find<QRadioButton>(dialog, "Back end always wins")->isChecked());

        choose(dialog, kBlock, "TOP");
        press(dialog, "Allow forward annotation");
        press(dialog, "Allow back annotation");
        press(dialog, "Front end always wins");
        choose(dialog, kScheme, "Proto");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"analog"}));
        EXPECT_TRUE(list(dialog, kSymbols).isEnabled());
        press(dialog, "OK");
    });
    auto stored = onDisk();
    EXPECT_EQ(stored.GetTopBlock("main"), "TOP");
    EXPECT_EQ(stored.GetSearchScheme("main"), "Proto");
    EXPECT_TRUE(stored.GetForwardAnnotationBlocked("main"));
    EXPECT_FALSE(stored.GetBackAnnotationBlocked("main"));
    EXPECT_EQ(stored.GetConflictWinner("main"), "FE");
    EXPECT_EQ(stored.GetSymbolPartitions("main"), (Names{"analog"}));
    EXPECT_EQ(stored.GetPdbSearchPath("main"), (Names{"pdbs/analog.pdb"}));
    EXPECT_EQ(stored.GetThirdPartitions("main"), (Names{"cells/smd.cel"}));
    EXPECT_TRUE(project_->configuration().topLevelChanged);
}

TEST_F(Designs, DefaultSchemeLeavesTheListsOfTheProject) {
    openProject("SearchScheme=(Default)\nSymbolPartition#0=old\n");
    run([&](QDialog& dialog) {
        EXPECT_EQ(combo(dialog, kScheme).currentText(), "Default");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"logic", "analog", "power"}));
        EXPECT_TRUE(testsupport::find<QRadioButton>(dialog, "Front end always wins")->isChecked());
        press(dialog, "OK");
    });
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"old"}));
    EXPECT_EQ(onDisk().GetSearchScheme("main"), "(Default)");
    EXPECT_EQ(onDisk().GetConflictWinner("main"), "FE");
    EXPECT_FALSE(project_->configuration().topLevelChanged);
}

TEST_F(Designs, AnEditedListBecomesTheDesignsOwn) {
    openProject("SearchScheme=(Default)\n");
    run([&](QDialog& dialog) {
        QListWidget& symbols = list(dialog, kSymbols);
        symbols.setCurrentRow(1);
        QTest::keyClick(&symbols, Qt::Key_Delete);
        EXPECT_EQ(combo(dialog, kScheme).currentText(), "Local to design");
        // A new line stands at the top and offers what is not listed.
        QTest::keyClick(&symbols, Qt::Key_Insert);
        auto* offered = symbols.viewport()->findChild<QComboBox*>();
        ASSERT_NE(offered, nullptr);
        EXPECT_EQ(textsOf(*offered), (Names{"analog"}));
        QTest::keyClick(offered, Qt::Key_Return);
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"analog", "logic", "power"}));
        symbols.setCurrentRow(0);
        QTest::keyClick(&symbols, Qt::Key_Down, Qt::AltModifier);
        press(dialog, "Apply");
        symbols.setCurrentRow(0);
        QTest::keyClick(&symbols, Qt::Key_Delete);
        choose(dialog, kScheme, "Digital");
        choose(dialog, kScheme, "Local to design");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"analog", "power"}));
        press(dialog, "Cancel");
    });
    EXPECT_EQ(onDisk().GetSearchScheme("main"), "{Local to Project}");
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"logic", "analog", "power"}));
    EXPECT_TRUE(project_->configuration().topLevelChanged);
}

TEST_F(Designs, AnEditedLineTakesTheFirstNameThatIsNotListed) {
    openProject("SearchScheme={Local to Project}\nSymbolPartition#0=logic\nSymbolPartition#1=power\n");
    run([&](QDialog& dialog) {
        QListWidget& symbols = list(dialog, kSymbols);
        const auto edit = [&](int row, Qt::Key begin, Qt::Key end) {
            symbols.setCurrentRow(row);
            QTest::keyClick(&symbols, begin);
            auto* offered = symbols.viewport()->findChildren<QComboBox*>().last(); // of the last edit
            const Names names = textsOf(*offered);
            QTest::keyClick(offered, end);
            return names;
        };
        EXPECT_EQ(edit(0, Qt::Key_F2, Qt::Key_Escape), (Names{"analog"}));
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"logic", "power"}));
        edit(0, Qt::Key_F2, Qt::Key_Return);
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"analog", "power"}));
        edit(0, Qt::Key_Insert, Qt::Key_Return);
        edit(1, Qt::Key_F2, Qt::Key_Return);
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"logic", "analog", "power"})) << "all are listed";
        press(dialog, "Cancel");
    });
}

TEST_F(Designs, ListsOfTheDesignComeBackAfterALookAtAnotherScheme) {
    openProject("SearchScheme={Local to Project}\nSymbolPartition#0=own\nPdbSearchPath#0=own.pdb\n");
    run([&](QDialog& dialog) {
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"own"}));
        QTest::keyClick(&list(dialog, kSymbols), Qt::Key_Insert);
        QTest::keyClick(list(dialog, kSymbols).viewport()->findChild<QComboBox*>(), Qt::Key_Return);
        choose(dialog, kScheme, "Default");
        EXPECT_EQ(lines(dialog, kPdbs), (Names{"pdbs/logic.pdb", "pdbs/analog.pdb"}));
        choose(dialog, kScheme, "Local to design");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"logic", "own"}));
        EXPECT_EQ(lines(dialog, kPdbs), (Names{"own.pdb"}));
        press(dialog, "Cancel");
    });
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"own"}));
}

TEST_F(Designs, AChosenLocalSchemeWithoutListsOfItsOwnShowsWhatTheLibraryHas) {
    struct Row {
        const char *schemes, *project;
        std::vector<const char*> chosen;
        Names symbols, pdbs, third;
    };
    const Names all{"logic", "analog", "power"}, allPdbs{"pdbs/logic.pdb", "pdbs/analog.pdb"};
    const Names smd{"cells/smd.cel"};
    const char* const own = "SearchScheme={Local to Project}\nSymbolPartition#0=own\nThirdPartition#0=x\n";
    const Row rows[] = {
        {"(Default)=1\n", "PdbSearchPath#0=own\n", {"Local to design"}, all, allPdbs, smd},
        {"(Default)=1\n{Local to Project}=1\n", "PdbSearchPath#0=own\n", {"Local to design"}, {}, {}, {}},
        {"(Default)=1\n", own, {}, {"own"}, {}, {"x"}},
        {"(Default)=1\n", own, {"Default", "Local to design"}, {"own"}, {}, smd},
        {"(Default)=1\n{Local to Project}=1\n", own, {"Default", "Local to design"}, {"own"}, {}, {}},
        {"(Default)=1\nTurned=1\n[Scheme Turned]\nSymbols#0=power\nSymbols#1=logic\nPDBs#0=analog\n"
         "PDBs#1=logic\n",
         own,
         {"Turned"},
         {"power", "logic"},
         {"pdbs/analog.pdb", "pdbs/logic.pdb"},
         {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.schemes << row.project << row.chosen.size());
        writeLibrary(row.schemes);
        openProject(row.project);
        run([&](QDialog& dialog) {
            if (row.chosen.size() == 1)
                choose(dialog, kScheme, "Default");
            for (const char* scheme : row.chosen)
                choose(dialog, kScheme, scheme);
            EXPECT_EQ(lines(dialog, kSymbols), row.symbols);
            EXPECT_EQ(lines(dialog, kPdbs), row.pdbs);
            press(dialog, "OK");
        });
        EXPECT_EQ(onDisk().GetSymbolPartitions("main"), row.symbols);
        EXPECT_EQ(onDisk().GetPdbSearchPath("main"), row.pdbs);
        EXPECT_EQ(onDisk().GetThirdPartitions("main"), row.third);
    }
}

TEST_F(Designs, APageReportsItselfFromTheFirstDifferenceUntilItIsStored) {
    struct Row {
        const char* what;
        std::function<void(QDialog&)> act;
        bool reported;
        bool inNetlist = false;
    };
    const auto remove = [](const char* title) {
        return [title](QDialog& dialog) {
            list(dialog, title).setCurrentRow(0);
            QTest::keyClick(&list(dialog, title), Qt::Key_Delete);
        };
    };
    const auto toggle = [](const char* caption) {
        return [caption](QDialog& dialog) {
            press(dialog, caption);
        };
    };
    const auto pick = [](const char* caption, std::vector<const char*> entries) {
        return [caption, entries](QDialog& dialog) {
            for (const char* entry : entries)
                choose(dialog, caption, entry);
        };
    };
    const Row rows[] = {
        {"nothing", [](QDialog&) {}, false, true},
        {"another block", pick(kBlock, {"DAC"}), true, true},
        {"another block and back", pick(kBlock, {"DAC", "ADC"}), false, true},
        {"another scheme", pick(kScheme, {"Digital"}), true},
        {"another scheme and back", pick(kScheme, {"Digital", "Default"}), false},
        {"a symbol partition less", remove(kSymbols), true},
        {"a part database less", remove(kPdbs), true},
        {"forward annotation", toggle("Allow forward annotation"), true},
        {"back annotation", toggle("Allow back annotation"), true},
        {"the winner", toggle("Back end always wins"), true},
    };
    for (const bool netlist : {false, true}) {
        for (const Row& row : rows) {
            if (netlist && !row.inNetlist)
                continue;
            SCOPED_TRACE(row.what);
            openProject("TopBlock=ADC\nSearchScheme=(Default)\n");
            if (netlist)
                project_->configuration().topLevelProvider = toplevelsettings::getNetlistTopLevelProvider();
            updater_.notifications.clear();
            run([&](QDialog& dialog) {
                row.act(dialog);
                press(dialog, "Apply");
                press(dialog, "OK");
            });
            const std::set<std::string> first =
                row.reported ? std::set<std::string>{"MAIN"} : std::set<std::string>{};
            EXPECT_EQ(updater_.notifications, (std::vector{first, std::set<std::string>{}}));
        }
    }
}

TEST_F(Designs, WhatCouldNotBeWrittenIsReportedAgainAndWrittenLater) {
    const std::filesystem::path file = directory_ / "demo.prj", away = directory_ / "away.prj";
    for (auto* provider :
         {toplevelsettings::getTopLevelSettingsProvider(), toplevelsettings::getNetlistTopLevelProvider()}) {
        openProject("TopBlock=ADC\n");
        project_->configuration().topLevelProvider = provider;
        updater_.notifications.clear();
        const ProjectErrors told;
        run([&](QDialog& dialog) {
            choose(dialog, kBlock, "DAC");
            std::filesystem::rename(file, away);
            std::filesystem::create_directory(file);
            press(dialog, "Apply");
            std::filesystem::remove(file);
            std::filesystem::rename(away, file);
            press(dialog, "Apply");
            press(dialog, "OK");
        });
        const std::set<std::string> named{"MAIN"};
        EXPECT_EQ(updater_.notifications, (std::vector{named, named, {}}));
        EXPECT_EQ(onDisk().GetTopBlock("main"), "DAC");
    }
}

TEST_F(Designs, ChoosingTheSchemeThatIsShownKeepsWhatWasEdited) {
    openProject("SearchScheme=(Default)\n");
    run([&](QDialog& dialog) {
        list(dialog, kSymbols).setCurrentRow(0);
        QTest::keyClick(&list(dialog, kSymbols), Qt::Key_Delete);
        QComboBox& scheme = combo(dialog, kScheme);
        scheme.showPopup();
        QTest::keyClick(scheme.view(), Qt::Key_Return);
        EXPECT_EQ(scheme.currentText(), "Local to design");
        EXPECT_EQ(lines(dialog, kSymbols), (Names{"analog", "power"}));
        press(dialog, "OK");
    });
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"analog", "power"}));
}

TEST_F(Designs, ASecondDialogTakesNothingFromTheFirst) {
    openProject("TopBlock=ADC\n");
    run([&](QDialog& dialog) {
        project_->configuration().topLevelProvider = toplevelsettings::getNetlistTopLevelProvider();
        run([](QDialog& inner) { press(inner, "Cancel"); }, "power");
        ASSERT_TRUE(testsupport::selectCategory(dialog, "power"));
        EXPECT_EQ(combo(dialog, kScheme).currentIndex(), -1);
        testsupport::selectCategory(dialog, "main");
        EXPECT_EQ(combo(dialog, kBlock).currentText(), "ADC");
        press(dialog, "Cancel");
    });
}

TEST_F(Designs, PageWithoutAProjectCanBeLookedAt) {
    QWidget window;
    Orv::CProjectConfiguration none;
    for (auto* provider :
         {toplevelsettings::getTopLevelSettingsProvider(), toplevelsettings::getNetlistTopLevelProvider()}) {
        auto* page =
            dynamic_cast<ovsettings::CPropDialogTemplateEx*>(provider->createDialog(&window, "main"));
        page->setProjectConfiguration(&none);
        page->createWindow(&window);
        EXPECT_STREQ(page->pageName(), "main");
        for (auto* symbols : page->findChildren<QListWidget*>())
            QTest::keyClick(symbols, Qt::Key_Insert);
        EXPECT_TRUE(page->onApply());
    }
}

TEST_F(Designs, UnknownSchemeAndUnknownBlockStayTheProjects) {
    openProject("SearchScheme=Gone\nTopBlock=GONE\nSymbolPartition#0=old\n");
    run([&](QDialog& dialog) {
        EXPECT_EQ(combo(dialog, kScheme).currentIndex(), -1);
        EXPECT_EQ(combo(dialog, kBlock).currentIndex(), -1);
        EXPECT_FALSE(list(dialog, kSymbols).isEnabled());
        press(dialog, "OK");
    });
    EXPECT_EQ(onDisk().GetSearchScheme("main"), "Gone");
    EXPECT_EQ(onDisk().GetTopBlock("main"), "GONE");
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"old"}));
}

TEST_F(Designs, SchemesOfTheLibraryAreOfferedBesideTheFixedNamesThatApply) {
    const struct {
        const char* schemes;
        Names offered;
    } rows[] = {
        {"(Default)=0\n{Local to Project}=1\n", {"Default", "{Local to Project}"}},
        {"(Default)=1\nDefault=0\nLocal to design=0\n", {"Default", "Local to design"}},
    };
    for (const auto& row : rows) {
        writeLibrary(row.schemes);
        openProject("SearchScheme=(Default)\n");
        run([&](QDialog& dialog) {
            EXPECT_EQ(textsOf(combo(dialog, kScheme)), row.offered);
            press(dialog, "OK");
        });
        EXPECT_EQ(onDisk().GetSearchScheme("main"), "(Default)");
    }
}

TEST_F(Designs, AChosenNameIsStoredToTheByte) {
    const std::string shown = "caf\uFFFD";
    testsupport::writeFile(directory_ / "lib/parts.lmc",
                           "[CentralLibrary]\nRelease=9.2\n[Partitions.Symbols]\n"
                           "caf\xe9=symbols/cafe\n[Schemes]\n(Default)=1\n");
    runSql(database(), "INSERT INTO blocks VALUES (2, 4, 'caf\xe8'), (2, 5, 'caf\xe9');");
    openProject("SearchScheme={Local to Project}\nSymbolPartition#0=own\n");
    run([&](QDialog& dialog) {
        QTest::keyClick(&list(dialog, kSymbols), Qt::Key_Insert);
        QTest::keyClick(list(dialog, kSymbols).viewport()->findChild<QComboBox*>(), Qt::Key_Return);
        EXPECT_EQ(lines(dialog, kSymbols), (Names{shown, "own"}));
        QTest::keyClick(&combo(dialog, kBlock), Qt::Key_End);
        EXPECT_EQ(combo(dialog, kBlock).currentText().toStdString(), shown);
        press(dialog, "OK");
    });
    EXPECT_EQ(onDisk().GetSymbolPartitions("main"), (Names{"caf\xe9", "own"}));
    EXPECT_EQ(onDisk().GetTopBlock("main"), "caf\xe9");
}

/// A small database whose table of blocks has a hundred million rows: each of its inner pages names one other
/// page over and over, down to that of a table with one row.
void makeEndless(const std::filesystem::path& file, int snapshot) {
    constexpr int kPage = 4096;
    constexpr int kCells = 500;
    constexpr int kCell = 5; // the number of a page, a key
    runSql(file, "PRAGMA page_size = 4096; PRAGMA user_version = 1; CREATE TABLE snapshots (id, name);"
                 "INSERT INTO snapshots VALUES (1, 'Orv'); CREATE TABLE leaf (snapshot, position, name);"
                 "INSERT INTO leaf VALUES (" +
                     std::to_string(snapshot) +
                     ", 1, 'X'); CREATE TABLE inner1 (x); CREATE TABLE inner2 (x);"
                     "CREATE TABLE blocks (snapshot, position, name);");
    std::string bytes = testsupport::readFile(file);
    const auto put = [&](int at, int number) {
        bytes[static_cast<std::size_t>(at)] = static_cast<char>(number >> 8);
        bytes[static_cast<std::size_t>(at) + 1] = static_cast<char>(number & 0xff);
    };
    for (int page = 6; page > 3; --page) {
        const int begin = (page - 1) * kPage;
        const int cells = kPage - kCells * kCell;
        bytes[static_cast<std::size_t>(begin)] = 5; // an inner page of a table
        put(begin + 3, kCells);
        put(begin + 5, cells);
        put(begin + 8, 0);
        put(begin + 10, page - 1);
        for (int i = 0; i < kCells; ++i) {
            put(begin + 12 + 2 * i, cells + kCell * i);
            put(begin + cells + kCell * i, 0);
            put(begin + cells + kCell * i + 2, page - 1);
            bytes[static_cast<std::size_t>(begin + cells + kCell * i) + 4] = 1;
        }
    }
    testsupport::writeFile(file, bytes);
}

TEST_F(Designs, DatabaseThatCannotBeReadLeavesTheBlockAlone) {
    struct Case {
        const char* what;
        std::function<void()> make;
        std::string told; ///< nothing for silence
    };
    const std::string tables = "PRAGMA user_version = 1; CREATE TABLE snapshots (id, name);"
                               "INSERT INTO snapshots VALUES (1, 'Orv');";
    const auto sql = [&](const std::string& more) {
        return [this, text = tables + more] {
            runSql(database(), text);
        };
    };
    const Case cases[] = {
        {"missing", [] {}, ""},
        {"empty", [&] { testsupport::writeFile(database(), ""); }, ""},
        {"another schema", [&] { runSql(database(), "PRAGMA user_version = 7;"); }, ""},
        {"blocks that are computed",
         sql("CREATE VIEW blocks AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
             "SELECT 1 AS snapshot, i AS position, 'X' AS name FROM n;"),
         ""},
        {"blocks of a module", sql("CREATE VIRTUAL TABLE blocks USING fts5 (snapshot, position, name);"), ""},
        {"names that are computed",
         sql("CREATE TABLE blocks (snapshot, position, name AS (printf('%.*c', 100000000, 'x')));"
             "INSERT INTO blocks VALUES (1, 1);"),
         "the table blocks has a computed column"},
        {"a long name",
         sql("CREATE TABLE blocks (snapshot, position, name);"
             "INSERT INTO blocks VALUES (1, 1, printf('%.*c', 1048577, 'x'));"),
         "a text is longer than 1 MiB"},
        {"long names",
         sql("CREATE TABLE blocks (snapshot, position, name); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
             "SELECT i + 1 FROM n LIMIT 65) INSERT INTO blocks SELECT 1, i, printf('%.*c', 1048000, 'x') "
             "FROM n;"),
         "the names of the blocks take more than 64 MiB"},
        {"blocks without end", [&] { makeEndless(database(), 1); },
         "a snapshot has more than 1000000 blocks"},
        {"another snapshot without end", [&] { makeEndless(database(), 2); }, "not read within 5 seconds"},
        {"no tables", [&] { runSql(database(), "PRAGMA user_version = 1;"); }, ""},
        {"a directory", [&] { std::filesystem::create_directory(database()); }, ""},
        {"no database", [&] { testsupport::writeFile(database(), std::string(5000, 'x')); },
         "file is not a database"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        std::filesystem::remove_all(database());
        one.make();
        openProject("TopBlock=TOP\n");
        boxes_.clear();
        Orv::iAppConfiguration::Property last("MRU_SETTINGS"); // so that the box comes before the dialog
        last.values = {"main"};
        configuration_.setProperty(last);
        run([&](QDialog& dialog) {
            EXPECT_EQ(combo(dialog, kBlock).count(), 0);
            EXPECT_TRUE(testsupport::find<QRadioButton>(dialog, "Front end always wins")->isChecked());
            press(dialog, "OK");
        });
        EXPECT_EQ(onDisk().GetTopBlock("main"), "TOP");
        ASSERT_EQ(boxes_.size(), one.told.empty() ? 0u : 1u);
        if (!one.told.empty()) {
            EXPECT_EQ(boxes_[0], "iKDS error: " + database().string() + ": " + one.told + "!");
        }
    }
}

TEST_F(Designs, LockedDatabaseIsNotWaitedForLong) {
    runSql(database(), "PRAGMA journal_mode = DELETE;");
    openProject();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(database().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    run([&](QDialog& dialog) {
        EXPECT_EQ(combo(dialog, kBlock).count(), 0);
        press(dialog, "Cancel");
    });
    sqlite3_close(other);
}

TEST_F(Designs, NetlistProjectsHaveTheBlockAlone) {
    openProject("TopBlock=ADC\nSearchScheme=Digital\n");
    project_->configuration().topLevelProvider = toplevelsettings::getNetlistTopLevelProvider();
    run([&](QDialog& dialog) {
        EXPECT_EQ(combo(dialog, kBlock).currentText(), "ADC");
        EXPECT_EQ(dialog.findChildren<QListWidget*>().size(), 0);
        choose(dialog, kBlock, "DAC");
        press(dialog, "OK");
    });
    EXPECT_EQ(onDisk().GetTopBlock("main"), "DAC");
    EXPECT_EQ(onDisk().GetSearchScheme("main"), "Digital");
}

/// Counts its pages, and makes none for the design "power".
class CountingProvider : public ovsettings::ITopLevelDialogProvider {
public:
    class Page : public ovsettings::CPropDialogTemplateEx {
    public:
        explicit Page(CountingProvider& owner) : CPropDialogTemplateEx(1, nullptr), owner_(owner) {
            owner_.alive.insert(this);
            ++owner_.made;
        }
        ~Page() override { EXPECT_EQ(owner_.alive.erase(this), 1u); }

    private:
        CountingProvider& owner_;
    };

    ovsettings::CPropDialogTemplate* createDialog(QWidget*, const std::string& design) override {
        return design == "power" ? nullptr : new Page(*this);
    }

    std::set<Page*> alive;
    int made = 0;
};

TEST_F(Designs, EveryPageIsMadeOnceAndFreedOnce) {
    CountingProvider provider;
    project_->configuration().topLevelProvider = &provider;
    for (const char* design :
         {"main", "power"}) { // the second one leaves the page of "main" without a window
        run(
            [&](QDialog& dialog) {
                EXPECT_EQ(captions(dialog), (Names{"main", "power"}));
                EXPECT_EQ(provider.alive.size(), 1u);
                press(dialog, "Cancel");
            },
            design);
        EXPECT_TRUE(provider.alive.empty());
    }
    EXPECT_EQ(provider.made, 2);
}

} // namespace
