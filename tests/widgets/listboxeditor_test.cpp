#include "dialog/widgets/listboxeditor.h"

#include "dialog/widgets/listboxfileeditor.h"
#include "dialog/widgets/messagebox.h"
#include "tests/support/widgets.h"

#include <QtWidgets/QVBoxLayout>

using ovsettings::ListBoxEditor;
using ovsettings::ListBoxFileEditor;

namespace {

/// Writes down what it is told, and takes out lines of the text "bad", after a question.
class RecordingList : public ListBoxEditor {
public:
    using ListBoxEditor::list;

    QStringList takeLog() { return std::exchange(log_, {}); }

    bool movesAllowed = true;
    bool choices = false;

protected:
    void lineAdded(int row, const QString& text) override { entered("added", row, text); }
    void lineRenamed(int row, const QString& text) override { entered("renamed", row, text); }
    void lineDeleted(int row) override { log("deleted %1", row); }
    void lineMoved(int from, int to) override { log_ << QStringLiteral("moved %1 %2").arg(from).arg(to); }
    bool mayMove(int, int) override { return movesAllowed; }

    QWidget* createLineEditor(QWidget* parent, int row) override {
        if (!choices)
            return ListBoxEditor::createLineEditor(parent, row);
        auto* combo = new QComboBox(parent);
        combo->addItems({QStringLiteral("one"), QStringLiteral("two")});
        return combo;
    }

private:
    void log(const char* what, int row) { log_ << QString::fromLatin1(what).arg(row); }
    void entered(const char* what, int row, const QString& text) {
        log_ << QStringLiteral("%1 %2 %3").arg(QLatin1String(what)).arg(row).arg(text);
        if (text == QLatin1String("bad") && !ovsettings::askYesNo(this, text, text))
            removeLine(row);
    }

    QStringList log_;
};

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// A list editor in a dialog with a default button, as a page has it.
class ListOfLines : public testing::Test {
protected:
    ListOfLines() {
        auto* layout = new QVBoxLayout(&dialog_);
        editor_ = new RecordingList;
        editor_->setTitle(QStringLiteral("&Lines:"));
        editor_->setPlaceForNew(true);
        layout->addWidget(editor_);
        ok_ = new QPushButton(QStringLiteral("OK"));
        ok_->setDefault(true);
        QObject::connect(ok_, &QPushButton::clicked, &dialog_, &QDialog::accept);
        layout->addWidget(ok_);
        dialog_.show();
        fill("a b c");
    }

    void fill(const char* lines, int current = 0) {
        editor_->setLines(words(lines));
        editor_->setCurrentRow(current);
        // A message box that closed leaves no window active for a moment.
        testsupport::activate(dialog_);
        editor_->list().setFocus();
        editor_->takeLog();
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }

    QToolButton& button(const char* text) { return *testsupport::find<QToolButton>(*editor_, text); }
    void click(const char* text) { QTest::mouseClick(&button(text), Qt::LeftButton); }
    std::string lines() const { return editor_->lines().join(QLatin1Char(' ')).toStdString(); }
    std::string log() { return editor_->takeLog().join(QLatin1Char(',')).toStdString(); }

    QDialog dialog_;
    RecordingList* editor_;
    QPushButton* ok_;
};

} // namespace

