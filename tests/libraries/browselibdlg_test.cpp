#include "dialog/pages/libraries/browselibdlg.h"

#include "dialog/pages/libraries/libraryfolderbrowser.h"
#include "dialog/widgets/stringconversion.h"
#include "tests/support/childprocess.h"
#include "tests/support/projectfixture.h"
#include "tests/urlaccess/httpserver.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QIcon>
#include <QtGui/QImageReader>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QListView>

#include <dlfcn.h>
#include <pwd.h>
#include <set>

using ovsettings::CBrowseLibDlg;
using ovsettings::LibraryType;
using ovsettings::toQString;
using ovsettings::toUtf8;
using namespace testsupport;

namespace {

constexpr int kLongestWait = 60000; // milliseconds, for a machine under load

class BrowseLibDialog : public ProjectPages {
protected:
    BrowseLibDialog() {
        std::filesystem::create_directories(directory() / "libs/parts/sym");
        std::filesystem::create_directories(directory() / "libs/my  lib/sch");
        std::filesystem::create_directories(directory() / "libs/plain");
        writeFile(directory() / "libs/mega/sym.lib", "");
        writeFile(directory() / "libs/both/sym.lib", "");
        writeFile(directory() / "libs/both/sym/r.1", "");
        writeFile(directory() / "location.map", "$LIBS libs\n");
        dialog_.setProjectDirectory(directory().string());
    }

    std::string in(const std::string& name) const { return (directory() / name).string(); }

    /// Opens the dialog; what is still open after the script is cancelled.
    int run(CBrowseLibDlg& dialog, const std::function<void(QDialog&)>& script) {
        whenDialog([&](QDialog& opened) {
            script(opened);
            if (opened.isVisible())
                opened.reject();
        });
        return dialog.DoModal();
    }
    int run(const std::function<void(QDialog&)>& script) { return run(dialog_, script); }

    static void awaitVerdict(QDialog& dialog) {
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return find<QPushButton>(dialog, "Ok")->isEnabled(); }, kLongestWait));
    }
    static void type(QDialog& dialog, const char* caption, const std::string& text) {
        auto& edit = *find<QLineEdit>(dialog, caption);
        edit.setFocus();
        testsupport::type(edit, text);
    }
    static void typePath(QDialog& dialog, const std::string& path) {
        type(dialog, "Path:", path);
        awaitVerdict(dialog);
    }
    static std::string textOf(QDialog& dialog, const char* caption) {
        return toUtf8(find<QLineEdit>(dialog, caption)->text());
    }
    static std::string stateOf(QDialog& dialog) {
        return toUtf8(dialog.findChild<QLabel*>(QStringLiteral("state"))->toolTip());
    }
    /// Selects a folder of those that the folder browser lists.
    static void clickFolder(QWidget& browser, const char* name) {
        auto& folders = *browser.findChild<QListView*>(QStringLiteral("listView"));
        QModelIndex folder;
        const auto listed = [&] {
            const auto root = folders.rootIndex();
            const auto found = folders.model()->match(folders.model()->index(0, 0, root), Qt::DisplayRole,
                                                      QLatin1String(name));
            folder = found.isEmpty() ? QModelIndex() : found.front();
            return folder.isValid();
        };
        ASSERT_TRUE(QTest::qWaitFor(listed, kLongestWait));
        QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, folders.visualRect(folder).center());
    }
    SeenBox boxOnOk(QDialog& dialog, const char* answer = "OK") {
        return boxDuring([&] { press(dialog, "Ok"); }, answer);
    }

    CBrowseLibDlg dialog_;
};

} // namespace

