// Which pages report themselves to the host, and under which names.

#include "ovsettings/showsettingsdialog.h"
#include "ovsettings/updatehost.h"
#include "suite/openproject.h"
#include "tests/host/hostdialog.h"

#include <QtWidgets/QTableView>

#include <algorithm>
#include <functional>

using ovsettings::kPageReports;
using ovsettings::PageReport;
using testsupport::find;

namespace {

void pressKey(QWidget& control, Qt::Key key) {
    control.setFocus();
    QTest::keyClick(&control, key);
}

/// The first line of a list, or whatever is in the second column of a grid.
void deleteEntry(QDialog& dialog) {
    QWidget& area = *dialog.findChild<QWidget*>(QStringLiteral("pageHost"));
    if (auto* list = area.findChild<QListWidget*>()) {
        list->setCurrentRow(0);
        return pressKey(*list, Qt::Key_Delete);
    }
    auto* grid = area.findChild<QTableView*>();
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
        grid->setCurrentIndex(grid->model()->index(row, 1));
        pressKey(*grid, Qt::Key_Delete);
    }
}

void renameEntry(QDialog& dialog) {
    auto* list = dialog.findChild<QWidget*>(QStringLiteral("pageHost"))->findChild<QListWidget*>();
    list->setCurrentRow(0);
    pressKey(*list, Qt::Key_F2);
    testsupport::type(*QApplication::focusWidget(), "own:PORT");
}

void restyleBus(QDialog& dialog) {
    auto* grid = dialog.findChild<QTableView*>();
    const auto& model = *grid->model();
    const auto bus = model.match(model.index(0, 0), Qt::DisplayRole, QStringLiteral("Bus")).value(0);
    grid->setFocus();
    grid->setCurrentIndex(bus.siblingAtColumn(4));
    QTest::keyClick(grid, Qt::Key_Space);
    auto* styles = QApplication::activePopupWidget()->findChild<QAbstractItemView*>();
    pressKey(*styles, Qt::Key_Down);
    pressKey(*styles, Qt::Key_Return);
    QApplication::processEvents();
}

/// Types the text over a length that is on show, which stands for another length.
void retypeBoxSize(QDialog& dialog) {
    auto* grid = dialog.findChild<QTableView*>();
    const auto& model = *grid->model();
    const auto found = model.match(model.index(0, 0), Qt::DisplayRole, QStringLiteral("Box Size"));
    const QModelIndex size = found.value(0).siblingAtColumn(1);
    grid->setCurrentIndex(size);
    pressKey(*grid, Qt::Key_F2);
    testsupport::type(*QApplication::focusWidget(), size.data().toString().toStdString());
}

void leaveUnits(bool storing, QDialog& dialog) {
    pressKey(*find<QComboBox>(dialog, "Unit"), Qt::Key_Down);
    testsupport::answerNextMessageBox(storing ? "Yes" : "No");
    testsupport::selectCategory(dialog, "Grid");
}

