#include "dialog/pages/libraries/librariesdialog.h"

#include "dialog/pages/libraries/librarylist.h"
#include "dialog/widgets/gdipainter.h"
#include "orv/projectconfiguration.h"
#include "suite/symbollibs.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QProgressDialog>

#include <sstream>

using ovsettings::CLibrariesDialog;

namespace {

constexpr const char* kPage = "Symbol Libraries";
constexpr const char* kTaken = "Library with specified name already added to the list";
constexpr int kLongestWait = 60000; // milliseconds, for a machine under load

struct Library {
    std::string alias, location;
    int type;
};
using Libraries = std::vector<Library>;

std::string section(const Libraries& libraries) {
    std::string text = "[SymbolLibraries]\n";
    for (std::size_t i = 0; i < libraries.size(); ++i) {
        const std::string number = "#" + std::to_string(i) + "=";
        text += "Alias" + number + libraries[i].alias + "\nLocation" + number + libraries[i].location +
                "\nType" + number + std::to_string(libraries[i].type) + "\n";
    }
    return text;
}

class LibrariesPage : public ProjectPages {
protected:
    CLibrariesDialog& openWith(const Libraries& libraries) {
        openProject(section(libraries));
        return openPage<CLibrariesDialog>(kPage);
    }
    QListWidget& list() { return control<QListWidget>(kPage); }

    /// The rows as a screen reader tells them.
    std::string rows() {
        std::string text;
        for (int row = 0; row < list().count(); ++row)
            text += list().item(row)->data(Qt::AccessibleTextRole).toString().toStdString() + "\n";
        return text;
    }
    /// The project's list: "alias|location|full path|type".
    std::string libraries() {
        std::ostringstream text;
        for (const NProjectTools::ISymbolLibrary* library : project().symbolLibs->GetLibList())
            text << library->GetAlias() << '|' << library->GetLocation() << '|' << library->GetFullPath()
                 << '|' << library->GetType() << '\n';
        return text.str();
    }
    void key(int row, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QApplication::setActiveWindow(&window_);
        list().setCurrentRow(row);
        list().setFocus();
        QTest::keyClick(&list(), key, modifiers);
    }

    /// What a user does in the dialog "Library"; what is empty stays as it is.
    struct Entry {
        std::string alias, path, type;
        bool refused = false; ///< a message box comes after OK
    };
    void whenAsked(const Entry& entry) {
        testsupport::whenModal([this, entry](QWidget& dialog) {
            auto& alias = *testsupport::find<QLineEdit>(dialog, "Alias:");
            if (!entry.alias.empty()) {
                alias.selectAll();
                QTest::keyClicks(&alias, QString::fromStdString(entry.alias));
            }
            if (!entry.path.empty())
                testsupport::find<QLineEdit>(dialog, "Path:")->setText(QString::fromStdString(entry.path));
            auto& ok = *testsupport::find<QPushButton>(dialog, "Ok");
            const auto awaitVerdict = [&ok] {
                ASSERT_TRUE(QTest::qWaitFor([&] { return ok.isEnabled(); }, kLongestWait));
            };
            awaitVerdict();
            if (!entry.type.empty())
                testsupport::find<QComboBox>(dialog, "Type:")
                    ->setCurrentText(QString::fromStdString(entry.type));
            awaitVerdict();
            if (entry.refused)
                testsupport::answerNextMessageBox("OK", &box_);
            QTest::mouseClick(&ok, Qt::LeftButton);
        });
    }
    void add(const Entry& entry) {
        whenAsked(entry);
        QTest::mouseClick(&control<QAbstractButton>("New"), Qt::LeftButton);
    }
    void edit(int row, const Entry& entry) {
        whenAsked(entry);
        key(row, Qt::Key_F2);
        QApplication::processEvents();
    }

    void import(const std::string& path, bool refused = false) {
        testsupport::whenModal([&](QWidget& modal) {
            auto& chooser = dynamic_cast<QDialog&>(modal);
            chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(path));
            if (refused)
                testsupport::answerNextMessageBox("OK", &box_);
            if (whenChosen_)
                whenChosen_();
            // Accepting a directory would only enter it.
            if (std::filesystem::is_directory(path))
                chooser.done(QDialog::Accepted);
            else
                chooser.accept();
        });
        QTest::mouseClick(&control<QPushButton>("Import..."), Qt::LeftButton);
    }

    std::string box_;                  ///< the text of the last message box
    std::function<void()> whenChosen_; ///< called by import, before the chooser closes
    std::string here() const { return directory().string(); }
    std::string here(const std::string& name) const { return (directory() / name).string(); }
};

