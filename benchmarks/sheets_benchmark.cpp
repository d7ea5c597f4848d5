// The page "New Sheets" at growing numbers of border symbols in the project.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/bordersymbols.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

namespace {

constexpr int kTurns = 5;
constexpr int kSizes[] = {20, 200, 2'000, 20'000};
constexpr int kOtherSizes = 11; ///< in the page's list, whatever the project
constexpr int kMostInTheField = 2'000;
constexpr double kOpenTarget = 0.1;

/// That many border symbols, of which every other one is the first sheet's of a size.
class Borders : public Orv::IBorderSymbols {
public:
    explicit Borders(int names) {
        for (int i = 0; i < names / 2; ++i) {
            const std::string key = std::to_string(100 + i) + "x50SHEET";
            table_[key] = table_[key + '1'] = "borders:ANY";
        }
    }
    virtual ~Borders() = default;

    void Reload(const std::string&) override {}
    void Save(const std::string&) override {}
    Table& GetTable() override { return table_; }
    std::vector<Property>& GetProperties() override { return properties_; }
    std::vector<std::string> GetPropertyNames() override { return {}; }

private:
    Table table_;
    std::vector<Property> properties_;
};

/// Opens the dialog at the page, waits for its picture and cancels.
double secondsToOpen(Orv::iAppConfiguration& configuration, int names) {
    Borders borders(names);
    Orv::CProjectConfiguration project;
    project.borderSymbols = &borders;
    double seconds = 0;
    bool isWhole = false;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&, start = std::chrono::steady_clock::now()] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        QApplication::processEvents();
        seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        const auto* sizes = dialog->findChild<QComboBox*>(QStringLiteral("size"));
        isWhole = sizes && sizes->count() == names / 2 + kOtherSizes;
        dialog->reject();
    });
    turn.start(0);
    ovsettings::showSettingsDialog(configuration, project, nullptr);
    if (!isWhole)
        throw std::runtime_error("the page New Sheets does not list the borders");
    return seconds;
}

void openPage(benchmark::State& state, int names) {
    const Levels levels;
    Orv::iAppConfiguration configuration;
    configuration.load();
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {"New Sheets"};
    configuration.setProperty(last);
    const auto target = names <= kMostInTheField ? std::optional(kOpenTarget) : std::nullopt;
    compare(state, {[&] { return secondsToOpen(configuration, names); }, 1.0, target},
            {{"without border symbols", [&] {
                  return secondsToOpen(configuration, 0);
              }}});
}

} // namespace

void registerSheets() {
    for (const int names : kSizes) {
        const std::string name = "l open the dialog at " + std::to_string(names) + " border names";
        benchmark::RegisterBenchmark(name.c_str(), openPage, names)->UseManualTime()->Iterations(kTurns);
    }
}

} // namespace bench
