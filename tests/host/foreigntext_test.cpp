// What comes from a project, a level or the disk is shown in the dialog as it stands.

#include "ovsettings/showsettingsdialog.h"
#include "ovsettings/topleveldialogprovider.h"
#include "ovsettings/updatehost.h"
#include "suite/openproject.h"
#include "tests/host/hostdialog.h"
#include "tests/support/configurationtext.h"

#include <QtWidgets/QTreeWidgetItemIterator>

#include <algorithm>
#include <utility>

using namespace testsupport;

namespace {

class ForeignText : public HostDialog {
protected:
    ForeignText()
        : directory_(root_ / kActingText),
          wdir_("WDIR", installation_.user().string() + ";" + directory_.string() + ";" +
                            installation_.standard().string()) {
        std::string dialogs = category(asXml(kActingText));
        for (const ovsettings::PageReport& page : ovsettings::kPageReports)
            dialogs += entry(page.pageKey, "internal");
        catalogue(dialogs + entry("designs", "projects"));
        const LockNotes notes{asXml(kActingText), asXml(kActingText)};
        writeLevel(directory_, section("Orvane/SETTINGS",
                                       settingValue("GRID_HR", "254000", true) + settingValue("GRID_HR", "") +
                                           settingValue("BOXSIZE_HR", "254000", true),
                                       notes) +
                                   object("NET", "", true, notes));
        writeFile(installation_.user() / "scripts.ini", "[PlanDraw]\nForm#0=" + kActingText + "\n");
        openProject();
        testing::internal::CaptureStderr();
        EXPECT_TRUE(configuration_.load(root_.path().string()));
        EXPECT_TRUE(contains(testing::internal::GetCapturedStderr(), "<img src='f'>?X/orvane.xml"));
    }

    static std::string asXml(const std::string& text) {
        return QString::fromStdString(text).toHtmlEscaped().toStdString();
    }

    /// Puts the text in the place of what stands behind each of these parts of a file, to the end of the
    /// line.
    void replaceBehind(const char* file, const std::vector<std::string>& parts) const {
        std::string text = readFile(root_ / file);
        for (const std::string& part : parts) {
            const auto place = text.find(part);
            ASSERT_NE(place, std::string::npos) << part;
            const auto begin = place + part.size();
            text.replace(begin, text.find_first_of("]\n", begin) - begin, kActingText);
        }
        writeFile(root_ / file, text);
    }

    void openProject() {
        std::filesystem::copy(OV_SAMPLES, root_.path(), std::filesystem::copy_options::recursive);
        replaceBehind("motorcontroller/motorcontroller.prj",
                      {"PcbCfgFileName=", "DBCFile=", "LayoutTool=", "Design#0=", "[Design ",
                       "TopBlock=", "Alias#0=", "Location#0=", "Function#0=", "SymbolPartition#0="});
        replaceBehind("motorcontroller/special.pin", {"Symbol#0="});
        replaceBehind("motorcontroller/borders.ini", {"A3SHEETL=", "TITLE=", "Name#3="});
        replaceBehind("library/parts.lmc", {"[Scheme ", "Symbols#0="});
        std::string error;
        opened_ = NProjectTools::COpenProject::open((root_ / "motorcontroller/motorcontroller.prj").string(),
                                                    error);
        ASSERT_TRUE(opened_) << error;
        opened_->configuration().topLevelProvider = toplevelsettings::getTopLevelSettingsProvider();
    }

    /// Looks at a window. @return in how many places it has the text.
    static long look(QWidget& window) {
        return std::ranges::count_if(textsWithoutEffect(window), [](const std::string& text) {
            return text.find("<img src='f'>") != std::string::npos;
        });
    }

    void open(const std::function<void(QDialog&)>& script) {
        whenDialog(
            [&](QDialog& dialog) {
                script(dialog);
                press(dialog, "Cancel");
            },
            &boxes_);
        ovsettings::showSettingsDialog(configuration_, opened_->configuration(), nullptr);
    }

    TemporaryDirectory root_;
    std::filesystem::path directory_;
    ScopedEnvironment wdir_;
    std::unique_ptr<NProjectTools::COpenProject> opened_;
};

TEST_F(ForeignText, ActsOnNoPage) {
    std::vector<std::string> telling; // the pages that have the text where markup is read
    open([&](QDialog& dialog) {
        long before = look(dialog);
        for (QTreeWidgetItemIterator item(dialog.findChild<QTreeWidget*>()); *item; ++item) {
            const std::string caption = (*item)->text(0).toStdString();
            messageDuring([&] { (*item)->treeWidget()->setCurrentItem(*item); });
            ASSERT_EQ(pageCaption(dialog), caption);
            if (const long places = look(dialog); places > std::exchange(before, places))
                telling.push_back(caption);
        }
    });
    EXPECT_EQ(telling,
              (std::vector<std::string>{"Advanced", "Grid", "Run on Startup", "Special Components",
                                        "Symbol Libraries", "Fixed Functions", "Objects", "gate-driver"}));
}

TEST_F(ForeignText, ActsInNoDialogOfAPage) {
    const std::string scheme = (root_ / (kActingText + ".lmc")).string();
    writeFile(scheme, "kept");
    long asked = 0;
    open([&](QDialog& dialog) {
        for (const auto& [page, button] : {std::pair{"Borders", "Properties"}, {"Symbol Libraries", "New"}}) {
            selectCategory(dialog, page);
            whenModal([](QWidget& modal) {
                look(modal);
                QTest::keyClick(&modal, Qt::Key_Escape);
            });
            press(dialog, button);
        }
        selectCategory(dialog, "Objects");
        whenModal([&](QWidget& chooser) {
            chooser.findChild<QLineEdit*>()->setText(QString::fromStdString(scheme));
            whenModal([&](QWidget& question) {
                asked = look(question);
                QTest::keyClick(&question, Qt::Key_Escape);
            });
            QTest::keyClick(&chooser, Qt::Key_Return);
            QTest::keyClick(&chooser, Qt::Key_Escape);
        });
        press(dialog, "Save Scheme");
    });
    EXPECT_EQ(asked, 1) << "the toolkit's question whether the file is to be replaced";
    EXPECT_EQ(readFile(scheme), "kept");
}

} // namespace