TEST_F(BrowseLibDialog, ShowsWhatAPathLeadsToAndSelectsItsType) {
    struct Row {
        std::string path;
        const char *selected, *state, *type;
    };
    const HttpServer server;
    const passwd& user = *getpwuid(geteuid());
    const std::string fromHome = std::filesystem::path(in("libs/parts")).lexically_relative(user.pw_dir);
    const Row rows[] = {
        {"libs/parts", "Writeable", "Writeable library", "Writeable"},
        {"./libs/parts/", "Readonly", "Read-only library", "Readonly"},
        {"$LIBS\\PARTS", "Megafile", "Writeable library", "Writeable"},
        {"~" + std::string(user.pw_name) + "/" + fromHome, "Readonly", "Read-only library", "Readonly"},
        {in("libs/plain"), "Writeable", "Not a library", "Writeable"},
        {"nowhere", "Megafile", "Not a library", "Writeable"},
        {"libs/mega", "Writeable", "Megafile library", "Megafile"},
        {"libs/both", "Writeable", "Writeable library", "Writeable"},
        {"http:/host", "Readonly", "Remote library cannot be reached", "Readonly"},
        {server.url("/lib"), "Readonly", "Remote library cannot be reached", "Readonly"},
        {"", "Readonly", "", "Readonly"},
        {std::string(5000, 'x'), "Readonly", "Not a library", "Readonly"},
    };
    run([&](QDialog& dialog) {
        auto& types = *find<QComboBox>(dialog, "Type:");
        for (const Row& row : rows) {
            SCOPED_TRACE(row.path);
            typePath(dialog, "");
            types.setCurrentText(QString::fromLatin1(row.selected));
            find<QLineEdit>(dialog, "Path:")->setText(toQString(row.path));
            awaitVerdict(dialog);
            EXPECT_EQ(stateOf(dialog), row.state);
            EXPECT_EQ(types.currentText().toStdString(), row.type);
        }
        typePath(dialog, "libs/parts");
        types.setCurrentText(QStringLiteral("Megafile"));
        awaitVerdict(dialog);
        EXPECT_EQ(types.currentText().toStdString(), "Writeable") << "a choice is looked at too";
        QWheelEvent turn({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&types, &turn);
        EXPECT_EQ(types.currentText().toStdString(), "Writeable") << "the wheel chooses nothing";
    });
}

TEST_F(BrowseLibDialog, AReadOnlyLibraryStaysReadonly) {
    const std::string library = in("libs/parts");
    ASSERT_TRUE(giveToUnprivileged(directory().c_str()));
    std::filesystem::permissions(library, std::filesystem::perms(0555));
    EXPECT_EQ(runUnprivileged([&] {
                  const auto found = ovsettings::recogniseLibrary(library, LibraryType::kWriteable);
                  return found.type == LibraryType::kReadonly && found.icon->good ? 0 : 1;
              }),
              0);
}

TEST_F(BrowseLibDialog, ARemoteLibraryIsNeverWriteable) {
    HttpServer server;
    server.serve("/parts/lib.cfg", "\n  alias WEB \nalias LATER\n");
    server.serve("/mega/sym.lib", "");
    server.redirect("/parts", "/parts/");
    server.answer("/parts/", HttpServer::Answer::forbidden);
    server.serve("/mega/", "");
    server.serve("/nothing", "");
    struct Row {
        const char *path, *state, *type, *alias;
    };
    const Row rows[] = {
        {"/parts", "Remote read-only library", "Readonly", "WEB"},
        {"/mega/", "Remote megafile library", "Megafile", "mega"},
        {"/nothing", "Not a library at this remote location", "Readonly", "nothing"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path);
        CBrowseLibDlg opened;
        run(opened, [&](QDialog& dialog) {
            typePath(dialog, server.url(row.path));
            auto& types = *find<QComboBox>(dialog, "Type:");
            EXPECT_EQ(stateOf(dialog), row.state);
            EXPECT_EQ(types.currentText().toStdString(), row.type);
            EXPECT_FALSE(types.isEnabled());
            EXPECT_EQ(textOf(dialog, "Alias:"), row.alias);
            press(dialog, "Ok");
        });
        EXPECT_EQ(opened.path(), server.url(row.path));
        EXPECT_EQ(opened.type() == 3, std::string(row.type) == "Megafile");
    }
}

// Needs an environment in which the loader looks into the current directory.
TEST_F(BrowseLibDialog, DISABLED_LoadsNothingFromTheProject) {
    // By names of what the module for servers needs, and the toolkit's reader of pictures.
    for (const char* late : {"libcurl.so.4", "libjpeg.so.62"})
        std::filesystem::copy(FOREIGN_CURL, directory() / late);
    HttpServer server;
    server.serve("/mega/sym.lib", "");
    server.serve("/mega/", "");
    run([&](QDialog& dialog) {
        typePath(dialog, server.url("/mega/"));
        EXPECT_EQ(stateOf(dialog), "Remote megafile library");
    });
    EXPECT_TRUE(QImageReader::supportedImageFormats().contains("jpeg"));
    EXPECT_NE(dlopen("libjpeg.so.62", RTLD_LAZY | RTLD_NOLOAD), nullptr);
}

TEST_F(BrowseLibDialog, SendsNoValueOfTheEnvironmentToAServer) {
    HttpServer server;
    const ScopedEnvironment secret("OV_TEST_SECRET", "hush");
    const ScopedEnvironment soft("OV_TEST_SOFT", "$WEB/hush");
    const ScopedEnvironment location("OV_TEST_LOCATION", server.url("/hush"));
    writeFile(directory() / "location.map", "$WEB " + server.url("/web") + "\n$VALUE " +
                                                server.url("/%OV_TEST_SECRET%/") +
                                                "\n$MADE %OV_TEST_LOCATION%\n");
    run([&](QDialog& dialog) {
        for (const std::string& path :
             {server.url("/%OV_TEST_SECRET%"), std::string("$WEB/%OV_TEST_SECRET%"), std::string("$VALUE"),
              std::string("$MADE/x"), std::string("%OV_TEST_SOFT%"), std::string("%OV_TEST_LOCATION%")})
            typePath(dialog, path);
    });
    EXPECT_TRUE(server.wasSent("%OV_TEST_SECRET%"));
    EXPECT_FALSE(server.wasSent("hush"));
}

TEST_F(BrowseLibDialog, ProposesAnAliasUntilItIsTheUsersOwn) {
    writeFile(directory() / "libs/parts/lib.cfg", "not an alias NO\n   alias CFG  \n");
    const ScopedEnvironment known("OV_LIBRARY_ALIASES", "ENV=" + in("libs/plain"));
    const auto proposed = [&](const std::string& path, const std::string& alias = {}) {
        CBrowseLibDlg opened;
        opened.setAlias(alias);
        opened.setProjectDirectory(directory().string());
        std::string shown;
        run(opened, [&](QDialog& dialog) {
            typePath(dialog, path);
            shown = textOf(dialog, "Alias:");
        });
        return shown;
    };
    EXPECT_EQ(proposed("libs/parts"), "CFG");
    EXPECT_EQ(proposed("$LIBS/plain/"), "ENV");
    EXPECT_EQ(proposed("libs/my  lib"), "my_lib");
    EXPECT_EQ(proposed("libs/parts", "GIVEN"), "GIVEN");

    run([&](QDialog& dialog) {
        typePath(dialog, "libs/mega");
        EXPECT_EQ(textOf(dialog, "Alias:"), "mega");
        typePath(dialog, "libs/parts");
        typePath(dialog, "libs/both");
        EXPECT_EQ(textOf(dialog, "Alias:"), "CFG") << "a library's own name is proposed once";
    });
    run([&](QDialog& dialog) {
        find<QLineEdit>(dialog, "Path:")->setFocus();
        find<QLineEdit>(dialog, "Alias:")->setFocus();
        find<QLineEdit>(dialog, "Alias:")->clear();
        typePath(dialog, "libs/mega");
        EXPECT_EQ(textOf(dialog, "Alias:"), "") << "the user is about to type one";
    });
    run([&](QDialog& dialog) {
        find<QLineEdit>(dialog, "Path:")->setText(QStringLiteral("libs/mega"));
        find<QLineEdit>(dialog, "Alias:")->setText(QStringLiteral("OWN"));
        awaitVerdict(dialog);
        EXPECT_EQ(textOf(dialog, "Alias:"), "OWN") << "however it is entered";
    });
}

TEST_F(BrowseLibDialog, RefusesAnAliasByTheFirstRuleItBreaks) {
    const char* letters = "Library names must start with a letter (a-z) and may contain only alpha-numeric "
                          "characters and underscores";
    const char* blanks = "Space characters are not allowed in a Library name.";
    const std::pair<std::string, const char*> rows[] = {
        {"1st", letters},
        {"my p!rts", letters},
        {std::string(65, '1'), letters},
        {"my parts", blanks},
        {" ", blanks},
        {std::string(65, 'a'), "The library name must be 64 or fewer characters."},
        {"", "The library name cannot be empty"},
    };
    const std::string longest(64, 'a');
    const int result = run([&](QDialog& dialog) {
        typePath(dialog, "no such directory");
        for (const auto& [alias, message] : rows) {
            type(dialog, "Alias:", alias);
            EXPECT_EQ(boxOnOk(dialog), (SeenBox{"Orvane", message, QMessageBox::Warning}));
            EXPECT_TRUE(dialog.isVisible());
        }
        typePath(dialog, "libs/parts");
        type(dialog, "Alias:", longest);
        press(dialog, "Ok");
    });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(dialog_.alias(), longest);
}

TEST_F(BrowseLibDialog, CreatesAMissingDirectoryWhenTheUserWantsIt) {
    const auto before = std::filesystem::current_path();
    const std::string question = "The directory does not exist. Do you want to create 'libs/new/one' ?";
    const ScopedEnvironment reference("OV_TEST_NEW", "libs/new");
    {
        CBrowseLibDlg opened;
        opened.setAlias("ONE");
        opened.setProjectDirectory(directory().string());
        const int result = run(opened, [&](QDialog& dialog) {
            EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), directory()));
            typePath(dialog, "libs/mega/sym.lib/below");
            SeenBox refused;
            whenModal([&](QWidget& asked) {
                whenModal([&](QWidget& modal) {
                    auto& box = dynamic_cast<QMessageBox&>(modal);
                    refused = {toUtf8(box.windowTitle()), toUtf8(box.text()), box.icon()};
                    box.accept();
                });
                dynamic_cast<QMessageBox&>(asked).button(QMessageBox::Yes)->click();
            });
            press(dialog, "Ok");
            EXPECT_EQ(refused, (SeenBox{"Orvane", "Cannot create !", QMessageBox::Critical}));
            typePath(dialog, "%OV_TEST_NEW%/one");
            EXPECT_TRUE(contains(boxOnOk(dialog, "No").text, "'%OV_TEST_NEW%/one'"));
            typePath(dialog, "libs/new/one");
            EXPECT_EQ(boxOnOk(dialog, "No"), (SeenBox{"Orvane", question, QMessageBox::Question}));
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_FALSE(std::filesystem::exists(directory() / "libs/new"));
            EXPECT_EQ(boxOnOk(dialog, "Yes").text, question);
        });
        EXPECT_EQ(result, QDialog::Accepted);
        EXPECT_TRUE(std::filesystem::is_directory(directory() / "libs/new/one"));
        EXPECT_EQ(opened.path(), "libs/new/one");
    }
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(BrowseLibDialog, CreatesNothingForWhatIsNoPlaceOfADirectory) {
    const auto unknown = [](const std::string& path) {
        return "The soft name in '" + path + "' stands for no directory.";
    };
    const auto remote = [](const std::string& path) {
        return "'" + path + "' is no remote library: the location of one begins with http:, https: or ftp:.";
    };
    const std::pair<std::string, std::string> rows[] = {
        {"$NO/parts", unknown("$NO/parts")},
        {"$NO", unknown("$NO")},
        {"$libs/parts", unknown("$libs/parts")},
        {"%OV_TEST_SOFT%/new", unknown("%OV_TEST_SOFT%/new")},
        {" \"$NO/new\"", unknown(" \"$NO/new\"")},
        {"sftp:", remote("sftp:")},
        {"sftp:host/lib", remote("sftp:host/lib")},
        {"s3://bucket/lib", remote("s3://bucket/lib")},
        {"svn+ssh://host/lib", remote("svn+ssh://host/lib")},
        {"  \"https:\"", remote("  \"https:\"")},
        {"\"sftp://host/lib\"", remote("\"sftp://host/lib\"")},
        {"HTTP:\\\\host\\lib", remote("HTTP:\\\\host\\lib")},
        {"\\\\host\\lib", remote("\\\\host\\lib")},
        {"libs\\mega\\SYM.lib", "'libs\\mega\\SYM.lib' is a file. A library is a directory."},
    };
    const ScopedEnvironment soft("OV_TEST_SOFT", "$NO");
    std::filesystem::create_directory(in("$NO"));
    const auto entries = [&] {
        return std::distance(std::filesystem::recursive_directory_iterator(directory()), {});
    };
    const auto before = entries();
    run([&](QDialog& dialog) {
        type(dialog, "Alias:", "A");
        for (const auto& [path, message] : rows) {
            typePath(dialog, path);
            EXPECT_EQ(stateOf(dialog), "Not a library") << path;
            EXPECT_EQ(boxOnOk(dialog, "OK"), (SeenBox{"Orvane", message, QMessageBox::Warning}));
            ASSERT_TRUE(dialog.isVisible()) << path;
        }
    });
    EXPECT_EQ(entries(), before);
}