TEST_F(ListOfLines, EveryKeyDoesWhatItsButtonDoes) {
    struct Row {
        const char* what;
        int current;
        std::function<void()> act;
        const char *lines, *log;
        int currentAfter;
    };
    const auto deselect = [this](int row) {
        QListWidget& list = editor_->list();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list.visualItemRect(list.item(row)).center());
        EXPECT_FALSE(button("Delete").isEnabled());
    };
    const Row rows[] = {
        {"Insert", 1, [] { press(Qt::Key_Insert), type("d"), press(Qt::Key_Return); }, "a b c d ",
         "added 3 d", 3},
        {"New", 1, [this] { click("New"), type("d"), press(Qt::Key_Return); }, "a b c d ", "added 3 d", 3},
        {"Enter in the empty line", 3, [] { press(Qt::Key_Enter), type("d"), press(Qt::Key_Tab); },
         "a b c d ", "added 3 d", 3},
        {"F2", 1, [] { press(Qt::Key_F2), type("x"), press(Qt::Key_Return); }, "a x c ", "renamed 1 x", 1},
        {"Enter", 1, [] { press(Qt::Key_Return), type("x"), press(Qt::Key_Return); }, "a x c ", "renamed 1 x",
         1},
        {"Escape", 1, [] { press(Qt::Key_F2), type("x"), press(Qt::Key_Escape); }, "a b c ", "", 1},
        {"Escape from a new one", 1, [] { press(Qt::Key_Insert), type("x"), press(Qt::Key_Escape); },
         "a b c ", "", 3},
        {"same text", 1, [] { press(Qt::Key_F2), type("b"), press(Qt::Key_Return); }, "a b c ", "", 1},
        {"emptied", 1, [] { press(Qt::Key_F2), press(Qt::Key_Delete), press(Qt::Key_Return); }, "a c ",
         "deleted 1", 1},
        {"Delete key", 1, [] { press(Qt::Key_Delete); }, "a c ", "deleted 1", 1},
        {"Delete", 1, [this] { click("Delete"); }, "a c ", "deleted 1", 1},
        {"Delete while editing", 1, [this] { press(Qt::Key_F2), type("x"), click("Delete"); }, "a c ",
         "deleted 1", 1},
        {"Delete key, not selected", 1, [&] { deselect(1), press(Qt::Key_Delete); }, "a b c ", "", 1},
        {"Delete key, reached by Tab", -1,
         [this] {
             ok_->setFocus();
             editor_->list().setFocus(Qt::TabFocusReason);
             press(Qt::Key_Delete);
         },
         "b c ", "deleted 0", 0},
        {"Alt+Up", 1, [] { press(Qt::Key_Up, Qt::AltModifier); }, "b a c ", "moved 1 0", 0},
        {"Move up", 1, [this] { click("Move up"); }, "b a c ", "moved 1 0", 0},
        {"Alt+Down", 1, [] { press(Qt::Key_Down, Qt::AltModifier); }, "a c b ", "moved 1 2", 2},
        {"Move down", 1, [this] { click("Move down"); }, "a c b ", "moved 1 2", 2},
        {"moved while editing", 0, [this] { press(Qt::Key_F2), type("x"), click("Move down"); }, "b x c ",
         "renamed 0 x,moved 0 1", 1},
        {"first up", 0, [] { press(Qt::Key_Up, Qt::AltModifier); }, "a b c ", "", 0},
        {"last behind the empty line", 2, [] { press(Qt::Key_Down, Qt::AltModifier); }, "a b c ", "", 2},
        {"empty line up", 3, [] { press(Qt::Key_Up, Qt::AltModifier); }, "a b c ", "", 3},
        {"empty line deleted", 3, [] { press(Qt::Key_Delete); }, "a b c ", "", 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        fill("a b c", row.current);
        row.act();
        EXPECT_EQ(lines(), row.lines);
        EXPECT_EQ(log(), row.log);
        EXPECT_EQ(editor_->currentRow(), row.currentAfter);
        EXPECT_EQ(QApplication::focusWidget(), &editor_->list());
        ASSERT_TRUE(dialog_.isVisible()) << "the key went on to the dialog";
    }
}

TEST_F(ListOfLines, ButtonsAreEnabledWhereTheyCanDoSomething) {
    for (const auto& [row, expected] : {std::pair{0, "+-+"}, {1, "+++"}, {2, "++-"}, {3, "---"}}) {
        editor_->setCurrentRow(row);
        std::string enabled;
        for (const char* each : {"Delete", "Move up", "Move down"})
            enabled += button(each).isEnabled() ? '+' : '-';
        EXPECT_EQ(enabled, expected) << row;
    }
    for (const QToolButton* each : editor_->findChildren<QToolButton*>()) {
        EXPECT_FALSE(each->icon().pixmap(16).isNull()) << each->text().toStdString();
        EXPECT_FALSE(each->toolTip().isEmpty());
        EXPECT_EQ(each->accessibleName(), QStringLiteral("Lines: ") + each->text());
    }
}

