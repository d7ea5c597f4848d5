// The chooser of symbols over a growing central library, from the call or the key press to the picture.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "suite/cldialog.h"

#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTableView>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace bench {

namespace {

constexpr int kTurns = 3;
constexpr int kPartitionSize = 5000;
constexpr int kSizes[] = {1'000, 10'000, 100'000, 1'000'000};
constexpr int kLargestLibrary = 100'000; ///< that there is; what is larger only shows the growth
constexpr double kOpenTarget = 0.2;
// The shortest time in which a change looks immediate: one picture at 60 a second.
constexpr double kKeyTarget = 0.016;

std::optional<double> targetAt(int symbols, double target) {
    return symbols <= kLargestLibrary ? std::optional(target) : std::nullopt;
}

std::string symbolName(int number) {
    return "SN74" + std::to_string(number) + (number % 3 == 0 ? "_DIP" : "_SOIC");
}

enum class Partitions { empty, filled };

/// A library whose index names that many power symbols.
class Library : public cldialog::IDialogFeed {
public:
    Library(int symbols, Partitions content) : root_(levels_.userFile().parent_path() / "library") {
        std::filesystem::create_directory(root_);
        std::ofstream index(root_ / "parts.lmc", std::ios::binary);
        index << "[CentralLibrary]\nRelease=9.2\n[Partitions.Symbols]\n";
        const int partitions = (symbols + kPartitionSize - 1) / kPartitionSize;
        for (int i = 0; i < partitions; ++i) {
            index << 'p' << i << "=p" << i << '\n';
            std::filesystem::create_directory(root_ / ('p' + std::to_string(i)));
        }
        index << "[SpecialSymbols.Power]\n";
        for (int i = 0; i < symbols; ++i) {
            const std::string partition = 'p' + std::to_string(i / kPartitionSize);
            index << "Symbol#" << i << '=' << partition << ':' << symbolName(i) << '\n';
            if (content == Partitions::filled)
                std::ofstream(root_ / partition / (symbolName(i) + ".sym")) << "[Symbol]\n";
        }
        if (!index.flush())
            throw std::runtime_error("the library of the benchmark is not whole");
    }

    void GetSymbols(cldialog::IDataSource& source, std::vector<std::string>& symbols) override {
        source.GetPowerSymbols(symbols);
    }
    std::string GetCentralLibraryPath() override { return (root_ / "parts.lmc").string(); }

private:
    Levels levels_;
    std::filesystem::path root_;
};

/// Each library is written once.
Library& libraryOf(int symbols, Partitions content) {
    static std::map<std::pair<int, Partitions>, Library> libraries;
    return libraries.try_emplace({symbols, content}, symbols, content).first->second;
}

/// Opens the chooser, and when its picture is there, runs the script and cancels.
/// @return the seconds from the call to the picture.
double openChooser(Library& library, const std::function<void(QDialog&)>& script) {
    double seconds = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&, start = std::chrono::steady_clock::now()] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        QApplication::processEvents();
        seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        script(*dialog);
        dialog->reject();
    });
    turn.start(0);
    cldialog::showCentralLibraryDialog(library, "Power Symbol");
    return seconds;
}

void open(benchmark::State& state, int symbols) {
    Library& library = libraryOf(symbols, Partitions::empty);
    compare(state,
            {[&] { return openChooser(library, [](QDialog&) {}); }, 1.0, targetAt(symbols, kOpenTarget)}, {});
}

void pressKey(char letter) {
    QWidget* focus = QApplication::focusWidget();
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(letter)));
    QApplication::sendEvent(focus, &press);
    QApplication::processEvents();
}

/// The time of the key press that comes behind others.
void filter(benchmark::State& state, int symbols, const std::string& before, char letter) {
    Library& library = libraryOf(symbols, Partitions::empty);
    const auto run = [&] {
        double seconds = 0;
        openChooser(library, [&](QDialog& dialog) {
            QApplication::setActiveWindow(&dialog);
            for (const char typed : before)
                pressKey(typed);
            const int rows = dialog.findChild<QTableView*>()->model()->rowCount();
            seconds = secondsOf([&] { pressKey(letter); });
            if (rows == 0)
                throw std::runtime_error("there is nothing left to filter");
        });
        return seconds;
    };
    compare(state, {run, 1.0, targetAt(symbols, kKeyTarget)}, {});
}

void listAll(benchmark::State& state, int symbols) {
    Library& library = libraryOf(symbols, Partitions::filled);
    const auto run = [&] {
        double seconds = 0;
        openChooser(library, [&](QDialog& dialog) {
            auto* categories = dialog.findChild<QComboBox*>();
            const auto* model = dialog.findChild<QTableView*>()->model();
            seconds = secondsOf([&] {
                categories->setCurrentIndex(1);
                while (model->rowCount() < symbols)
                    QApplication::processEvents();
            });
        });
        return seconds;
    };
    compare(state, {run, static_cast<double>(symbols)}, {});
}

} // namespace

void registerChooser() {
    const auto add = [](const char* what, int symbols, auto run) {
        benchmark::RegisterBenchmark((what + std::to_string(symbols) + " symbols").c_str(),
                                     [run, symbols](benchmark::State& state) { run(state, symbols); })
            ->UseManualTime()
            ->Iterations(kTurns);
    };
    for (const int symbols : kSizes) {
        add("j open the chooser at ", symbols, open);
        add("j first letter in ", symbols,
            [](benchmark::State& state, int count) { filter(state, count, "", '4'); });
        add("j third letter in ", symbols,
            [](benchmark::State& state, int count) { filter(state, count, "di", 'p'); });
        if (symbols <= kLargestLibrary)
            add("j list each of ", symbols, listAll);
    }
}

} // namespace bench
