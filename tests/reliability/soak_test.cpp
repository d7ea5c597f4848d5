// The settings dialog opened and closed again and again, with something changed on each of its pages: nothing
// that an opening takes may stay behind. OV_RELIABILITY_COUNT sets how often; a figure a line is printed.

#include "app/dialog/dialog.h"
#include "app/dialog/project.h"
#include "app/workspace.h"
#include "ovsettings/propdialogtemplate.h"
#include "tests/support/widgets.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QTreeWidgetItemIterator>

#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>

namespace {

namespace fs = std::filesystem;

constexpr int kShortCount = 4;
constexpr int kWarmUp = 4; // the changes repeat themselves after as many openings
// Bytes an opening. The allocator's own unevenness shows in a short run.
constexpr long kHeapLimit = 256;
constexpr long kHeapUnevenness = 64 * 1024;
constexpr long kResidentUnevenness = 4 * 1024 * 1024;
constexpr long kTextUnevenness = 1024; // another choice in a list has a name of another length

/// Buttons that open a dialog which changes nothing when it is given up.
constexpr std::string_view kDialogButtons[] = {"New", "Properties", "Add Custom", "Import", "Browse", "..."};

/// What a process and its files take.
struct Possession {
    long heap, resident, descriptors, widgets, files, bytesInFiles;
};

/// Those of Qt's pools, which wait for half a minute for more work, left out.
long threads() {
    return std::ranges::count_if(fs::directory_iterator("/proc/self/task"), [](const fs::path& thread) {
        return testsupport::readFile(thread / "comm") != "Thread (pooled)\n";
    });
}

Possession takeStock(const fs::path& root) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // A look-up of the library dialog that was left behind ends by itself.
    EXPECT_TRUE(QTest::qWaitFor([] { return threads() == 1; }, 60'000));
    Possession now{};
    malloc_trim(0);
    const auto arena = mallinfo2();
    now.heap = static_cast<long>(arena.uordblks + arena.hblkhd);
    std::ifstream("/proc/self/statm") >> now.resident >> now.resident;
    now.resident *= sysconf(_SC_PAGESIZE);
    now.descriptors = std::distance(fs::directory_iterator("/proc/self/fd"), {});
    now.widgets = QApplication::allWidgets().size();
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        ++now.files;
        now.bytesInFiles += entry.is_regular_file() ? static_cast<long>(entry.file_size()) : 0;
    }
    return now;
}

/// The first control of that kind that the user could operate.
template <typename Control>
Control* usable(QWidget& page) {
    for (auto* control : page.findChildren<Control*>()) {
        if (control->isVisible() && control->isEnabled())
            return control;
    }
    return nullptr;
}

/// @return whether there was something on the page to change.
bool change(QWidget& page, bool back) {
    if (auto* box = usable<QCheckBox>(page)) {
        box->click();
    } else if (auto* spin = usable<QAbstractSpinBox>(page)) {
        spin->stepBy(back ? -1 : 1);
    } else if (auto* combo = usable<QComboBox>(page); combo && combo->count() > 1) {
        combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
    } else if (auto* edit = usable<QLineEdit>(page); edit && !edit->isReadOnly()) {
        QTest::keyClick(edit, Qt::Key_End);
        back ? QTest::keyClick(edit, Qt::Key_Backspace) : QTest::keyClick(edit, Qt::Key_X);
    } else {
        return false;
    }
    return true;
}

class Soak : public testing::TestWithParam<bool> {
protected:
    Soak() {
        // Up to 10 MB of pictures of icons, whose names are only forgotten in an idle half-minute.
        QPixmapCache::setCacheLimit(0);
        fs::copy(OV_INSTALLATION, installation.home(), fs::copy_options::recursive);
        fs::copy(OV_SAMPLES, installation.home() / "samples", fs::copy_options::recursive);
        fs::create_directory(installation.home() / "temporary");
        options.project = (installation.home() / "samples/motorcontroller/motorcontroller.prj").string();
        options.netlist = GetParam();
        QObject::connect(&boxes, &QTimer::timeout, [this] { giveUpBox(); });
        boxes.start(0);
    }

    /// Whatever comes up over the dialog.
    void giveUpBox() {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !modal || modal == dialog || !modal->isVisible())
            return;
        ++boxesGivenUp;
        modal->done(QDialog::Rejected); // which ends a question, too
    }

