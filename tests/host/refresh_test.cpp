// What the dialog makes of settings that other programs write while it is open.

#include "tests/host/hostdialog.h"

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
        for (const char* key : {"Nets", "Grid", "Advanced", "Metrics", "New Object"})
            entries += entry(key, "internal");
        catalogue(entries);
    }

    void writeSite(const std::string& sections) {
        testsupport::writeFile(installation_.site() / "orvane.xml",
                               "<configuration>" + sections + "</configuration>");
    }

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

} // namespace
