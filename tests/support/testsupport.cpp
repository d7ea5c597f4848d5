#include "tests/support/widgets.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QTextDocument>
#include <QtWidgets/QHeaderView>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace testsupport {

namespace {

std::filesystem::path makeTemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ovtest.XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary directory: " + pattern);
    return pattern;
}

std::string plainText(QString text) {
    return text.remove(QLatin1Char('&')).toStdString();
}

} // namespace

TemporaryDirectory::TemporaryDirectory() : path_(makeTemporaryDirectory()) {
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

ScopedEnvironment::ScopedEnvironment(const char* name, const std::optional<std::string>& value)
    : name_(name) {
    if (const char* before = std::getenv(name))
        before_ = before;
    if (value)
        setenv(name, value->c_str(), 1);
    else
        unsetenv(name);
}

ScopedEnvironment::~ScopedEnvironment() {
    if (before_)
        setenv(name_.c_str(), before_->c_str(), 1);
    else
        unsetenv(name_.c_str());
}

GermanNumbers::GermanNumbers()
    : before_(std::setlocale(LC_NUMERIC, nullptr)), path_("LOCPATH", directory_.path()) {
    const std::string locale = (directory_ / kName).string();
    available_ = std::system(("localedef -i de_DE -f UTF-8 '" + locale + "' 2>/dev/null").c_str()) == 0 &&
                 std::setlocale(LC_NUMERIC, kName) != nullptr;
}

GermanNumbers::~GermanNumbers() {
    std::setlocale(LC_NUMERIC, before_.c_str());
}

void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    ASSERT_TRUE(file.flush()) << path;
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

testing::AssertionResult contains(const std::string& text, const std::string& part) {
    const bool found = text.find(part) != std::string::npos;
    return testing::AssertionResult(found)
           << '"' << part << (found ? "\" is in\n" : "\" is not in\n") << text;
}

Installation::Installation()
    : home_("RSR_HOME", home().string()),
      wdir_("WDIR", user().string() + ";" + site().string() + ";" + standard().string()) {
    for (const auto& directory : {standard(), site(), user()})
        std::filesystem::create_directories(directory);
}

namespace {

/// Runs `script` inside the event loop of the next modal widget that is meant. @return what waits for it.
QPointer<QTimer> onNextModal(const std::function<bool(const QWidget& modal)>& isMeant,
                             const std::function<void(QWidget& modal)>& script) {
    // A zero timer fires inside the modal loop, once the widget is on screen; no time is waited for.
    auto* timer = new QTimer(qApp);
    timer->setInterval(0);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, isMeant, script] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible() || !isMeant(*modal))
            return;
        timer->stop();
        timer->deleteLater();
        script(*modal);
    });
    timer->start();
    return timer;
}

/// Takes down what a message box shows, and clicks the button of that caption.
void answerBox(QWidget& modal, const std::string& button, SeenBox& seen) {
    auto* box = qobject_cast<QMessageBox*>(&modal);
    ASSERT_NE(box, nullptr) << "a message box was expected, there is a " << modal.metaObject()->className();
    seen = {box->windowTitle().toStdString(), box->text().toStdString(), box->icon()};
    for (QAbstractButton* candidate : box->buttons()) {
        if (plainText(candidate->text()) == button) {
            candidate->click();
            return;
        }
    }
    box->done(QDialog::Rejected);
    FAIL() << "no button " << button << " in the box: " << seen.text;
}

} // namespace

void whenModal(const std::function<void(QWidget&)>& script) {
    const auto isMeant = [](const QWidget&) {
        return true;
    };
    onNextModal(isMeant, [script](QWidget& modal) {
        const QPointer<QWidget> opened(&modal);
        // The offscreen platform activates no window by itself once another one has closed.
        QApplication::setActiveWindow(&modal);
        script(modal);
        if (opened && opened->isVisible()) {
            ADD_FAILURE() << "the script left a " << opened->metaObject()->className() << " open";
            // A dialog may ask before it closes, and a question does not close at all.
            if (auto* dialog = qobject_cast<QDialog*>(opened.data()))
                dialog->done(QDialog::Rejected);
            else
                opened->close();
        }
    });
}

void whenDialog(const std::function<void(QDialog&)>& script, std::vector<std::string>* boxes) {
    whenModal([script, boxes](QWidget& modal) {
        if (auto* box = qobject_cast<QMessageBox*>(&modal)) {
            if (boxes)
                boxes->push_back(box->text().toStdString());
            whenDialog(script, boxes);
            box->accept();
            return;
        }
        auto* dialog = qobject_cast<QDialog*>(&modal);
        ASSERT_NE(dialog, nullptr);
        script(*dialog);
    });
}

void answerNextMessageBox(const std::string& button, std::string* text) {
    whenModal([button, text](QWidget& modal) {
        SeenBox seen;
        answerBox(modal, button, seen);
        if (text)
            *text = seen.text;
    });
}

std::ostream& operator<<(std::ostream& stream, const SeenBox& box) {
    return stream << "[" << box.title << ", icon " << box.icon << "] " << box.text;
}

SeenBox boxDuring(const std::function<void()>& operation, const std::string& answer) {
    std::optional<SeenBox> seen;
    whenModal([&](QWidget& modal) { answerBox(modal, answer, seen.emplace()); });
    operation();
    EXPECT_TRUE(seen) << "no message box came";
    return seen.value_or(SeenBox{});
}

