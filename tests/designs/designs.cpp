#include "tests/designs/designs.h"

#include "ovsettings/showsettingsdialog.h"

#include <QtWidgets/QAbstractButton>
#include <sqlite3.h>

using testsupport::writeFile;

void runSql(const std::filesystem::path& file, const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

std::string databaseSql(const std::vector<std::string>& blocks) {
    std::string sql = "PRAGMA user_version = 1;"
                      "CREATE TABLE snapshots (id INTEGER PRIMARY KEY, name TEXT);"
                      "CREATE TABLE blocks (snapshot INTEGER, position INTEGER, name TEXT);"
                      "INSERT INTO snapshots VALUES (1, 'Other'), (2, 'Orv');"
                      "INSERT INTO blocks VALUES (1, 1, 'ELSEWHERE');";
    // Written from the last on: the position counts, not the row.
    for (std::size_t i = blocks.size(); i > 0; --i)
        sql += "INSERT INTO blocks VALUES (2, " + std::to_string(i) + ", '" + blocks[i - 1] + "');";
    return sql;
}

Designs::Designs() {
    installation_.writeCatalogue("<dialog><localization>projects</localization></dialog>");
    EXPECT_TRUE(configuration_.load());
    runSql(database(), databaseSql({"TOP", "ADC", "DAC"}));
    writeLibrary("(Default)=1\nDigital=0\nProto=1\n[Scheme Digital]\nSymbols#0=logic\nSymbols#1=nowhere\n"
                 "PDBs#0=logic\n[Scheme Proto]\nSymbols#0=analog\nPDBs#0=analog\nCells#0=smd\n");
    openProject();
}

void Designs::writeLibrary(const std::string& schemes) {
    writeFile(directory_ / "lib/parts.lmc",
              "[CentralLibrary]\nRelease=9.2\n[Partitions.Symbols]\nlogic=symbols/logic\n"
              "analog=symbols/analog\npower=symbols/power\n[Partitions.PDBs]\nlogic=pdbs/logic.pdb\n"
              "analog=pdbs/analog.pdb\n[Partitions.Cells]\nsmd=cells/smd.cel\n[Schemes]\n" +
                  schemes);
}

void Designs::openProject(const std::string& main) {
    writeFile(directory_ / "demo.prj",
              "[DesignInfo]\nCentralLibrary=" + (directory_ / "lib/parts.lmc").string() + "\nDatabase=" +
                  database().string() + "\n[Designs]\nDesign#0=main\nDesign#1=power\n[Design main]\n" + main);
    std::string error;
    project_ = NProjectTools::COpenProject::open((directory_ / "demo.prj").string(), error);
    ASSERT_NE(project_, nullptr) << error;
}

int Designs::run(const std::function<void(QDialog&)>& script, const std::string& design) {
    testsupport::whenDialog(
        [&](QDialog& dialog) {
            testsupport::selectCategory(dialog, design);
            script(dialog);
        },
        &boxes_);
    return ovsettings::showSettingsDialog(configuration_, project_->configuration(), &updater_);
}

std::vector<std::string> Designs::captions(QDialog& dialog) {
    auto* tree = dialog.findChild<QTreeWidget*>();
    std::vector<std::string> captions;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        captions.push_back(tree->topLevelItem(i)->text(0).toStdString());
    return captions;
}

NProjectTools::CProjectFileUtilitiesLight Designs::onDisk() const {
    return NProjectTools::CProjectFileUtilitiesLight((directory_ / "demo.prj").c_str());
}

QComboBox& combo(QDialog& dialog, const std::string& caption) {
    return *testsupport::find<QComboBox>(dialog, caption);
}

void choose(QDialog& dialog, const std::string& caption, const std::string& entry) {
    QComboBox& box = combo(dialog, caption);
    const int wanted = box.findText(QString::fromStdString(entry));
    ASSERT_GE(wanted, 0) << entry;
    while (box.currentIndex() != wanted)
        QTest::keyClick(&box, box.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
}

QListWidget& list(QDialog& dialog, const std::string& title) {
    for (auto* found : dialog.findChildren<QListWidget*>()) {
        if (found->accessibleName().toStdString() == title)
            return *found;
    }
    throw std::runtime_error("no list " + title);
}

std::vector<std::string> lines(QDialog& dialog, const std::string& title) {
    return textsOf(list(dialog, title));
}