TEST_F(BrowseLibDialog, ReturnsThePathAsItWasTypedOrGiven) {
    const ScopedEnvironment soft("OV_TEST_SOFT", "$LIBS");
    struct Row {
        const char* given;
        const char* typed; ///< null for none
        const char* returned;
    };
    std::filesystem::create_directory(directory() / "caf\xe9");
    const Row rows[] = {
        {"", "$LIBS/parts  ", "$LIBS/parts"},
        {"", "libs\\parts\\", "libs\\parts\\"},
        {"", "%OV_TEST_SOFT%/parts", "%OV_TEST_SOFT%/parts"},
        {"caf\xe9", nullptr, "caf\xe9"},
    };
    for (const Row& row : rows) {
        CBrowseLibDlg opened;
        opened.setAlias("A");
        opened.setPath(row.given);
        opened.setProjectDirectory(directory().string());
        EXPECT_EQ(run(opened,
                      [&](QDialog& dialog) {
                          if (row.typed)
                              typePath(dialog, row.typed);
                          awaitVerdict(dialog);
                          press(dialog, "Ok");
                      }),
                  QDialog::Accepted);
        EXPECT_EQ(opened.path(), row.returned);
    }
}

TEST_F(BrowseLibDialog, ANewEntryStartsBesideTheLastLibraryOrInTheInstallation) {
    const auto shownFirst = [&](const std::string& accepted) {
        CBrowseLibDlg opened;
        opened.setProjectDirectory(directory().string());
        std::string shown;
        run(opened, [&](QDialog& dialog) {
            shown = textOf(dialog, "Path:");
            typePath(dialog, accepted);
            type(dialog, "Alias:", "A");
            press(dialog, "Ok");
        });
        return shown;
    };
    shownFirst("$LIBS/parts");
    EXPECT_EQ(shownFirst("/tmp"), in("libs"));
    // There is no directory beside one of the root.
    EXPECT_EQ(shownFirst("/tmp"), directory().string());
    writeFile(installation_.standard() / "machine.ini",
              "[Software\\Tolvane\\Kesh\\Libraries]\nDefault=/opt/kesh\n");
    EXPECT_EQ(shownFirst("/tmp"), "/opt/kesh\\Designer\\Symbols");
}

