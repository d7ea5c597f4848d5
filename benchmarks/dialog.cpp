// The dialog on the sample installation, up to the point where a user sees something.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QTreeWidgetItemIterator>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <stdexcept>
#include <string>

namespace bench {

namespace {

// The shortest time in which a change looks immediate: one picture at 60 a second.
constexpr double kPageTarget = 0.016;
constexpr int kOpenings = 5;
constexpr const char* kEmptyPage = "Schematic Editor";
constexpr const char* kFilledPage = "Units";

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Runs the script in the first turn of the modal loop that has the dialog on show, and closes the dialog.
class FirstTurn {
public:
    explicit FirstTurn(std::function<void(QDialog&)> script) : script_(std::move(script)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
        timer_.start(0);
    }
    /// Whether something else than the dialog came up.
    bool wasInterrupted() const { return interrupted_; }

private:
    void look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog == served_)
            return;
        served_ = dialog;
        if (dialog->findChild<QTreeWidget*>())
            script_(*dialog);
        else
            interrupted_ = true;
        dialog->reject();
    }

    QTimer timer_;
    std::function<void(QDialog&)> script_;
    const QDialog* served_ = nullptr;
    bool interrupted_ = false;
};

void openDialog(Orv::iAppConfiguration& configuration, const std::string& page,
                const std::function<void(QDialog&)>& script) {
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {page};
    configuration.setProperty(last);
    Orv::CProjectConfiguration noProject;
    const FirstTurn turn(script);
    ovsettings::showSettingsDialog(configuration, noProject, nullptr);
    if (turn.wasInterrupted())
        throw std::runtime_error("a message box came up in the dialog");
}

/// From the call to the picture.
double secondsToOpen(Orv::iAppConfiguration& configuration) {
    double seconds = 0;
    const auto start = Clock::now();
    openDialog(configuration, kFilledPage, [&](QDialog&) {
        QApplication::processEvents();
        seconds = secondsSince(start);
    });
    return seconds;
}

void copyItems(const QTreeWidget& from, QTreeWidget& to) {
    for (int i = 0; i < from.topLevelItemCount(); ++i)
        to.addTopLevelItem(from.topLevelItem(i)->clone());
}

/// A dialog of the toolkit with the same tree and buttons, that reads nothing and knows no pages.
double secondsToOpenBare(const QTreeWidget& categories, QSize size) {
    double seconds = 0;
    const FirstTurn turn([&, start = Clock::now()](QDialog&) {
        QApplication::processEvents();
        seconds = secondsSince(start);
    });
    QDialog dialog;
    auto* tree = new QTreeWidget;
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(tree);
    layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply |
                                           QDialogButtonBox::Cancel | QDialogButtonBox::Help));
    dialog.resize(size);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    copyItems(categories, *tree);
    tree->expandAll();
    dialog.exec();
    return seconds;
}

void open(benchmark::State& state, int times) {
    const Levels levels(1, times);
    Orv::iAppConfiguration configuration;
    configuration.load();
    QTreeWidget categories;
    QSize size;
    openDialog(configuration, kFilledPage, [&](QDialog& dialog) {
        copyItems(*dialog.findChild<QTreeWidget*>(), categories);
        size = dialog.size();
    });
    compare(state, {[&] {
                return secondsToOpen(configuration);
            }},
            {{"bare dialog, same tree", [&] {
                  return secondsToOpenBare(categories, size);
              }}});
}

double secondsToSelect(QTreeWidget& tree, QTreeWidgetItem* item) {
    return secondsOf([&] {
        tree.setCurrentItem(item);
        QApplication::processEvents();
    });
}

QTreeWidgetItem* itemAt(QTreeWidget& tree, int place) {
    QTreeWidgetItemIterator item(&tree);
    item += place;
    return *item;
}

void visit(benchmark::State& state, int place) {
    const Levels levels;
    Orv::iAppConfiguration configuration;
    configuration.load();
    // The visits of one opening, in turn: the page that is made, and the same page found again.
    double again = 0;
    const auto first = [&] {
        double seconds = 0;
        openDialog(configuration, kEmptyPage, [&](QDialog& dialog) {
            QApplication::processEvents();
            auto& tree = *dialog.findChild<QTreeWidget*>();
            auto* start = tree.currentItem();
            seconds = secondsToSelect(tree, itemAt(tree, place));
            secondsToSelect(tree, start);
            again = secondsToSelect(tree, itemAt(tree, place));
        });
        return seconds;
    };
    first();
    compare(state, {first, 1.0, kPageTarget}, {{"the same page, second visit", [&] {
                                                    return again;
                                                }}});
}

struct Stop {
    int place;
    std::string name;
};

/// The categories with a page of their own, but for the one that the dialog opens with.
std::vector<Stop> stops() {
    const Levels levels;
    Orv::iAppConfiguration configuration;
    configuration.load();
    std::vector<Stop> found;
    openDialog(configuration, kEmptyPage, [&](QDialog& dialog) {
        auto& tree = *dialog.findChild<QTreeWidget*>();
        int place = 0;
        for (QTreeWidgetItemIterator item(&tree); *item; ++item, ++place) {
            if (*item == tree.currentItem())
                continue;
            const auto* parent = (*item)->parent();
            const QString group = parent ? parent->text(0) + QStringLiteral(" / ") : QString();
            found.push_back({place, (group + (*item)->text(0)).toStdString()});
        }
    });
    return found;
}

} // namespace

void registerDialog() {
    for (const int times : kGrowth)
        benchmark::RegisterBenchmark(atSize("e open the dialog", times).c_str(), open, times)
            ->UseManualTime()
            ->Iterations(kOpenings);
    for (const auto& stop : stops())
        benchmark::RegisterBenchmark(("f page " + stop.name).c_str(), visit, stop.place)
            ->UseManualTime()
            ->Iterations(kOpenings);
}

} // namespace bench
