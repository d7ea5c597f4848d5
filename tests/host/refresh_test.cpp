// What the dialog makes of settings that other programs write while it is open.

#include "tests/host/hostdialog.h"
#include "tests/support/configurationtext.h"

#include <QtWidgets/QTableView>

using testsupport::find;
using testsupport::selectCategory;

namespace {

/// A value of a key, and what another program writes or a file holds.
struct Value {
    const char* key;
    std::string text;
    std::size_t field = 0;
};

void writeAsAnotherProgram(const std::vector<Value>& values) {
    Orv::iAppConfiguration other;
    ASSERT_TRUE(other.load());
    for (const auto& [key, text, field] : values) {
        Orv::iAppConfiguration::Property property(key);
        ASSERT_TRUE(other.getProperty(property)) << key;
        property.values.at(field) = text;
        other.setProperty(property);
    }
    ASSERT_TRUE(other.save());
}

void expectStored(const std::vector<Value>& values) {
    Orv::iAppConfiguration fresh;
    ASSERT_TRUE(fresh.load());
    for (const auto& [key, text, field] : values) {
        Orv::iAppConfiguration::Property property(key);
        ASSERT_TRUE(fresh.getProperty(property)) << key;
        EXPECT_EQ(property.values.at(field), text) << key;
    }
}

void switchWindows() {
    for (const Qt::ApplicationState state : {Qt::ApplicationInactive, Qt::ApplicationActive}) {
        QApplicationStateChangeEvent event(state);
        QApplication::sendEvent(qApp, &event);
    }
}

std::string notice(QDialog& dialog) {
    return dialog.findChild<QLabel*>(QStringLiteral("notice"))->text().toStdString();
}

std::string cellBeside(QDialog& dialog, const std::string& caption) {
    const auto* model =
        dialog.findChild<QWidget*>(QStringLiteral("pageHost"))->findChild<QTableView*>()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data(Qt::EditRole).toString().toStdString().starts_with(caption))
            return model->index(row, 1).data(Qt::EditRole).toString().toStdString();
    }
    return "(none)";
}

class Refresh : public HostDialog {
protected:
    Refresh() {
        std::string entries;
        for (const char* key : {"Nets", "Grid", "Advanced", "Metrics", "New Object", "Pan and Zoom",
                                "Display", "New Sheet", "Font Mappings", "Objects"})
            entries += entry(key, "internal");
        catalogue(entries);
    }

    void writeSite(const std::string& sections) { testsupport::writeLevel(installation_.site(), sections); }

    /// Opens the dialog at a page.
    void runAt(const char* page, const std::function<void(QDialog&)>& script) {
        Orv::iAppConfiguration::Property last("MRU_SETTINGS");
        last.values = {page};
        configuration_.setProperty(last);
        run([&](QDialog& dialog) {
            ASSERT_EQ(selectedCategory(dialog), page);
            script(dialog);
            if (dialog.isVisible())
                press(dialog, "Cancel");
        });
    }
};

TEST_F(Refresh, PagesShowWhatOthersWroteWhenTheApplicationIsActiveAgainAndKeepTheirEdits) {
    runAt("Nets", [](QDialog& dialog) {
        for (const char* page : {"Grid", "Advanced", "Nets"})
            selectCategory(dialog, page);
        press(dialog, "Snap Nets To Pin");
        writeAsAnotherProgram({{"GRID_HR", "508000"}, {"BOXSIZE_HR", "635000"}, {"AUTOPAN", "0"}});

        // Not while something is asked: then once that is over.
        std::string shown;
        testsupport::whenModal([&](QWidget& box) {
            switchWindows();
            QApplication::processEvents();
            shown = cellBeside(dialog, "Auto Pan");
            dynamic_cast<QMessageBox&>(box).accept();
        });
        QMessageBox(QMessageBox::NoIcon, "", "A question", QMessageBox::Ok, &dialog).exec();
        testsupport::activate(dialog);
        QApplication::processEvents();
        EXPECT_EQ(shown, "1");

        press(dialog, "Apply");
        selectCategory(dialog, "Grid");
        EXPECT_EQ(textsOnShow(dialog), std::vector<std::string>{"0.20"});
        selectCategory(dialog, "Advanced");
        EXPECT_EQ(cellBeside(dialog, "Auto Pan") + cellBeside(dialog, "Box Size"), "00.25");
        EXPECT_EQ(notice(dialog), "");
    });
    expectStored({{"GRID_HR", "508000"}, {"BOXSIZE_HR", "635000"}, {"AUTOPAN", "0"}, {"SNAPTOPIN", "0"}});
}

TEST_F(Refresh, WaitsForTheEndOfACommand) {
    catalogue(category("A"));
    float during = 0;
    recorder().acts["A.onApply"] = [&] {
        writeAsAnotherProgram({{"GRID_HR", "508000"}});
        switchWindows();
        during = configuration_.getNumber("GRID_HR");
    };
    run([&](QDialog& dialog) {
        press(dialog, "Apply");
        QApplication::processEvents();
        EXPECT_EQ(configuration_.getNumber("GRID_HR"), 508000.0F);
        press(dialog, "Cancel");
    });
    EXPECT_EQ(during, 254000.0F);
}

QTableView& gridOf(QDialog& dialog) {
    for (auto* grid : dialog.findChild<QWidget*>(QStringLiteral("pageHost"))->findChildren<QTableView*>()) {
        if (grid->isVisible())
            return *grid;
    }
    throw std::runtime_error("no grid on show");
}

/// An edit gives the control another value each time that it is made.
struct PageRow {
    const char* page;
    std::function<void(QDialog&)> edit;
    std::vector<Value> edited; ///< what the page stores after it
    std::vector<Value> others; ///< what another program writes to what the page shows besides
    std::string lock;          ///< a section of the site that locks the first key that was edited
};