TEST_F(BrowseLibDialog, TheFolderBrowserSaysWhatAFolderHolds) {
    std::filesystem::create_directory(directory() / "libs/both/sch");
    writeFile(directory() / "libs/both/sch.lib", "");
    const struct {
        const char *folder, *status;
    } rows[] = {
        {"both", "Found: Symbols[M] Schematics[M] Schematics Symbols "},
        {"plain", "NOTE: No symbols or schematics found in selected directory."},
        {"mega", "Found: Symbols[M] "},
    };
    run([&](QDialog& dialog) {
        type(dialog, "Path:", "$LIBS"); // and does not await the verdict
        whenModal([&](QWidget& browser) {
            EXPECT_EQ(browser.windowTitle().toStdString(), "Browse for Library Folder");
            const auto& status = *browser.findChild<QLabel*>(QStringLiteral("status"));
            for (const auto& row : rows) {
                clickFolder(browser, row.folder);
                EXPECT_EQ(status.text().toStdString(), row.status);
            }
            press(browser, "Choose");
        });
        press(dialog, "...");
        EXPECT_EQ(textOf(dialog, "Path:"), "$LIBS/mega") << "a soft name stays one";
        awaitVerdict(dialog);
    });
}

TEST_F(BrowseLibDialog, BrowsingStaysOnTheWayByWhichTheProjectIsReached) {
    std::filesystem::create_directory_symlink(directory(), in("link"));
    for (const char* typed : {"libs", "%OV_TEST_LINK%/libs"}) {
        const ScopedEnvironment link("OV_TEST_LINK", in("link"));
        CBrowseLibDlg opened;
        opened.setProjectDirectory(in("link"));
        run(opened, [&](QDialog& dialog) {
            typePath(dialog, typed);
            whenModal([](QWidget& browser) {
                clickFolder(browser, "parts");
                press(browser, "Choose");
            });
            press(dialog, "...");
            EXPECT_EQ(textOf(dialog, "Path:"), in("link/libs/parts"));
            awaitVerdict(dialog);
        });
    }
}