QWidget* controlByCaption(QWidget& root, const std::string& caption) {
    std::string seen;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        std::string text;
        QWidget* control = nullptr;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            text = plainText(button->text());
            control = button;
        } else if (auto* label = qobject_cast<QLabel*>(widget)) {
            text = plainText(label->text());
            control = label->buddy() ? label->buddy() : label;
        } else {
            continue;
        }
        if (text == caption)
            return control;
        seen += "\n  " + text;
    }
    ADD_FAILURE() << "no control with the caption " << caption << "; there are:" << seen;
    return nullptr;
}

bool selectCategory(QWidget& dialog, const std::string& caption) {
    auto* tree = dialog.findChild<QTreeWidget*>();
    if (!tree) {
        ADD_FAILURE() << "no category tree";
        return false;
    }
    const auto items =
        tree->findItems(QString::fromStdString(caption), Qt::MatchExactly | Qt::MatchRecursive);
    if (items.empty()) {
        ADD_FAILURE() << "no category " << caption;
        return false;
    }
    tree->scrollToItem(items.front());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(items.front()).center());
    return tree->currentItem() == items.front();
}

void press(QWidget& root, const std::string& caption) {
    if (auto* button = find<QAbstractButton>(root, caption))
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

void type(QWidget& control, const std::string& text) {
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control, Qt::Key_Delete);
    QTest::keyClicks(&control, QString::fromStdString(text));
}

std::vector<std::string> textsIn(const QAbstractItemModel& model) {
    std::vector<std::string> texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.push_back(model.index(row, 0).data().toString().toStdString());
    return texts;
}

std::string messageDuring(const std::function<void()>& operation) {
    std::string message;
    const auto isBox = [](const QWidget& modal) {
        return qobject_cast<const QMessageBox*>(&modal) != nullptr;
    };
    const QPointer<QTimer> waiting = onNextModal(isBox, [&message](QWidget& modal) {
        message = dynamic_cast<QMessageBox&>(modal).text().toStdString();
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    operation();
    delete waiting;
    return message;
}

QPoint centreOf(QAbstractItemView& grid, int row, int column) {
    const QModelIndex cell = grid.model()->index(row - 1, column - 1);
    grid.scrollTo(cell);
    return grid.visualRect(cell).center();
}

void clickCell(QAbstractItemView& grid, int row, int column) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, centreOf(grid, row, column));
}

void activate(QWidget& window) {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

namespace {

/// Loads nothing, so that a picture is seen and not looked for.
class InertDocument : public QTextDocument {
public:
    explicit InertDocument(const QString& html) { setHtml(html); }

    bool acts() const {
        const auto formats = allFormats();
        return std::ranges::any_of(formats, [](const QTextFormat& format) {
            return format.isImageFormat() || format.boolProperty(QTextFormat::IsAnchor) ||
                   format.intProperty(QTextFormat::FontWeight) > QFont::Normal;
        });
    }

protected:
    QVariant loadResource(int, const QUrl&) override { return QByteArray(); }
};

std::string readWithoutEffect(const QWidget& place, QString text) {
    if (Qt::mightBeRichText(text)) {
        const InertDocument document(text);
        EXPECT_FALSE(document.acts()) << place.metaObject()->className() << ": " << text.toStdString();
        text = document.toPlainText();
    }
    EXPECT_FALSE(text.contains(QChar(0x202e)))
        << place.metaObject()->className() << ": " << text.toStdString();
    return text.toStdString();
}

void appendItems(const QAbstractItemView& view, const QModelIndex& parent, std::vector<std::string>& texts) {
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex item = model.index(row, column, parent);
            for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                texts.push_back(readWithoutEffect(view, item.data(role).toString()));
        }
        appendItems(view, model.index(row, 0, parent), texts);
    }
}

} // namespace

std::vector<std::string> textsWithoutEffect(QWidget& window) {
    std::vector<std::string> texts;
    QWidgetList widgets = window.findChildren<QWidget*>();
    widgets.append(&window);
    for (const QWidget* widget : widgets) {
        for (const QString& text : {widget->toolTip(), widget->whatsThis()})
            texts.push_back(readWithoutEffect(*widget, text));
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            view && view->model() && !qobject_cast<const QHeaderView*>(view))
            appendItems(*view, {}, texts);
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (!label)
            continue;
        EXPECT_NE(label->textFormat(), Qt::RichText);
        EXPECT_FALSE(label->textFormat() == Qt::PlainText && label->text().contains(QChar(0x202e)));
        texts.push_back(label->textFormat() == Qt::PlainText ? label->text().toStdString()
                                                             : readWithoutEffect(*label, label->text()));
    }
    std::erase(texts, "");
    return texts;
}

} // namespace testsupport

namespace {

/// The offscreen platform says at each window that it has no window manager; nothing else is left out.
void showUnlessOffscreenNoise(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// A message box that nobody answers fails the test and is closed. It is given so many turns of the event
/// loop, and not a time, since a machine may be slow.
class Watchdog : public QObject {
public:
    Watchdog() { startTimer(kTurn); }

protected:
    void timerEvent(QTimerEvent*) override {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        turns_ = box == box_ ? turns_ + 1 : 0;
        box_ = box;
        if (!box || turns_ < kMostTurns)
            return;
        ADD_FAILURE() << "nobody answered the message box: " << box->text().toStdString();
        box->done(QMessageBox::NoButton); // not by a button: it might do what the test looks at
    }

private:
    static constexpr int kTurn = 100; // ms
    static constexpr int kMostTurns = 20;

    QPointer<QMessageBox> box_;
    int turns_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(showUnlessOffscreenNoise);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    const Watchdog watchdog;
    return RUN_ALL_TESTS();
}