    void openEditors(QWidget& page) {
        if (auto* view = usable<QAbstractItemView>(page); view && view->model()->rowCount() > 0) {
            QTest::keyClick(view, Qt::Key_Home);
            QTest::keyClick(view, Qt::Key_F2);
            QApplication::processEvents();
            if (QWidget* editor = QApplication::focusWidget(); editor && editor != view)
                QTest::keyClick(editor, Qt::Key_Escape);
        }
        for (auto* button : page.findChildren<QAbstractButton*>()) {
            const std::string caption = button->text().remove(QLatin1Char('&')).toStdString();
            if (button->isVisible() && std::ranges::find(kDialogButtons, caption) != std::end(kDialogButtons))
                button->click();
        }
    }

    void visitEveryPage() {
        auto* tree = dialog->findChild<QTreeWidget*>();
        for (QTreeWidgetItemIterator item(tree); *item; ++item) {
            tree->setCurrentItem(*item);
            QApplication::processEvents();
            for (auto* page : dialog->findChildren<ovsettings::CPropDialogTemplate*>()) {
                if (!page->isVisible())
                    continue;
                ++visits;
                openEditors(*page);
                changes += change(*page, round % 2);
                QApplication::processEvents();
            }
        }
    }

    void press(const char* caption) {
        if (auto* button = testsupport::find<QPushButton>(*dialog, caption))
            button->click();
    }

    void openOnce() {
        testsupport::whenDialog([this](QDialog& shown) {
            dialog = &shown;
            visitEveryPage();
            press("Apply");
            press(round % 4 < 2 ? "OK" : "Cancel");
            if (dialog && dialog->isVisible())
                press("Cancel");
            dialog = nullptr;
        });
        app::openDialog(configuration, project, options, nowhere);
        ++round;
    }

    /// Both what a host keeps for its whole run and what it opens and closes with each project.
    void openTimes(int count) {
        for (int i = 0; i < count; ++i) {
            openOnce();
            Orv::iAppConfiguration another;
            EXPECT_TRUE(another.load());
            app::Project closed;
            EXPECT_TRUE(closed.open(options));
        }
    }

    testsupport::Installation installation;
    testsupport::ScopedEnvironment temporary{"TMPDIR", (installation.home() / "temporary").string()};
    Orv::iAppConfiguration configuration;
    app::Project project;
    app::Options options;
    std::ostream nowhere{nullptr};
    QTimer boxes;
    QPointer<QDialog> dialog;
    int round = 0;
    long visits = 0;
    long changes = 0;
    long boxesGivenUp = 0;
};

TEST_P(Soak, NothingOfAnOpeningStaysBehind) {
    const char* wanted = std::getenv("OV_RELIABILITY_COUNT");
    const int count = wanted ? std::atoi(wanted) : kShortCount;
    ASSERT_TRUE(configuration.load());
    ASSERT_TRUE(project.open(options));
    openTimes(kWarmUp);
    visits = changes = boxesGivenUp = 0;
    const Possession before = takeStock(installation.home().parent_path());
    openTimes(count);
    const Possession after = takeStock(installation.home().parent_path());

    std::cout << count << " openings, " << visits << " visits of pages, " << changes << " changes, "
              << boxesGivenUp << " further dialogs; heap " << before.heap << " to " << after.heap << ", "
              << (after.heap - before.heap) / count << " bytes an opening; resident " << before.resident
              << " to " << after.resident << "; " << after.descriptors << " descriptors, " << after.widgets
              << " widgets, " << after.files << " files of " << after.bytesInFiles << " bytes\n";
    EXPECT_GT(changes, 15 * count);
    // The allocator of a sanitizer keeps what is freed, and reports leaks by itself.
    if (before.heap > 0) {
        EXPECT_LE(after.heap - before.heap, kHeapLimit * count + kHeapUnevenness);
        EXPECT_LE(after.resident - before.resident, kHeapLimit * count + kResidentUnevenness);
    }
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.widgets, before.widgets);
    EXPECT_EQ(after.files, before.files);
    EXPECT_LE(after.bytesInFiles - before.bytesInFiles, kTextUnevenness);
}

INSTANTIATE_TEST_SUITE_P(Hosts, Soak, testing::Bool(),
                         [](const auto& kind) { return std::string(kind.param ? "Netlist" : "Schematic"); });

} // namespace