TEST_F(BrowseLibDialog, ASilentServerHoldsNobodyUp) {
    HttpServer server;
    server.answer("/", HttpServer::Answer::silence);
    QElapsedTimer sinceEscape;
    run([&](QDialog& dialog) {
        const auto hang = [&] {
            const int before = server.requests();
            find<QLineEdit>(dialog, "Path:")->setText(toQString(server.url("/lib")));
            EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests() > before; }, kLongestWait));
            EXPECT_FALSE(find<QPushButton>(dialog, "Ok")->isEnabled());
        };
        hang();
        typePath(dialog, "libs/parts");
        EXPECT_EQ(stateOf(dialog), "Read-only library") << "a newer path is looked at all the same";
        hang();
        sinceEscape.start();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_LT(sinceEscape.elapsed(), 1000) << "the look-up waits for twice as long";
}

TEST_F(BrowseLibDialog, MayBeClosedAtAnyMomentOfItsWork) {
    for (int round = 0; round < 40; ++round) {
        CBrowseLibDlg opened;
        opened.setProjectDirectory(directory().string());
        opened.setPath(round % 3 == 0 ? "" : "libs/parts");
        run(opened, [&](QDialog& dialog) {
            type(dialog, "Path:", "libs/mega");
            for (int turns = 0; turns < round % 7; ++turns)
                QApplication::processEvents();
            if (round % 2 == 0)
                type(dialog, "Path:", "$LIBS/both");
            press(dialog, "Cancel");
        });
    }
}

TEST(LibraryIcons, TellStatesApartByTheirShapes) {
    std::set<int> ids;
    std::set<QByteArray> pictures;
    for (int type = 0; type < 4; ++type) {
        for (const bool remote : {false, true}) {
            for (const bool good : {false, true}) {
                const auto icon = ovsettings::libraryIcon({static_cast<LibraryType>(type), remote, good});
                const QIcon file(QLatin1String(":/ovsettings/images/") + QLatin1String(icon.name) +
                                 QLatin1String(".svg"));
                const QImage grey = file.pixmap(40, 40).toImage().convertToFormat(QImage::Format_Grayscale8);
                ASSERT_FALSE(grey.isNull()) << icon.name;
                ids.insert(icon.id);
                pictures.insert(
                    QByteArray(reinterpret_cast<const char*>(grey.constBits()), grey.sizeInBytes()));
            }
        }
    }
    EXPECT_EQ(ids.size(), 14u);
    EXPECT_EQ(pictures.size(), 14u);
    EXPECT_EQ(ovsettings::libraryIcon({static_cast<LibraryType>(4), false, true}).id, 0);
}