TEST_F(ListOfLines, LeavingTheLineStoresItAndTheHookMayAskAndTakeItOut) {
    for (const char* answer : {"Yes", "No"}) {
        for (const bool byFocus : {true, false}) {
            fill("a b c", 1);
            press(Qt::Key_F2);
            type("bad");
            testsupport::answerNextMessageBox(answer);
            if (byFocus)
                ok_->setFocus();
            else
                editor_->finishEditing();
            EXPECT_EQ(lines(), std::string(answer) == "Yes" ? "a bad c " : "a c ");
            EXPECT_EQ(log(), "renamed 1 bad") << "once";
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}

TEST_F(ListOfLines, AnOpenLineWaitsBehindAnotherWindow) {
    press(Qt::Key_F2);
    type("x");
    QWidget other;
    testsupport::activate(other);
    EXPECT_EQ(log(), "");
    EXPECT_TRUE(editor_->isChanging());
    testsupport::activate(dialog_);
    press(Qt::Key_Escape);
    EXPECT_EQ(lines(), "a b c ");
    EXPECT_FALSE(editor_->isChanging());
}

TEST_F(ListOfLines, WithoutAPlaceForNewLinesOneIsMadeAndGoesAgainIfLeftEmpty) {
    editor_->setPlaceForNew(false);
    fill("a b");
    press(Qt::Key_Insert);
    EXPECT_EQ(lines(), "a b ");
    press(Qt::Key_Escape);
    EXPECT_EQ(lines(), "a b");
    press(Qt::Key_Insert);
    press(Qt::Key_Return);
    EXPECT_EQ(lines(), "a b");
    EXPECT_EQ(log(), "");
    press(Qt::Key_Insert);
    type("c");
    press(Qt::Key_Return);
    EXPECT_EQ(lines(), "a b c");
    EXPECT_EQ(log(), "added 2 c");
    press(Qt::Key_Insert);
    type("d");
    editor_->deleteLine();
    EXPECT_EQ(lines(), "a b c") << "the line that was begun, and no other";
    EXPECT_EQ(log(), "");
}

TEST_F(ListOfLines, ALineThatWasEmptyBeforeItsEditStaysUnlessItGetsAText) {
    editor_->setPlaceForNew(false);
    struct Row {
        std::function<void()> act;
        const char *lines, *log;
    };
    const Row rows[] = {
        {[] { press(Qt::Key_F2), press(Qt::Key_Escape); }, "a||b", ""},
        {[] { press(Qt::Key_F2), press(Qt::Key_Return); }, "a||b", ""},
        {[] { press(Qt::Key_F2), type("x"), press(Qt::Key_Escape); }, "a||b", ""},
        {[] { press(Qt::Key_F2), type("x"), press(Qt::Key_Return); }, "a|x|b", "renamed 1 x"},
        {[] { press(Qt::Key_F2), press(Qt::Key_Escape), press(Qt::Key_Delete); }, "a|b", "deleted 1"},
    };
    for (const Row& row : rows) {
        fill("", 0);
        editor_->setLines({QStringLiteral("a"), QString(), QStringLiteral("b")});
        editor_->setCurrentRow(1);
        row.act();
        EXPECT_EQ(editor_->lines().join(QLatin1Char('|')).toStdString(), row.lines);
        EXPECT_EQ(log(), row.log);
    }
}

TEST_F(ListOfLines, MoveAfterARefusedEditMovesNothing) {
    fill("a b c", 0);
    press(Qt::Key_F2);
    type("bad");
    testsupport::answerNextMessageBox("No");
    editor_->moveLine(+1);
    EXPECT_EQ(lines(), "b c ");
    EXPECT_EQ(log(), "renamed 0 bad");
}

TEST_F(ListOfLines, ARecordGoesAlongWithItsLineUnlessTheMoveIsRefused) {
    editor_->list().item(0)->setData(Qt::UserRole, 42);
    editor_->movesAllowed = false;
    editor_->moveLine(+1);
    EXPECT_EQ(lines(), "a b c ");
    EXPECT_EQ(log(), "");
    editor_->movesAllowed = true;
    editor_->moveLine(+1);
    EXPECT_EQ(lines(), "b a c ");
    EXPECT_EQ(editor_->list().item(1)->data(Qt::UserRole).toInt(), 42);
}

TEST_F(ListOfLines, ADerivedListEditsWithAControlOfItsOwn) {
    editor_->choices = true;
    QListWidget& list = editor_->list();
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    auto* combo = dynamic_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_NE(combo, nullptr);
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(log(), "renamed 1 " + combo->currentText().toStdString());
}

TEST(ListOfFiles, BrowsingSetsTheCurrentLineOrBeginsANewOne) {
    const testsupport::TemporaryDirectory directory;
    testsupport::writeFile(directory / "x.frm", "");
    testsupport::writeFile(directory / "y.frm", "");
    ListBoxFileEditor editor;
    testsupport::activate(editor);
    const auto browse = [&](const char* file) {
        testsupport::whenModal([&](QWidget& modal) {
            auto* name = modal.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(name, nullptr);
            name->setText(QString::fromStdString((directory / file).string()));
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::mouseClick(testsupport::find<QToolButton>(editor, "Browse..."), Qt::LeftButton);
        return editor.lines().join(QLatin1Char('|')).toStdString();
    };
    const std::string x = (directory / "x.frm").string();
    const std::string y = (directory / "y.frm").string();
    EXPECT_EQ(browse("x.frm"), x + "|");
    testsupport::activate(editor);
    QTest::mouseClick(testsupport::find<QToolButton>(editor, "New"), Qt::LeftButton);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("half a na"));
    EXPECT_EQ(browse("y.frm"), x + "|" + y + "|");
    editor.setCurrentRow(0);
    EXPECT_EQ(browse("y.frm"), y + "|" + y + "|");
}