TEST_F(LibrariesPage, MovesNeverPassAPrimaryInTheFirstRow) {
    struct Row {
        int first; ///< type of the first row
        int row;
        Qt::Key key;
        const char* order;
    };
    const Row rows[] = {
        {0, 0, Qt::Key_Down, "abc"}, {0, 1, Qt::Key_Up, "abc"},   {0, 2, Qt::Key_Up, "acb"},
        {0, 2, Qt::Key_Down, "abc"}, {1, 0, Qt::Key_Down, "bac"}, {1, 1, Qt::Key_Up, "bac"},
        {1, 0, Qt::Key_Up, "abc"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "type " << row.first << ", row " << row.row);
        const CLibrariesDialog& page = openWith({{"a", "x", row.first}, {"b", "y", 0}, {"c", "z", 2}});
        key(row.row, row.key, Qt::AltModifier);
        std::string order;
        for (int i = 0; i < list().count(); ++i)
            order += list().item(i)->data(Qt::AccessibleTextRole).toString().toStdString()[0];
        EXPECT_EQ(order, row.order);
        EXPECT_EQ(page.isModified(), order != "abc");
    }
}

TEST_F(LibrariesPage, StoresEachPathAsTheProjectIsToFindIt) {
    for (const char* name : {"libs/Analog", "elsewhere", "$NOWHERE/x"})
        std::filesystem::create_directories(directory() / name);
    testsupport::writeFile(directory() / "location.map", "$S ./libs\n$LONG %LONG%\n$WEB https://host/a\n");
    const testsupport::ScopedEnvironment variable("LIBRARY_TEST", here("elsewhere")), soft("SOFT_TEST", "$S");
    const std::string name(600, 'n');
    const testsupport::ScopedEnvironment tooLong("LONG", name);
    struct Row {
        std::string path, location, fullPath;
    };
    const Row rows[] = {
        {"$S/analog", "$S/analog", here("libs/analog")},
        {"%SOFT_TEST%/analog", "%SOFT_TEST%/analog", here("libs/analog")},
        {"$NOWHERE/x", "$NOWHERE/x", "$NOWHERE/x"},
        {"$s/Analog", "$s/Analog", "$s/Analog"},
        {here("libs/ANALOG"), "./libs/ANALOG", here("libs/Analog")},
        {here("libs") + "\\ANALOG", "./libs\\ANALOG", here("libs/Analog")},
        {here() + "2/x", here() + "2/x", here() + "2/x"},
        {"./LIBS/analog", "./LIBS/analog", here("libs/Analog")},
        {"%LIBRARY_TEST%", "%LIBRARY_TEST%", here("elsewhere")},
        {"%LONG%", "%LONG%", "%LONG%"},
        {"http://host/%LIBRARY_TEST%", "http://host/%LIBRARY_TEST%", "http://host/%LIBRARY_TEST%"},
        {"$WEB/%LIBRARY_TEST%", "$WEB/%LIBRARY_TEST%", "https://host/a/%LIBRARY_TEST%"},
        {here("demo.prj"), "./demo.prj", here("demo.prj")},
    };
    Libraries given{{"removed", "x", 0}};
    std::string expected;
    for (const Row& row : rows) {
        const std::string alias = "a" + std::to_string(given.size());
        given.push_back({alias, row.path, 0});
        // The first remains Primary, the others are mended.
        expected +=
            alias + "|" + row.location + "|" + row.fullPath + "|" + (expected.empty() ? "0" : "1") + "\n";
    }
    CLibrariesDialog& page = openWith(given);
    EXPECT_TRUE(page.onApply());
    EXPECT_FALSE(project().librariesChanged) << "nothing was changed";
    key(0, Qt::Key_Delete);
    EXPECT_TRUE(page.isModified());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(libraries(), expected);
    EXPECT_TRUE(project().librariesChanged);
    EXPECT_FALSE(page.isModified());

    EXPECT_TRUE(project_->saveLibraries());
    NProjectTools::CSymbolLibs saved;
    saved.Load(projectPath().string());
    EXPECT_EQ(saved.GetLibList().size(), std::size(rows));
    EXPECT_EQ(saved.GetLibList().front()->GetAlias(), "a1");
}

TEST_F(LibrariesPage, AProjectUnderTheRootHasItsLibrariesThere) {
    const std::vector<ovsettings::LibraryRow> given{{"a", "tmp", 1}, {"b", "/tmp", 1}};
    openProject();
    ovsettings::storeLibraries(given, "/demo.prj", *project().symbolLibs);
    EXPECT_EQ(libraries(), "a|tmp|/tmp|1\nb|/tmp|/tmp|1\n");
}

