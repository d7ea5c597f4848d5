// What a user waits for in the dialog when there is much of something: categories, designs, partitions,
// symbols.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "suite/openproject.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {

namespace {

constexpr int kTurns = 3;
constexpr int kSizes[] = {100, 1'000, 10'000};
/// What still feels like one movement with the hand that caused it, at any of these sizes.
constexpr double kStepTarget = 0.1;

/// In the order in which they are gone through, each with all before it. A page is changed by its first check
/// box.
enum class Step { open, apply, last, typeAhead, close };
constexpr std::array kSteps{Step::open, Step::apply, Step::last, Step::typeAhead, Step::close};
constexpr const char* kStepNames[] = {"open", "change and apply", "to the last category", "type ahead",
                                      "cancel"};

struct Kind {
    const char* name;
    const char* page; ///< the category to open the dialog at
    void (*write)(const std::filesystem::path& directory, int count);
    bool changes = true; ///< false where a check box asks for a text beside it
};

void writeText(const std::filesystem::path& path, const std::string& text) {
    if (!(std::ofstream(path, std::ios::binary) << text).flush())
        throw std::runtime_error("cannot write " + path.string());
}

std::string repeated(int count, std::string (*line)(const std::string& number)) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += line(std::to_string(i));
    return text;
}

void writeCatalogue(const std::filesystem::path& directory, int count) {
    const auto category = [](const std::string& number) {
        return "<dialog><name>Category " + number +
               "</name><classid>Grid</classid><localization>internal</localization></dialog>";
    };
    writeText(directory.parent_path() / "home/standard/settings.xml",
              "<settings>" + repeated(count, category) + "</settings>");
}

void writeDesigns(const std::filesystem::path& directory, int count) {
    const auto name = [](const std::string& number) {
        return "Design#" + number + "=design" + number + "\n";
    };
    const auto section = [](const std::string& number) {
        return "[Design design" + number + "]\nSearchScheme={Local to Project}\nConflictWinner=BE\n";
    };
    writeText(directory / "demo.prj",
              "[DesignInfo]\n[Designs]\n" + repeated(count, name) + repeated(count, section));
}

void writeSymbols(const std::filesystem::path& directory, int count) {
    writeText(directory / "demo.prj", "[DesignInfo]\nPinComponents=special.pin\n");
    const auto symbol = [](const std::string& number) {
        return "Symbol#" + number + "=special:PORT" + number + "\n";
    };
    writeText(directory / "special.pin", "[PortIn]\n" + repeated(count, symbol));
}

void writeBorders(const std::filesystem::path& directory, int count) {
    writeText(directory / "demo.prj", "[DesignInfo]\nBorderSymbols=borders.ini\n");
    const auto border = [](const std::string& number) {
        return number + "x50SHEET=borders:ANY" + number + "\n";
    };
    writeText(directory / "borders.ini", "[Borders]\n" + repeated(count, border));
}

/// Both a partition and a scheme of the library each.
void writePartitions(const std::filesystem::path& directory, int count) {
    writeText(directory / "demo.prj", "[DesignInfo]\nCentralLibrary=parts.lmc\n[Designs]\nDesign#0=main\n");
    const auto partition = [](const std::string& number) {
        return "p" + number + "=symbols/p" + number + "\n";
    };
    const auto scheme = [](const std::string& number) {
        return "s" + number + "=1\n";
    };
    writeText(directory / "parts.lmc", "[CentralLibrary]\nRelease=9.2\n[Partitions.Symbols]\n" +
                                           repeated(count, partition) + "[Schemes]\n(Default)=1\n" +
                                           repeated(count, scheme));
}

constexpr Kind kKinds[] = {
    {"categories", "Category 0", writeCatalogue},
    {"designs", "design0", writeDesigns},
    {"special symbols", "Special Components", writeSymbols},
    {"borders", "Borders", writeBorders},
    {"partitions, at the library", "Central Library", writePartitions, false},
    {"partitions and schemes, at a design", "main", writePartitions},
};

void click(QDialog& dialog, QLatin1String caption) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == caption)
            return button->click();
    }
    throw std::runtime_error("the dialog lacks a button");
}

void changePage(QDialog& dialog) {
    for (auto* box : dialog.findChildren<QCheckBox*>()) {
        if (box->isVisible() && box->isEnabled())
            return box->click();
    }
}

/// Goes through the steps and gives the seconds of one of them, to the picture. Of the processor: a step's
/// one or two flushes to the disk are measured elsewhere.
double secondsOfStep(const Kind& kind, const std::filesystem::path& directory, Step wanted) {
    Orv::iAppConfiguration configuration;
    configuration.load();
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {kind.page};
    configuration.setProperty(last);
    std::string error;
    const auto project = NProjectTools::COpenProject::open((directory / "demo.prj").string(), error);
    if (!project)
        throw std::runtime_error(error);

    std::array<double, kSteps.size()> seconds{};
    auto start = std::clock();
    const auto finish = [&](Step step) {
        QApplication::processEvents();
        const auto now = std::clock();
        seconds[static_cast<std::size_t>(step)] = static_cast<double>(now - start) / CLOCKS_PER_SEC;
        start = now;
    };
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        finish(Step::open);
        auto* tree = dialog->findChild<QTreeWidget*>();
        if (!tree || !tree->currentItem() || tree->currentItem()->text(0) != QLatin1String(kind.page))
            throw std::runtime_error("the dialog is not at the page");
        if (kind.changes)
            changePage(*dialog);
        click(*dialog, QLatin1String("Apply"));
        finish(Step::apply);
        QTest::keyClick(tree, Qt::Key_End);
        finish(Step::last);
        QTest::keyClicks(tree, QString::fromLatin1(kind.page).left(3));
        finish(Step::typeAhead);
        dialog->reject();
    });
    turn.start(0);
    ovsettings::showSettingsDialog(configuration, project->configuration(), nullptr);
    finish(Step::close);
    return seconds[static_cast<std::size_t>(wanted)];
}

void runStep(benchmark::State& state, const Kind& kind, int count, Step step) {
    const Levels levels;
    const auto directory = levels.userFile().parent_path();
    writeText(directory / "demo.prj", "[DesignInfo]\n");
    kind.write(directory, count);
    compare(state, {[&] { return secondsOfStep(kind, directory, step); }, 1.0, kStepTarget}, {});
}

} // namespace

void registerGrowth() {
    for (const Kind& kind : kKinds) {
        for (const Step step : kSteps) {
            for (const int count : kSizes) {
                const std::string name = std::string("n ") + kStepNames[static_cast<std::size_t>(step)] +
                                         ", " + std::to_string(count) + ' ' + kind.name;
                benchmark::RegisterBenchmark(name.c_str(), runStep, kind, count, step)
                    ->UseManualTime()
                    ->Iterations(kTurns);
            }
        }
    }
}

} // namespace bench
