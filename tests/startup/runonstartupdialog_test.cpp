#include "dialog/pages/startup/runonstartupdialog.h"

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "platform/profilefile.h"
#include "tests/support/askingupdater.h"
#include "tests/support/widgets.h"

#include <array>

using ovsettings::CRunOnStartupDialog;

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

/// The page in the settings dialog of a real installation.
class RunOnStartup : public testing::Test {
protected:
    RunOnStartup() {
        installation_.writeCatalogue(installation_.category("Run on Startup", "Run on Startup"));
        EXPECT_TRUE(configuration_.load());
    }

    fs::path scripts() const { return installation_.user() / "scripts.ini"; }
    std::string existingFile(const std::string& name) const {
        writeFile(installation_.user() / name, "");
        return (installation_.user() / name).string();
    }

    /// Opens the dialog, runs the script and presses the button, if the script has not closed it.
    void inDialog(const std::function<void(QDialog&)>& script, const char* button = "OK") {
        whenDialog([&](QDialog& dialog) {
            script(dialog);
            if (dialog.isVisible())
                press(dialog, button);
        });
        ovsettings::showSettingsDialog(configuration_, project_, &updater_);
    }

    static QListWidget& list(QWidget& dialog, const char* title) { return *find<QListWidget>(dialog, title); }
    static std::string lines(QListWidget& list) {
        std::string lines;
        for (const std::string& text : textsOf(list))
            lines += (lines.empty() ? "" : "|") + text;
        return lines;
    }
    static void key(QListWidget& list, int row, Qt::Key key) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(list.window()));
        list.setCurrentRow(row);
        list.setFocus();
        QTest::keyClick(&list, key);
    }
    static void type(const std::string& text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    static void add(QListWidget& list, const std::string& text) {
        key(list, 0, Qt::Key_Insert);
        type(text);
    }

    Installation installation_;
    Orv::iAppConfiguration configuration_;
    Orv::CProjectConfiguration project_;
    AskingUpdater updater_{{"run on startup"}};
    const std::set<std::string> none_, named_{"run on startup"};
};

} // namespace

TEST_F(RunOnStartup, WritesBothListsInOrderAndTheRestOfTheFileStays) {
    const std::string form = existingFile("a.frm");
    const std::string script = existingFile("s 1.bas");
    const std::string text = "; mine\r\n[Other]\r\nForm#0=x\r\n\r\n[plandraw] ; lists\r\n"
                             "form#0 = \"b.frm\"\r\nForm#1=c.frm\r\nColour=red\r\n\r\n; end\r\n";
    writeFile(scripts(), text);
    inDialog([](QDialog& dialog) {
        EXPECT_EQ(lines(list(dialog, "Forms:")), "b.frm|c.frm|");
        EXPECT_EQ(lines(list(dialog, "Scripts:")), "");
    });
    EXPECT_EQ(readFile(scripts()), text);
    EXPECT_EQ(updater_.notifications, std::vector{none_});

    inDialog([&](QDialog& dialog) {
        add(list(dialog, "Forms:"), form);
        add(list(dialog, "Scripts:"), script);
        key(list(dialog, "Forms:"), 0, Qt::Key_Delete);
    });
    EXPECT_EQ(readFile(scripts()), "; mine\r\n[Other]\r\nForm#0=x\r\n\r\n[plandraw] ; lists\r\n"
                                   "form#0 = c.frm\r\nForm#1=" +
                                       form + "\r\nColour=red\r\nScript#0=" + script + "\r\n\r\n; end\r\n");
    EXPECT_EQ(updater_.notifications, (std::vector{none_, named_}));
}

TEST_F(RunOnStartup, KeysBehindAGapAreLeftAlone) {
    writeFile(scripts(), "[PlanDraw]\nForm#0=a\nForm#2=c\nForm#3=d\n");
    inDialog([](QDialog& dialog) {
        EXPECT_EQ(lines(list(dialog, "Forms:")), "a|");
        key(list(dialog, "Forms:"), 0, Qt::Key_Delete);
    });
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nForm#2=c\nForm#3=d\n");

    const std::string file = existingFile("a.frm");
    inDialog([&](QDialog& dialog) {
        add(list(dialog, "Forms:"), file);
        add(list(dialog, "Forms:"), file);
    });
    // Both that were added, and the key behind them that the empty last line stands for.
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nForm#3=d\nForm#0=" + file + "\nForm#1=" + file + "\n");
}

TEST_F(RunOnStartup, NothingToRunMakesNoFile) {
    inDialog([](QDialog&) {});
    EXPECT_FALSE(fs::exists(scripts()));
}

TEST_F(RunOnStartup, AppliedListCountsForTheNextApply) {
    const std::string file = existingFile("a.frm");
    inDialog([&](QDialog& dialog) {
        for (int i = 0; i < 3; ++i)
            add(list(dialog, "Forms:"), file);
        press(dialog, "Apply");
        for (int i = 0; i < 2; ++i)
            key(list(dialog, "Forms:"), 0, Qt::Key_Delete);
    });
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nForm#0=" + file + "\n");
    EXPECT_EQ(updater_.notifications, (std::vector{named_, named_}));
}

