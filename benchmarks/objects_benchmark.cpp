// The page "Objects": its opening, and a change of a colour up to the repainted preview.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"

#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTableView>

#include <functional>
#include <stdexcept>

namespace bench {

namespace {

// One picture of a screen that shows 60 a second.
constexpr double kFrame = 1.0 / 60;
constexpr int kTurns = 9;
constexpr int kColorColumn = 1;

using Clock = std::chrono::steady_clock;

/// Opens the dialog at a page, runs the script once the page is drawn, and cancels.
/// @return the seconds from the call to the picture.
double openAt(const char* page, const std::function<void(QDialog&)>& script = {}) {
    Orv::iAppConfiguration configuration;
    configuration.load();
    Orv::iAppConfiguration::Property last("MRU_SETTINGS");
    last.values = {page};
    configuration.setProperty(last);
    Orv::CProjectConfiguration noProject;
    double seconds = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&, start = Clock::now()] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        turn.stop();
        QApplication::processEvents();
        seconds = std::chrono::duration<double>(Clock::now() - start).count();
        if (script)
            script(*dialog);
        dialog->reject();
    });
    turn.start(0);
    ovsettings::showSettingsDialog(configuration, noProject, nullptr);
    return seconds;
}

template <typename T>
T& require(T* found) {
    if (!found)
        throw std::runtime_error("the page Objects is not as it is expected");
    return *found;
}

void press(QWidget& target, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
}

/// Counts the pictures that a widget is painted for.
class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

/// Chooses another colour in the first row, by keys, over and over.
class ColorChoices {
public:
    explicit ColorChoices(QDialog& dialog)
        : grid_(require(dialog.findChild<QTableView*>(QStringLiteral("schematicGrid")))),
          preview_(require(dialog.findChild<QWidget*>(QStringLiteral("preview")))) {
        preview_.installEventFilter(&counter_);
    }

    double change() {
        grid_.setFocus();
        grid_.setCurrentIndex(grid_.model()->index(0, kColorColumn));
        press(grid_, Qt::Key_Space);
        QWidget& well = require(QApplication::activePopupWidget());
        QWidget& square = require(well.focusWidget());
        press(square, right_ ? Qt::Key_Right : Qt::Key_Left);
        right_ = !right_;
        const int before = counter_.paints;
        const double seconds = secondsOf([&] { press(require(well.focusWidget()), Qt::Key_Return); });
        if (counter_.paints == before)
            throw std::runtime_error("a change of a colour does not show in the preview at once");
        QApplication::processEvents();
        return seconds;
    }

    double repaint() {
        return secondsOf([&] { preview_.repaint(); });
    }

private:
    QTableView& grid_;
    QWidget& preview_;
    PaintCounter counter_;
    bool right_ = true;
};

void openPage(benchmark::State& state) {
    const Levels levels;
    compare(state, {[] {
                return openAt("Objects");
            }},
            {{"at a page without a grid", [] {
                  return openAt("Units");
              }}});
}

void changeColor(benchmark::State& state) {
    const Levels levels;
    openAt("Objects", [&state](QDialog& dialog) {
        ColorChoices choices(dialog);
        choices.change();
        compare(state, {[&] { return choices.change(); }, 1.0, kFrame}, {{"the preview alone", [&] {
                                                                              return choices.repaint();
                                                                          }}});
    });
}

} // namespace

void registerObjects() {
    benchmark::RegisterBenchmark("i open the dialog at Objects", openPage)
        ->UseManualTime()
        ->Iterations(kTurns);
    benchmark::RegisterBenchmark("i colour to repainted preview", changeColor)
        ->UseManualTime()
        ->Iterations(kTurns);
}

} // namespace bench