TEST_F(LibrariesPage, AnEmptiedListIsStoredToo) {
    CLibrariesDialog& page = openWith({{"a", "x", 0}});
    key(0, Qt::Key_Delete);
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(libraries(), "");
    EXPECT_TRUE(project().librariesChanged);
    EXPECT_TRUE(project_->saveLibraries());
    EXPECT_EQ(keysInFile(), std::vector<std::string>{});
}

TEST_F(LibrariesPage, ImportsListsUnderNamesOfTheirOwn) {
    const Libraries others{{"a", "$S/a", 0}, {"", "nameless", 2}, {"A", "x", 1},
                           {"a_1", "/y", 3}, {"new", "/z", 1},    {"web", "http://host/a", 1}};
    testsupport::writeFile(directory() / "other.prj", section(others));
    testsupport::writeFile(directory() / "other.INI", section(others));
    CLibrariesDialog& page = openWith({{"A", "/here", 0}});
    import(here("other.prj"));
    const std::string first = "A, /here, Primary\na_1, $S/a, Readonly\nA_2, " + here("x") +
                              ", Writeable\na_1_1, /y, Megafile\nnew, /z, Writeable\n"
                              "web, http://host/a, Writeable\n";
    EXPECT_EQ(rows(), first);
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_TRUE(page.isModified());
    import(here("other.INI"));
    EXPECT_EQ(rows(), first + "a_3, $S/a, Readonly\nA_4, " + here("x") +
                          ", Readonly\na_1_2, /y, Megafile\nnew_1, /z, Readonly\n"
                          "web_1, http://host/a, Readonly\n");
}

TEST_F(LibrariesPage, AFileThatHoldsNoListImportsNothing) {
    std::filesystem::create_directories(directory() / "directory.prj");
    std::filesystem::create_directories(directory() / "directory.ini");
    for (const char* name : {"binary.prj", "binary.ini", "other.txt"})
        testsupport::writeFile(directory() / name, std::string("\0\xFF\0", 3));
    testsupport::writeFile(directory() / "empty.prj", "");
    testsupport::writeFile(directory() / "nameless.ini", section({{"", "x", 0}}));
    CLibrariesDialog& page = openWith({{"a", "x", 0}});
    for (const char* name : {"none.prj", "directory.prj", "binary.prj", "other.txt"}) {
        const std::string path = here(name);
        import(path, true);
        EXPECT_EQ(box_, "Cannot import libraries from \"" + path + "\"");
    }
    for (const char* name : {"none.ini", "directory.ini", "binary.ini", "empty.prj", "nameless.ini"})
        import(here(name));
    EXPECT_EQ(rows(), "a, x, Primary\n");
    EXPECT_FALSE(page.isModified());
}

TEST_F(LibrariesPage, ALongImportShowsHowFarItIsAndImportsNothingOnceItIsStopped) {
    constexpr int kMany = 25000;
    std::string wayAround;
    for (int i = 0; i < 20; ++i)
        wayAround += "./nowhere/../";
    Libraries many;
    for (int i = 0; i < kMany; ++i)
        many.push_back({"m" + std::to_string(i), wayAround + std::to_string(i), 1});
    for (const char* name : {"many.prj", "many.ini", "to the end.prj"}) {
        const bool toTheEnd = std::string(name).starts_with("to");
        testsupport::writeFile(directory() / name, section(many));
        CLibrariesDialog& page = openWith({{"a", "x", 0}});
        bool shown = false, shownAtInsertion = false;
        QObject::connect(list().model(), &QAbstractItemModel::rowsInserted, &list(),
                         [&] { shownAtInsertion = window_.findChild<QProgressDialog*>(); });
        whenChosen_ = [&] {
            if (toTheEnd)
                return;
            testsupport::whenModal([&](QWidget& modal) {
                const auto& box = dynamic_cast<QProgressDialog&>(modal);
                shown = box.labelText() == QLatin1String("Importing libraries");
                EXPECT_LT(box.value(), box.maximum());
                testsupport::press(modal, "Cancel");
            });
        };
        import(here(name));
        EXPECT_NE(shown, toTheEnd);
        EXPECT_EQ(shownAtInsertion, toTheEnd) << "the box stays until all is there";
        EXPECT_EQ(list().count(), toTheEnd ? kMany + 1 : 1);
        EXPECT_EQ(page.isModified(), toTheEnd);
    }
}

TEST_F(LibrariesPage, AddsBehindTheOthersWhatIsNotInTheListYet) {
    std::filesystem::create_directories(directory() / "libs/new");
    CLibrariesDialog& page = openWith({{"a", "x", 0}});
    add({"A", here("libs"), "", true});
    EXPECT_EQ(box_, kTaken);
    EXPECT_FALSE(page.isModified());
    add({"new", "./libs/new", "Readonly"});
    EXPECT_EQ(rows(), "a, x, Primary\nnew, ./libs/new, Readonly\n");
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_TRUE(page.isModified());
}

