// The page "Symbol Libraries" with growing lists: its opening, an import, and a move with the store after it.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "suite/openproject.h"
#include "suite/symbollibs.h"

#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace bench {

namespace {

constexpr int kUsualLibraries = 1000;
constexpr int kTurns = 5;
constexpr const char* kPage = "Symbol Libraries";

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void check(bool succeeded) {
    if (!succeeded)
        throw std::runtime_error("the page Symbol Libraries is not as it is expected");
}

template <typename Control>
Control& control(QWidget& dialog, const char* name) {
    auto* found = dialog.findChild<Control*>(QLatin1String(name));
    check(found);
    return *found;
}

/// A project with that many libraries, beside it one without any, and the two ways to look at them. Every
/// third library has the name of its neighbour.
class LibraryProject {
public:
    explicit LibraryProject(int count)
        : count_(count),
          directory_(levels_.userFile().parent_path()),
          full_((directory_ / "full.prj").string()),
          empty_((directory_ / "empty.prj").string()) {
        std::ofstream(empty_) << "[DesignInfo]\n";
        std::ofstream file(full_);
        file << "[SymbolLibraries]\n";
        for (int i = 0; i < count; ++i) {
            const int name = i % 3 == 2 ? 0 : i;
            file << "Alias#" << i << "=library_" << name << "\nLocation#" << i << "=./libraries/number " << i
                 << "\nType#" << i << '=' << (i == 0 ? 0 : 1 + i % 3) << '\n';
        }
        check(file.flush().good());
    }

    double open() { return atPage(full_, {}); }

    /// From the end of the chooser to the picture.
    double import() {
        Clock::time_point start;
        double seconds = 0;
        atPage(empty_, [&](QDialog& dialog) {
            QTimer::singleShot(0, [&] {
                auto* chooser = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                check(chooser);
                control<QLineEdit>(*chooser, "fileNameEdit").setText(QString::fromStdString(full_));
                start = Clock::now();
                chooser->accept();
            });
            control<QPushButton>(dialog, "importButton").click();
            QApplication::processEvents();
            seconds = secondsSince(start);
            check(listOf(dialog).count() == count_);
        });
        return seconds;
    }

    /// The libraries' list in memory only; the host's writing of its file is not the page's.
    double moveAndStore() {
        double seconds = 0;
        atPage(full_, [&](QDialog& dialog) {
            QListWidget& list = listOf(dialog);
            list.setCurrentRow(count_ - 1);
            QPushButton* apply = nullptr;
            for (QPushButton* button : dialog.findChildren<QPushButton*>())
                apply = button->text().remove(QLatin1Char('&')) == QLatin1String("Apply") ? button : apply;
            check(apply);
            const auto start = Clock::now();
            QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::AltModifier);
            QApplication::sendEvent(&list, &up);
            apply->click();
            seconds = secondsSince(start);
            check(list.currentRow() == count_ - 2 && librariesChanged_());
        });
        return seconds;
    }

    double load() const {
        return secondsOf([&] {
            NProjectTools::CSymbolLibs libraries;
            check(libraries.Load(full_));
        });
    }

    /// As the store does at the least: the list anew, with each directory looked up.
    double rebuild() const {
        NProjectTools::CSymbolLibs from;
        NProjectTools::CSymbolLibs to;
        check(from.Load(full_));
        return secondsOf([&] {
            for (const NProjectTools::ISymbolLibrary* library : from.GetLibList()) {
                benchmark::DoNotOptimize(std::filesystem::exists(library->GetFullPath()));
                to.AddLibrary(library->GetAlias(), library->GetLocation(), library->GetFullPath(),
                              library->GetType());
            }
        });
    }

private:
    static QListWidget& listOf(QDialog& dialog) {
        auto* list = control<QWidget>(dialog, "libraries").findChild<QListWidget*>();
        check(list);
        return *list;
    }

    /// Opens the dialog at the page, runs the script once the page is drawn, and cancels.
    /// @return the seconds from the call to the picture.
    double atPage(const std::string& path, const std::function<void(QDialog&)>& script) {
        std::string error;
        const auto project = NProjectTools::COpenProject::open(path, error);
        check(project != nullptr);
        Orv::CProjectConfiguration& record = project->configuration();
        librariesChanged_ = [&record] {
            return record.librariesChanged;
        };
        Orv::iAppConfiguration configuration;
        configuration.load();
        Orv::iAppConfiguration::Property last("MRU_SETTINGS");
        last.values = {kPage};
        configuration.setProperty(last);
        double seconds = 0;
        QTimer turn;
        QObject::connect(&turn, &QTimer::timeout, [&, start = Clock::now()] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            turn.stop();
            QApplication::processEvents();
            seconds = secondsSince(start);
            if (script)
                script(*dialog);
            dialog->reject();
        });
        turn.start(0);
        ovsettings::showSettingsDialog(configuration, record, nullptr);
        return seconds;
    }

    Levels levels_;
    int count_;
    std::filesystem::path directory_;
    std::string full_;
    std::string empty_;
    std::function<bool()> librariesChanged_;
};

void openPage(benchmark::State& state, int times) {
    LibraryProject project(times * kUsualLibraries);
    compare(state, {[&] {
                return project.open();
            }},
            {{"the list loaded alone", [&] {
                  return project.load();
              }}});
}

void importList(benchmark::State& state, int times) {
    LibraryProject project(times * kUsualLibraries);
    compare(state, {[&] {
                return project.import();
            }},
            {{"the list loaded alone", [&] {
                  return project.load();
              }}});
}

void storeList(benchmark::State& state, int times) {
    LibraryProject project(times * kUsualLibraries);
    compare(state, {[&] {
                return project.moveAndStore();
            }},
            {{"the list built alone", [&] {
                  return project.rebuild();
              }}});
}

} // namespace

void registerLibraries() {
    const auto add = [](const char* name, void (*run)(benchmark::State&, int), int times) {
        benchmark::RegisterBenchmark(atSize(name, times).c_str(), run, times)
            ->UseManualTime()
            ->Iterations(kTurns);
    };
    for (const int times : kGrowth) {
        add("k open the dialog at 1,000 libraries", openPage, times);
        add("k import 1,000 libraries", importList, times);
        add("k move and store among 1,000 libraries", storeList, times);
    }
}

} // namespace bench