/// @param file what the file dialog is given; empty to cancel it.
void useScheme(QDialog& dialog, const char* button, const std::string& file) {
    restyleBus(dialog);
    testsupport::whenModal([&file](QWidget& modal) {
        modal.findChild<QLineEdit*>()->setText(QString::fromStdString(file));
        QTest::keyClick(&modal, file.empty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    press(dialog, button);
}

struct Edit {
    const char* pageKey;
    std::function<void(QDialog&)> make;
};

Edit pressing(const char* pageKey, const char* caption) {
    return {pageKey, [caption](QDialog& dialog) {
                press(dialog, caption);
            }};
}

Edit choosingNext(const char* pageKey, const char* caption) {
    return {pageKey, [caption](QDialog& dialog) {
                pressKey(*find<QComboBox>(dialog, caption), Qt::Key_Down);
            }};
}

Edit typing(const char* pageKey, const char* caption, const char* text) {
    return {pageKey, [caption, text](QDialog& dialog) {
                testsupport::type(*find<QLineEdit>(dialog, caption), text);
            }};
}

const Edit kEdits[] = {
    pressing("Pan and Zoom", "Lorvik Pan and Zoom"),
    choosingNext("Metrics", "Unit"),
    pressing("Grid", "Display"),
    pressing("Nets", "Snap Nets To Pin"),
    pressing("New Sheet", "Portrait"),
    choosingNext("New Object", "Default Text Origin"),
    pressing("NetNameDelimiter", "Round Brackets \"()\""),
    pressing("Display", "Border"),
    typing("Netlist Project", "PCB Configuration", "own.cfg"),
    {"Central Library",
     [](QDialog& dialog) {
         press(dialog, "Use Remote Server Configuration Manager");
         testsupport::type(*find<QLineEdit>(dialog, "Server Name"), "host");
     }},
    {"Font Mappings",
     [](QDialog& dialog) {
         pressKey(*find<QAbstractSpinBox>(dialog, "Scale factor"), Qt::Key_Up);
     }},
    {"Objects", restyleBus},
    {"Run on Startup", deleteEntry},
    {"Special Components", renameEntry},
    {"Symbol Libraries", deleteEntry},
    {"Fixed Functions", deleteEntry},
    {"Borders", deleteEntry},
    typing("PartBookDialog", "OvPartBook configuration", "a.dbc"),
    {"Advanced",
     [](QDialog& dialog) {
         auto* grid = dialog.findChild<QTableView*>();
         testsupport::clickCell(*grid, 1, 2);
         pressKey(*grid, Qt::Key_Space);
     }},
};

class Reports : public HostDialog {
protected:
    Reports() {
        std::filesystem::copy(OV_SAMPLES, samples_.path(), std::filesystem::copy_options::recursive);
        testsupport::writeFile(installation_.user() / "scripts.ini", "[PlanDraw]\nForm#0=a\n");
        std::string error;
        opened_ = NProjectTools::COpenProject::open(
            (samples_ / "motorcontroller/motorcontroller.prj").string(), error);
        EXPECT_TRUE(opened_) << error;
        std::string dialogs;
        for (const PageReport& page : kPageReports)
            dialogs += entry(page.pageKey, "internal");
        catalogue(dialogs);
    }

    void openAt(const char* pageKey, const std::function<void(QDialog&)>& script, Orv::IUpdater* updater) {
        Orv::iAppConfiguration::Property last("MRU_SETTINGS");
        last.values = {pageKey};
        configuration_.setProperty(last);
        testsupport::whenDialog(
            [&](QDialog& dialog) {
                EXPECT_EQ(selectedCategory(dialog), pageKey);
                script(dialog);
                if (dialog.isVisible())
                    press(dialog, "Cancel");
            },
            &boxes_);
        ovsettings::showSettingsDialog(configuration_, opened_->configuration(), updater);
    }

    /// Whether Escape asks, and about that page alone.
    static bool asksAtEscape(QDialog& dialog, const std::string& pageKey) {
        const std::string question =
            testsupport::messageDuring([&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); });
        EXPECT_TRUE(question.empty() || question.ends_with("\n\n" + pageKey)) << question;
        return !question.empty();
    }

    /// Opens the dialog at a page and works on it. @return the names that OK reports.
    std::set<std::string> reportedAfter(const Edit& edit) {
        std::vector<std::string> names;
        for (const PageReport& page : kPageReports)
            names.emplace_back(page.name);
        AskingUpdater updater(names);
        openAt(
            edit.pageKey,
            [&edit](QDialog& dialog) {
                edit.make(dialog);
                EXPECT_TRUE(asksAtEscape(dialog, edit.pageKey));
                press(dialog, "OK");
            },
            &updater);
        EXPECT_EQ(updater.notifications.size(), 1u);
        return updater.notifications.empty() ? std::set<std::string>() : updater.notifications.front();
    }

    testsupport::TemporaryDirectory samples_;
    std::unique_ptr<NProjectTools::COpenProject> opened_;
};

TEST_F(Reports, EveryPageAsksBeforeItsEditsAreGivenUpAndReportsThemIfTheTableSaysSo) {
    for (const Edit& edit : kEdits) {
        SCOPED_TRACE(edit.pageKey);
        const auto* page = std::ranges::find(kPageReports, std::string(edit.pageKey), &PageReport::pageKey);
        ASSERT_NE(page, std::end(kPageReports));
        EXPECT_EQ(reportedAfter(edit),
                  page->reports ? std::set<std::string>{page->name} : std::set<std::string>());
    }
}

TEST_F(Reports, EscapeAsksAboutWhatIsNotStoredWhateverIsNewsForTheHost) {
    configuration_.setNumber("BOXSIZE_HR", 317500);
    const std::string scheme = (samples_ / "own.ovc").string();
    const struct {
        Edit edit;
        bool asks;
    } rows[] = {
        {{"Advanced", retypeBoxSize}, true},
        {{"Metrics", std::bind_front(leaveUnits, false)}, true},
        {{"Metrics", std::bind_front(leaveUnits, true)}, false},
        {{"Objects",
          [](QDialog& dialog) {
              useScheme(dialog, "Load Scheme", "");
          }},
         true},
        {{"Objects",
          [&](QDialog& dialog) {
              useScheme(dialog, "Save Scheme", scheme);
          }},
         false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.edit.pageKey);
        openAt(
            row.edit.pageKey,
            [&](QDialog& dialog) {
                row.edit.make(dialog);
                EXPECT_EQ(asksAtEscape(dialog, row.edit.pageKey), row.asks);
            },
            nullptr);
    }
}

} // namespace
