// The file of what runs on startup, and the page that shows it, at growing lengths of its lists.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "platform/atomicfile.h"
#include "platform/profilefile.h"
#include "platform/readfile.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <stdexcept>

namespace bench {

namespace {

constexpr int kUsualScripts = 100;
constexpr int kTurns = 5;
constexpr const char* kSection = "PlanDraw";

std::string keyOf(int index) {
    return "Script#" + std::to_string(index);
}

std::string pathOf(int index) {
    return "/home/user/scripts/at startup/number " + std::to_string(index) + ".scr";
}

/// The user's file with that many scripts.
class ScriptsFile {
public:
    explicit ScriptsFile(int count)
        : count_(count), path_((levels_.userFile().parent_path() / "scripts.ini").string()) {
        write(0);
    }

    const std::string& path() const { return path_; }
    int count() const { return count_; }

    void read() const {
        platform::ProfileFile file(path_);
        bool whole = static_cast<bool>(file.load());
        for (int i = 0; i < count_; ++i)
            whole = whole && !file.get(kSection, keyOf(i)).empty();
        check(whole);
    }

    void write(int firstNumber) const {
        platform::ProfileFile file(path_);
        bool whole = true;
        for (int i = 0; i < count_; ++i)
            whole = file.set(kSection, keyOf(i), pathOf(firstNumber + i)) && whole;
        check(whole && file.save());
    }

    std::string bytes() const {
        auto bytes = platform::readFile(path_);
        check(static_cast<bool>(bytes));
        return std::move(*bytes);
    }

private:
    static void check(bool succeeded) {
        if (!succeeded)
            throw std::runtime_error("the file of scripts is not whole");
    }

    Levels levels_;
    int count_;
    std::string path_;
};

void readScripts(benchmark::State& state, int times) {
    const ScriptsFile scripts(times * kUsualScripts);
    compare(state, {timed([&] { scripts.read(); }), static_cast<double>(scripts.count())},
            {{"the bytes alone", timed([&] { scripts.bytes(); })}});
}

void writeScripts(benchmark::State& state, int times) {
    const ScriptsFile scripts(times * kUsualScripts);
    const std::string bytes = scripts.bytes();
    int firstNumber = 0;
    compare(state, {timed([&] { scripts.write(++firstNumber); }), static_cast<double>(scripts.count())},
            {{"the bytes alone",
              timed([&] { static_cast<void>(platform::writeFileAtomically(scripts.path(), bytes)); })}});
}

/// Opens the dialog at a page, waits for its picture and cancels.
double secondsToOpen(Orv::iAppConfiguration& configuration, const char* page) {
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {page};
    configuration.setProperty(last);
    Orv::CProjectConfiguration noProject;
    double seconds = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&, start = std::chrono::steady_clock::now()] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        QApplication::processEvents();
        seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        dialog->reject();
    });
    turn.start(0);
    ovsettings::showSettingsDialog(configuration, noProject, nullptr);
    return seconds;
}

void openPage(benchmark::State& state, int times) {
    const ScriptsFile scripts(times * kUsualScripts);
    Orv::iAppConfiguration configuration;
    configuration.load();
    compare(state, {[&] {
                return secondsToOpen(configuration, "Run on Startup");
            }},
            {{"at a page without lists", [&] {
                  return secondsToOpen(configuration, "Units");
              }}});
}

} // namespace

void registerStartup() {
    const auto add = [](const char* name, void (*run)(benchmark::State&, int), int times) {
        benchmark::RegisterBenchmark(atSize(name, times).c_str(), run, times)
            ->UseManualTime()
            ->Iterations(kTurns);
    };
    for (const int times : kGrowth) {
        add("g read one of 100 scripts", readScripts, times);
        add("g write one of 100 scripts", writeScripts, times);
        add("g open the dialog at 100 scripts", openPage, times);
    }
}

} // namespace bench
