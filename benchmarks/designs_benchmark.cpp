// The page of a design at growing numbers of blocks in its database and of partitions in its library.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "suite/openproject.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QListWidget>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace bench {

namespace {

constexpr int kTurns = 3;
constexpr int kBlocks[] = {1'000, 10'000, 100'000, 1'000'000};
constexpr int kPartitions[] = {100, 1'000, 10'000};

/// A project of one design, which has its own lists: every other partition of the library.
class Project {
public:
    Project(const std::filesystem::path& directory, int blocks, int partitions) {
        writeDatabase(directory / "demo.kds", blocks);
        writeFile(directory / "parts.lmc", index(partitions));
        std::string text = "[DesignInfo]\nCentralLibrary=" + (directory / "parts.lmc").string() +
                           "\nDatabase=" + (directory / "demo.kds").string() +
                           "\n[Designs]\nDesign#0=main\n[Design main]\nSearchScheme={Local to Project}\n";
        for (int i = 0; i < partitions / 2; ++i)
            text += "SymbolPartition#" + std::to_string(i) + "=p" + std::to_string(2 * i) + "\n";
        writeFile(directory / "demo.prj", text);
        std::string error;
        project_ = NProjectTools::COpenProject::open((directory / "demo.prj").string(), error);
        if (!project_)
            throw std::runtime_error(error);
    }

    Orv::CProjectConfiguration& configuration() { return project_->configuration(); }

private:
    static void writeFile(const std::filesystem::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

    static std::string index(int partitions) {
        std::string text = "[CentralLibrary]\nRelease=9.2\n[Schemes]\n(Default)=1\n[Partitions.Symbols]\n";
        for (int i = 0; i < partitions; ++i)
            text += "p" + std::to_string(i) + "=symbols/p" + std::to_string(i) + "\n";
        return text;
    }

    static void writeDatabase(const std::filesystem::path& path, int blocks) {
        const std::string sql =
            "PRAGMA user_version = 1; CREATE TABLE snapshots (id INTEGER PRIMARY KEY, name TEXT);"
            "CREATE TABLE blocks (snapshot INTEGER, position INTEGER, name TEXT, "
            "PRIMARY KEY (snapshot, position)) WITHOUT ROWID;"
            "INSERT INTO snapshots VALUES (1, 'Orv');"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(blocks) + ") INSERT INTO blocks SELECT 1, i, 'BLOCK' || i FROM n;";
        sqlite3* database = nullptr;
        const bool isWritten = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                               sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
        sqlite3_close(database);
        if (!isWritten)
            throw std::runtime_error("no database");
    }

    std::unique_ptr<NProjectTools::COpenProject> project_;
};

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Opens the dialog at the design's page, waits for its picture, lets `measure` add what it does, and
/// cancels.
double secondsToOpen(Orv::iAppConfiguration& configuration, Project& project,
                     const std::function<double(QDialog&)>& measure = {}) {
    double seconds = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&, start = std::chrono::steady_clock::now()] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        QApplication::processEvents();
        seconds = measure ? measure(*dialog) : secondsSince(start);
        dialog->reject();
    });
    turn.start(0);
    ovsettings::showSettingsDialog(configuration, project.configuration(), nullptr);
    return seconds;
}

/// Edits the first line of the list of symbol partitions, to the drop-down list of those that are not listed.
double secondsToOffer(QDialog& dialog, int offered) {
    auto* list = dialog.findChild<QWidget*>(QStringLiteral("symbolPartitions"))->findChild<QListWidget*>();
    list->setCurrentRow(0);
    const auto start = std::chrono::steady_clock::now();
    QTest::keyClick(list, Qt::Key_F2);
    const auto* combo = list->viewport()->findChild<QComboBox*>();
    QApplication::processEvents();
    const double seconds = secondsSince(start);
    if (!combo || combo->count() != offered)
        throw std::runtime_error("the drop-down list does not offer the other partitions");
    return seconds;
}

void startAtDesign(Orv::iAppConfiguration& configuration) {
    configuration.load();
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {"main"};
    configuration.setProperty(last);
}

void openWithBlocks(benchmark::State& state, int blocks) {
    const Levels levels;
    Orv::iAppConfiguration configuration;
    startAtDesign(configuration);
    Project project(std::filesystem::path(levels.userFile()).parent_path(), blocks, 10);
    compare(state, {[&] { return secondsToOpen(configuration, project); }, 1.0, std::nullopt}, {});
}

void offerPartitions(benchmark::State& state, int partitions) {
    const Levels levels;
    Orv::iAppConfiguration configuration;
    startAtDesign(configuration);
    Project project(std::filesystem::path(levels.userFile()).parent_path(), 10, partitions);
    const auto offer = [partitions](QDialog& dialog) {
        return secondsToOffer(dialog, partitions - partitions / 2 + 1); // its own one included
    };
    compare(state, {[&] { return secondsToOpen(configuration, project, offer); }, 1.0, std::nullopt},
            {{"opening the page", [&] {
                  return secondsToOpen(configuration, project);
              }}});
}

} // namespace

void registerDesigns() {
    for (const int blocks : kBlocks) {
        const std::string name = "m open the dialog at a design of " + std::to_string(blocks) + " blocks";
        benchmark::RegisterBenchmark(name.c_str(), openWithBlocks, blocks)
            ->UseManualTime()
            ->Iterations(kTurns);
    }
    for (const int partitions : kPartitions) {
        const std::string name = "m edit a line, of " + std::to_string(partitions) + " partitions";
        benchmark::RegisterBenchmark(name.c_str(), offerPartitions, partitions)
            ->UseManualTime()
            ->Iterations(kTurns);
    }
}

} // namespace bench