TEST_F(LibrariesPage, EditsARowInPlaceAndOnlyOnARow) {
    std::filesystem::create_directories(directory() / "b");
    CLibrariesDialog& page = openWith({{"a", "./b", 1}, {"b", "./b", 1}});
    edit(1, {"A", "", "", true});
    EXPECT_EQ(box_, kTaken);
    EXPECT_FALSE(page.isModified());
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, list().viewport()->rect().bottomRight());
    QApplication::processEvents();
    EXPECT_FALSE(page.isModified());

    edit(1, {"B", "", "Readonly"});
    EXPECT_EQ(rows(), "a, ./b, Writeable\nB, ./b, Readonly\n");
    EXPECT_TRUE(page.isModified());
    whenAsked({"c", "", ""});
    const QPoint row = list().visualItemRect(list().item(0)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, row);
    QApplication::processEvents();
    EXPECT_EQ(rows(), "c, ./b, Writeable\nB, ./b, Readonly\n");
}

TEST_F(LibrariesPage, LeavingAsksOnceAndShowsTheProjectsListAgain) {
    for (const bool keep : {true, false}) {
        CLibrariesDialog& page = openWith({{"a", here("a"), 0}, {"b", here("b"), 2}});
        EXPECT_TRUE(page.onLeave()) << "nothing has changed";
        key(0, Qt::Key_Delete);
        EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, keep ? "Yes" : "No"), kSaveQuestion);
        EXPECT_EQ(rows(), keep ? "b, ./b, Readonly\n"
                               : "a, " + here("a") + ", Primary\nb, " + here("b") + ", Readonly\n");
        EXPECT_FALSE(page.isModified());
    }
}

TEST_F(LibrariesPage, WithoutALibraryListThereIsNothingToDo) {
    openProject();
    const Orv::CProjectConfiguration whole = project();
    project().symbolLibs = nullptr;
    CLibrariesDialog& page = openPage<CLibrariesDialog>(kPage);
    EXPECT_FALSE(control<QPushButton>("Import...").isEnabled());
    EXPECT_TRUE(page.onApply() && page.onLeave() && page.onOk());
    EXPECT_FALSE(project().librariesChanged);

    project() = whole;
    project().projectFile = nullptr;
    project().symbolLibs->AddLibrary("a", "x", "x", 7);
    CLibrariesDialog& withoutFile = openPage<CLibrariesDialog>(kPage);
    window_.grab();
    EXPECT_EQ(rows(), "a, x, Readonly\n");
    key(0, Qt::Key_Delete);
    EXPECT_TRUE(withoutFile.onApply());
    EXPECT_EQ(libraries(), "");
}

TEST_F(LibrariesPage, ARowIsDrawnInTheColorsOfItsTypeAndStaysLegible) {
    struct Row {
        int type;
        int background; ///< -1: the palette's
        int selected;
    };
    const Row kRows[] = {
        {0, 0xbbffff, 0x3d79}, {1, 0xd6ffdb, 0x3e842f}, {2, -1, -1}, {3, 0xfff0d8, 0xd38d0a}};
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    for (const QPalette& palette : {QPalette(), dark}) {
        for (const Row& row : kRows) {
            openWith({{"MMMMM", "MMMMM", row.type}});
            list().setPalette(palette);
            window_.resize(400, 300);
            for (const bool selected : {false, true}) {
                list().setCurrentRow(selected ? 0 : -1);
                list().clearFocus();
                const QRect cell = list().visualItemRect(list().item(0));
                const QImage image = list().viewport()->grab(cell).toImage();
                const int stated = selected ? row.selected : row.background;
                const QColor background = stated >= 0 ? ovsettings::toQColor(stated)
                                          : selected  ? palette.color(QPalette::Highlight)
                                                      : palette.color(QPalette::Base);
                const int split = cell.width() * 35 / 100;
                EXPECT_EQ(image.pixelColor(split + 1, 1), background);
                EXPECT_NE(image.pixelColor(split, 1), background);
                EXPECT_NE(image.pixelColor(1, image.height() - 1), background);
                int contrast = 0;
                for (int x = 5; x < split; ++x)
                    contrast =
                        std::max(contrast, std::abs(image.pixelColor(x, image.height() / 2).lightness() -
                                                    background.lightness()));
                EXPECT_GT(contrast, 90) << row.type << selected;
            }
        }
    }
}

} // namespace