TEST_F(RunOnStartup, AsksBeforeAMissingFileIsAddedWithNoAsTheDefault) {
    constexpr char kQuestion[] = "\n\nThis file does not exist.\nAdd the file anyway?";
    const std::string file = existingFile("Real.frm");
    const std::string missing = (installation_.user() / "missing.frm").string();
    struct Row {
        const char* what;
        bool rename;
        std::string text;
        const char* answer; ///< null where no question is to come
        std::string after;
    };
    const Row rows[] = {
        {"added, no", false, missing, "No", file + "|"},
        {"added, yes", false, missing, "Yes", file + "|" + missing + "|"},
        {"renamed, no", true, missing, "No", ""},
        {"renamed, yes", true, missing, "Yes", missing + "|"},
        {"a directory", true, installation_.user().string(), "No", ""},
        {"existing, in full", false, (installation_.user() / "x/..\\REAL.frm").string(), nullptr,
         file + "|" + file + "|"},
    };
    fs::create_directories(installation_.user() / "x");
    writeFile(scripts(), "[PlanDraw]\nForm#0=" + file + "\n");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        inDialog(
            [&](QDialog& dialog) {
                QListWidget& forms = list(dialog, "Forms:");
                key(forms, 0, row.rename ? Qt::Key_F2 : Qt::Key_Insert);
                std::string asked;
                if (row.answer) {
                    whenModal([&](QWidget& modal) {
                        auto& box = dynamic_cast<QMessageBox&>(modal);
                        asked = box.text().toStdString();
                        EXPECT_EQ(box.icon(), QMessageBox::Question);
                        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
                        find<QPushButton>(box, row.answer)->click();
                    });
                }
                type(row.text);
                EXPECT_EQ(lines(forms), row.after);
                EXPECT_EQ(asked, row.answer ? row.text + kQuestion : "");
            },
            "Cancel");
    }
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nForm#0=" + file + "\n") << "Cancel stores nothing";
}

TEST_F(RunOnStartup, LineThatIsStillEditedIsStoredAndReportedByOk) {
    const std::string file = existingFile("a.frm");
    inDialog([&](QDialog& dialog) {
        key(list(dialog, "Scripts:"), 0, Qt::Key_Insert);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(file));
        find<QPushButton>(dialog, "OK")->click(); // which leaves the focus where it is
    });
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nScript#0=" + file + "\n");
    EXPECT_EQ(updater_.notifications, std::vector{named_});
}

TEST_F(RunOnStartup, FailedWriteIsToldOnceForEachListAndTheDialogCloses) {
    const std::string message = "Writing " + installation_.user().string() + "\\scripts.ini failed";
    const std::string utf16("\xFF\xFE[\0P\0l\0", 8);
    for (const bool directory : {true, false}) {
        fs::remove(scripts());
        if (directory)
            fs::create_directories(scripts());
        else
            writeFile(scripts(), utf16);
        std::vector<std::string> told;
        const auto noteNext = [&](const auto& self) -> void {
            whenModal([&, self](QWidget& modal) {
                told.push_back(dynamic_cast<QMessageBox&>(modal).text().toStdString());
                if (told.size() < 2)
                    self(self);
                dynamic_cast<QDialog&>(modal).accept();
            });
        };
        inDialog([&](QDialog&) { noteNext(noteNext); });
        EXPECT_EQ(told, (std::vector{message, message}));
    }
    EXPECT_EQ(readFile(scripts()), utf16);
}

TEST_F(RunOnStartup, NothingOfTheFileIsLostByShowingIt) {
    const std::string longName(3000, 'x');
    const std::array texts{
        "[PlanDraw]\nForm#0=" + longName + "\nForm#1=last\n",
        std::string("[PlanDraw]\nForm#0=Gr\xF6\xDF"
                    "e.frm\nScript#0=\xFF\n"),
        std::string(3, '\0') + "[PlanDraw]\nForm#0=a" + std::string(1, '\0') + "b\n",
    };
    for (const std::string& text : texts) {
        writeFile(scripts(), text);
        inDialog([](QDialog&) {});
        EXPECT_EQ(readFile(scripts()), text);
    }
    // What cannot be shown as it is, or not in full, is moved as it is, alike as it may look.
    writeFile(scripts(), "[PlanDraw]\nForm#0=b\nForm#1=\xFC.frm\nForm#2=\xF6.frm\nForm#3=" + longName + "\n");
    inDialog([](QDialog& dialog) { key(list(dialog, "Forms:"), 0, Qt::Key_Delete); });
    EXPECT_EQ(readFile(scripts()), "[PlanDraw]\nForm#0=\xFC.frm\nForm#1=\xF6.frm\nForm#2=" + longName + "\n");
}

TEST_F(RunOnStartup, WithoutAUserDirectoryNothingIsReadOrWrittenInTheRoot) {
    const std::string file = existingFile("a.frm");
    for (const std::optional<std::string>& list : {std::optional<std::string>(), {""}, {";/tmp"}}) {
        const ScopedEnvironment wdir("WDIR", list);
        CRunOnStartupDialog page(nullptr);
        QWidget window;
        page.createWindow(&window);
        EXPECT_TRUE(page.onApply());
        page.setParent(nullptr);
        page.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
        add(*find<QListWidget>(page, "Forms:"), file);
        EXPECT_EQ(messageDuring([&] { EXPECT_TRUE(page.onOk()); }), "Writing \\scripts.ini failed");
        EXPECT_FALSE(fs::exists("/scripts.ini"));
    }
}