std::function<void(QDialog&)> pressing(const char* caption) {
    return [caption](QDialog& dialog) {
        press(dialog, caption);
    };
}

std::string lockedSetting(const std::string& key, const std::string& text) {
    return testsupport::setting(key, text, true);
}

std::function<void(QDialog&)> choosingNext(const char* caption) {
    return [caption](QDialog& dialog) {
        QWidget* list = testsupport::controlByCaption(dialog, caption);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Down);
    };
}

const PageRow kPages[] = {
    {"Nets",
     pressing("Snap Nets To Pin"),
     {{"SNAPTOPIN", "0"}},
     {{"ROUTE", "1"}, {"ADISTANCE_HR", "508000"}, {"UNIT", "mm"}},
     lockedSetting("SNAPTOPIN", "0")},
    {"Grid",
     pressing("Display"),
     {{"GRIDON", "0"}},
     {{"GRID_HR", "508000"}, {"GRID_HIGHLIGHT_MARKS", "1"}},
     lockedSetting("GRIDON", "0")},
    {"Metrics", choosingNext("Unit"), {{"UNIT", "mm"}}, {}, lockedSetting("UNIT", "in")},
    {"New Object",
     choosingNext("Default Text Origin"),
     {{"TEXTORIGIN", "4"}},
     {{"TEXTSIZE_HR", "508000"}},
     lockedSetting("TEXTORIGIN", "7")},
    {"Pan and Zoom",
     [](QDialog& dialog) {
         const bool isLorvik = find<QRadioButton>(dialog, "Lorvik Pan and Zoom")->isChecked();
         press(dialog, isLorvik ? "Default Pan and Zoom" : "Lorvik Pan and Zoom");
     },
     {{"LORVIK_ZOOM", "1"}, {"DEFAULT_ZOOM", "0"}},
     {{"MIDSTROKE", "1"}},
     lockedSetting("LORVIK_ZOOM", "1")},
    {"Display",
     pressing("Border"),
     {{"BORDERON", "0"}},
     {{"NET_TOOLTIPS", "1"}, {"TEXT", "0"}},
     lockedSetting("BORDERON", "0")},
    {"Advanced",
     [](QDialog& dialog) {
         testsupport::clickCell(gridOf(dialog), 1, 2);
         QTest::keyClick(&gridOf(dialog), Qt::Key_Space);
     },
     {{"AREA_SELECTION_OVERLAP", "1"}},
     {{"CROSSCURSOR", "1"}, {"BOXSIZE_HR", "508000"}, {"AUTOPAN", "0"}},
     lockedSetting("AREA_SELECTION_OVERLAP", "1")},
    {"New Sheet",
     pressing("Automatically add border to new schematic sheets."),
     {{"DEFSHEET", "1"}},
     {{"SHEETSIZE", "3"}, {"ORIENTATION", "1"}},
     lockedSetting("DEFSHEET", "1")},
    {"Font Mappings",
     choosingNext("Scale factor"),
     {{"SCALEFACTOR", "0.9"}},
     {{"ROMAN", "Courier", 0}, {"ROMAN", "400", 2}},
     lockedSetting("SCALEFACTOR", "2")},
    {"Objects",
     [](QDialog& dialog) {
         QTableView& grid = gridOf(dialog);
         const int bus = 6, width = 7;
         const bool isFour =
             grid.model()->index(bus - 1, width - 1).data(Qt::EditRole).toString() == QLatin1String("4");
         testsupport::clickCell(grid, bus, width);
         testsupport::type(*QApplication::focusWidget(), isFour ? "5" : "4"); // and its editor stays open
     },
     {{"BUS", "4", 5}},
     {{"BUS", "0x123456", 2}, {"NET", "3", 4}, {"ICTBUS", "0x00ff00", 0}},
     R"(<section path="Orvane/OBJECTS"><group type="object" name="BUS">
            <attribute name="LINE_THICKNESS" locked="yes">7</attribute></group></section>)"},
};

class RefreshOfPage : public Refresh, public testing::WithParamInterface<PageRow> {};

TEST_P(RefreshOfPage, FollowsControlByControlAndTellsWhichEditALockTookUntilItIsUnlocked) {
    const PageRow& row = GetParam();
    runAt(row.page, [&](QDialog& dialog) {
        row.edit(dialog);
        writeAsAnotherProgram(row.others);
        switchWindows();
        EXPECT_EQ(notice(dialog), "");
        press(dialog, "Apply");
        expectStored(row.others);
        expectStored(row.edited);

        row.edit(dialog);
        writeSite(row.lock);
        switchWindows();
        const std::string told = notice(dialog);
        EXPECT_TRUE(told.starts_with(std::string("Your change of ") + row.edited.front().key)) << told;
        EXPECT_TRUE(
            told.ends_with("was given up: it is locked now by " + installation_.site().string() + "."))
            << told;
        // Unlocked, it shows the user's own value again, and takes the next edit of that.
        writeSite("");
        switchWindows();
        row.edit(dialog);
        press(dialog, "Apply");
        EXPECT_EQ(notice(dialog), "");
        const auto& [key, text, field] = row.edited.front();
        Orv::iAppConfiguration::Property property(key);
        EXPECT_TRUE(configuration_.getProperty(property));
        EXPECT_NE(property.values.at(field), text);
        expectStored(row.others);
        QTest::keyClick(&dialog, Qt::Key_Escape); // there is nothing left to ask for
        EXPECT_FALSE(dialog.isVisible());
    });
}

INSTANTIATE_TEST_SUITE_P(AllPages, RefreshOfPage, testing::ValuesIn(kPages), [](const auto& page) {
    std::string name = page.param.page;
    std::erase(name, ' ');
    return name;
});

} // namespace
