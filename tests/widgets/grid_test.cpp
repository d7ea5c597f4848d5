#include "dialog/widgets/grid/gridwnd.h"

#include "tests/support/widgets.h"

#include <QtGui/QAccessible>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QVBoxLayout>

using ovsettings::GridCellKind;
using ovsettings::GridCellStyle;
using ovsettings::GridWnd;
using testsupport::messageDuring;

namespace {

/// Notes what the grid's hooks are told.
class RecordingGrid : public GridWnd {
public:
    std::vector<std::string> calls;
    bool mayEdit = true;
    bool takesClicks = false;
    int takenKey = 0;
    QPoint menuAt;

    QPoint centre(int row, int column) const { return rect(row, column).center(); }

    QRect rect(int row, int column) const { return visualRect(model()->index(row - 1, column - 1)); }

    std::string text(int row, int column) const { return cellText(row, column).toStdString(); }

protected:
    bool onStartEditing(int row, int column) override {
        note("start", row, column);
        return mayEdit;
    }
    void onCellChanged(int row, int column) override { note("changed", row, column); }
    void onCellPressed(int row, int column) override { note("pressed", row, column); }
    bool onClick(int row, int column) override {
        note("click", row, column);
        return takesClicks;
    }
    bool onKey(const QKeyEvent& event) override { return event.key() == takenKey; }
    bool onContextMenu(int row, int column, const QPoint& at) override {
        note("menu", row, column);
        menuAt = at;
        return true;
    }

private:
    void note(const char* what, int row, int column) {
        calls.push_back(std::string(what) + ' ' + std::to_string(row) + ' ' + std::to_string(column));
    }
};

using Calls = std::vector<std::string>;

/// A grid of one column of captions and one of cells, between two buttons.
class Grid : public testing::Test {
protected:
    Grid() {
        auto* layout = new QVBoxLayout(&window_);
        layout->addWidget(&before_);
        layout->addWidget(&grid_);
        layout->addWidget(&after_);
        grid_.setColumnCount(2);
        window_.resize(500, 400);
        testsupport::activate(window_);
    }

    int add(const QString& caption, const GridCellStyle& style, const QString& text) {
        const int row = grid_.rowCount() + 1;
        grid_.setRowCount(row);
        grid_.setCellStyle(row, 1, {.readOnly = true, .enabled = false});
        grid_.setCellText(row, 1, caption);
        grid_.setCellStyle(row, 2, style);
        grid_.setCellText(row, 2, text);
        return row;
    }

    void goTo(int row, int column = 2) {
        grid_.setFocus();
        grid_.setCurrentCell(row, column);
    }

    /// Where keys go. A box or list that has just closed leaves the activation on its way back, so the
    /// application may know of no focus.
    QWidget* focus() { return window_.focusWidget(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(focus(), key, modifiers);
    }
    /// The first key may open the editor that the others go to.
    void type(const char* text) {
        for (const char* key = text; *key; ++key)
            QTest::keyClick(focus(), *key);
    }
    void click(const QPoint& at) { QTest::mouseClick(grid_.viewport(), Qt::LeftButton, {}, at); }

    QWidget window_;
    QPushButton before_;
    RecordingGrid grid_;
    QPushButton after_;
};

} // namespace

TEST_F(Grid, BeginsEndsAndRestoresAnEditByKeys) {
    const int row = add("Name", {}, "old");
    const int below = add("Below", {}, "");
    const auto edit = [&](Qt::Key begin, const char* text, Qt::Key end) {
        goTo(row);
        press(begin);
        EXPECT_TRUE(grid_.isEditing());
        type(text);
        EXPECT_EQ(grid_.text(row, 2), text) << "the text on show is the editor's";
        press(end);
        EXPECT_FALSE(grid_.isEditing());
    };
    edit(Qt::Key_F2, "one", Qt::Key_Return);
    EXPECT_EQ(grid_.text(row, 2), "one");
    EXPECT_EQ(grid_.currentRow(), row);
    EXPECT_TRUE(grid_.hasFocus());
    edit(Qt::Key_Return, "two", Qt::Key_Escape);
    EXPECT_EQ(grid_.text(row, 2), "one");
    EXPECT_TRUE(window_.isVisible());
    edit(Qt::Key_Enter, "three", Qt::Key_Tab);
    EXPECT_EQ(grid_.text(row, 2), "three");
    EXPECT_EQ(grid_.currentRow(), below);
    edit(Qt::Key_Delete, "", Qt::Key_Down);
    EXPECT_EQ(grid_.text(row, 2), "");
    EXPECT_EQ(grid_.currentRow(), below);

    type("x y");
    after_.setFocus();
    EXPECT_EQ(grid_.text(below, 2), "x y") << "the focus went elsewhere";
    EXPECT_TRUE(after_.hasFocus());
    EXPECT_FALSE(grid_.isEditing());
}

TEST_F(Grid, GoesThroughItsCellsByTabAndIsLeftByIt) {
    for (const char* caption : {"a", "b", "c"})
        add(caption, {}, caption);
    grid_.setCellStyle(2, 2, {.enabled = false});
    before_.setFocus();
    press(Qt::Key_Tab);
    EXPECT_TRUE(grid_.hasFocus());
    EXPECT_EQ(grid_.currentRow(), 1);
    EXPECT_EQ(grid_.currentColumn(), 2) << "captions are not gone to";
    press(Qt::Key_Tab);
    EXPECT_EQ(grid_.currentRow(), 3);
    press(Qt::Key_Up);
    EXPECT_EQ(grid_.currentRow(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_TRUE(after_.hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_TRUE(grid_.hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_EQ(grid_.currentRow(), 1);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(after_.hasFocus());
    goTo(3);
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(before_.hasFocus());
}

TEST_F(Grid, WorksOnControlsInPlace) {
    const QStringList choices{"one", "two", "three"};
    const int box = add("Box", {.kind = GridCellKind::checkBox}, "abc");
    const int across = add("Across", {.kind = GridCellKind::radioGroup, .choices = choices}, "0");
    const int down =
        add("Down", {.kind = GridCellKind::radioGroup, .choices = choices, .orientation = Qt::Vertical}, "2");
    const int color = add("Colour", {.kind = GridCellKind::color}, "255");
    grid_.setWidthOfColumn(2, 300);

    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F2}) {
        grid_.setCellText(box, 2, "abc");
        goTo(box);
        press(key);
        EXPECT_EQ(grid_.text(box, 2), "1");
        press(key);
        EXPECT_EQ(grid_.text(box, 2), "0");
        goTo(down);
        press(key);
        EXPECT_EQ(grid_.text(down, 2), "0");
        grid_.setCellText(down, 2, "2");
        grid_.calls.clear();
        goTo(color);
        press(key);
        EXPECT_EQ(grid_.calls, (Calls{"pressed 4 2"}));
    }
    EXPECT_GE(grid_.rect(down, 2).height(), 3 * grid_.fontMetrics().height());

    click(QPoint(grid_.rect(box, 2).left() + 8, grid_.centre(box, 2).y()));
    EXPECT_EQ(grid_.text(box, 2), "1");
    click(grid_.centre(box, 2));
    EXPECT_EQ(grid_.text(box, 2), "1") << "beside the box";
    click(grid_.centre(across, 2));
    EXPECT_EQ(grid_.text(across, 2), "1");
    QTest::mouseClick(grid_.viewport(), Qt::RightButton, {}, grid_.rect(across, 2).topLeft() + QPoint(8, 8));
    EXPECT_EQ(grid_.text(across, 2), "1") << "another button of the mouse";
    click(grid_.centre(down, 2));
    EXPECT_EQ(grid_.text(down, 2), "1");
    grid_.calls.clear();
    click(grid_.centre(color, 2));
    EXPECT_EQ(grid_.calls, (Calls{"click 4 2", "pressed 4 2"}));
}

TEST_F(Grid, ReadOnlyCellsAreReachedAndNotChanged) {
    for (const auto kind : {GridCellKind::text, GridCellKind::maskedEdit, GridCellKind::checkBox,
                            GridCellKind::dropDown, GridCellKind::radioGroup, GridCellKind::color}) {
        const int row = add("Locked", {.kind = kind, .readOnly = true, .choices = {"a", "b"}}, "0");
        goTo(row);
        ASSERT_EQ(grid_.currentRow(), row);
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Space, Qt::Key_1, Qt::Key_Delete})
            press(key);
        press(Qt::Key_Down, Qt::AltModifier);
        grid_.setCurrentCell(row, 2);
        click(QPoint(grid_.rect(row, 2).left() + 8, grid_.centre(row, 2).y()));
        EXPECT_FALSE(grid_.isEditing());
        EXPECT_EQ(grid_.text(row, 2), "0");
    }
    for (const std::string& call : grid_.calls)
        EXPECT_TRUE(call.starts_with("click")) << call;
}

TEST_F(Grid, MaskLetsDigitsThrough) {
    struct {
        const char *before, *typed, *after;
    } const rows[] = {
        {"5", "12x-3", "123"}, {"", "123456789", "1234567"}, {"", "\xd9\xa1", ""},
        {"abc", "7", "7"},     {"abc", "", "abc"},           {"-5", "", "-5"},
    };
    const int row =
        add("Count", {.kind = GridCellKind::maskedEdit, .mask = QStringLiteral("#######")}, QString());
    for (const auto& sample : rows) {
        grid_.setCellText(row, 2, sample.before);
        goTo(row);
        press(Qt::Key_F2);
        type(sample.typed);
        press(Qt::Key_Return);
        EXPECT_EQ(grid_.text(row, 2), sample.after) << sample.before << ' ' << sample.typed;
    }
    // What does not fit is shortened key by key; half-way there, it is no text to keep.
    for (const int keys : {2, 1}) {
        grid_.setCellText(row, 2, "1ab");
        press(Qt::Key_F2);
        press(Qt::Key_End);
        for (int i = 0; i < keys; ++i)
            press(Qt::Key_Backspace);
        press(Qt::Key_Return);
        EXPECT_EQ(grid_.text(row, 2), keys == 2 ? "1" : "1ab");
    }
}

TEST_F(Grid, KeysThatAnEditorHasNoUseForLeaveItOpen) {
    const int row = add("Name", {}, "old");
    goTo(row);
    type("vcc");
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock, Qt::Key_F1})
        press(key);
    EXPECT_TRUE(grid_.isEditing());
    type("X");
    press(Qt::Key_Down);
    EXPECT_FALSE(grid_.isEditing());
    EXPECT_EQ(grid_.text(row, 2), "vccX");
}

TEST_F(Grid, JoinedCellsAreOneStop) {
    const int joined = add("Across", {.readOnly = true}, "hidden");
    const int next = add("Next", {}, "");
    grid_.joinCells(joined, 1, 2);
    grid_.setCurrentCell(joined, 1);
    press(Qt::Key_Tab);
    EXPECT_EQ(grid_.currentRow(), next);
}

TEST_F(Grid, KeepsARefusedTextInItsEditorAndSaysWhy) {
    const int row = add("Width", {.limits = {{1, 10, "between 1 and 10"}}}, "5");
    const int other = add("Other", {}, "");
    const std::vector<std::function<void()>> waysOut{
        [&] { press(Qt::Key_Return); },         [&] { press(Qt::Key_Tab); },
        [&] { press(Qt::Key_Down); },           [&] { click(grid_.centre(other, 2)); },
        [&] { EXPECT_FALSE(grid_.endEdit()); },
    };
    for (const char* typed : {"11", "0", "x", ""}) {
        goTo(row);
        press(Qt::Key_Delete);
        type(typed);
        for (const auto& leave : waysOut) {
            EXPECT_EQ(messageDuring([&] { leave(); }), "between 1 and 10");
            EXPECT_TRUE(grid_.isEditing());
            EXPECT_EQ(grid_.text(row, 2), typed);
            EXPECT_EQ(grid_.currentRow(), row);
        }
        // Another control may have the focus; the text waits, and nothing is said until it has to be.
        after_.setFocus();
        EXPECT_TRUE(grid_.isEditing());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        grid_.findChild<QLineEdit*>()->setFocus();
        press(Qt::Key_Escape);
        EXPECT_EQ(grid_.text(row, 2), "5");
    }
    type("10");
    press(Qt::Key_Return);
    EXPECT_EQ(grid_.text(row, 2), "10");

    press(Qt::Key_F2);
    type("11");
    testsupport::whenModal([&](QWidget& message) {
        grid_.removeRow(row);
        message.close();
    });
    EXPECT_FALSE(grid_.endEdit()) << "the row went while the message was open";
    EXPECT_FALSE(grid_.isEditing());
}

TEST_F(Grid, ChoosesFromAListByKeysAndMouse) {
    const int row =
        add("List", {.kind = GridCellKind::dropDown, .choices = {"Alpha", "Beta", "Gamma"}}, "Alfa");
    const auto popup = [] {
        return QApplication::activePopupWidget();
    };
    const auto openList = [&] {
        goTo(row);
        press(Qt::Key_Down, Qt::AltModifier);
        ASSERT_NE(popup(), nullptr);
        EXPECT_EQ(grid_.text(row, 2),
                  grid_.model()->index(row - 1, 1).data(Qt::EditRole).toString().toStdString());
    };
    const auto pressInList = [&](std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(popup()->findChild<QAbstractItemView*>(), key);
        QApplication::processEvents();
        EXPECT_FALSE(grid_.isEditing());
        EXPECT_EQ(popup(), nullptr);
    };
    openList();
    pressInList({Qt::Key_Escape});
    EXPECT_EQ(grid_.text(row, 2), "Alfa") << "a text that is no choice stays";
    EXPECT_TRUE(grid_.calls == Calls{"start 1 2"});
    openList();
    pressInList({Qt::Key_End, Qt::Key_Return});
    EXPECT_EQ(grid_.text(row, 2), "Gamma");
    openList();
    pressInList({Qt::Key_Up, Qt::Key_Escape});
    EXPECT_EQ(grid_.text(row, 2), "Gamma");

    press(Qt::Key_B);
    EXPECT_EQ(grid_.text(row, 2), "Beta");
    press(Qt::Key_Escape);
    EXPECT_EQ(grid_.text(row, 2), "Gamma");
    press(Qt::Key_A);
    press(Qt::Key_Tab);
    EXPECT_EQ(grid_.text(row, 2), "Alpha");

    click(grid_.centre(row, 2));
    ASSERT_NE(popup(), nullptr);
    pressInList({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(grid_.text(row, 2), "Beta");
}

TEST_F(Grid, AsksWhoDerivesFromIt) {
    const int row = add("Name", {}, "old");
    goTo(row);
    grid_.mayEdit = false;
    press(Qt::Key_F2);
    EXPECT_FALSE(grid_.isEditing());
    grid_.mayEdit = true;
    grid_.takesClicks = true;
    click(grid_.centre(row, 2));
    EXPECT_FALSE(grid_.isEditing());
    grid_.takenKey = Qt::Key_F2;
    press(Qt::Key_F2);
    EXPECT_FALSE(grid_.isEditing());
    grid_.calls.clear();
    QTest::mouseDClick(grid_.viewport(), Qt::LeftButton, {}, grid_.centre(row, 2));
    type("n");
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(grid_.calls, (Calls{"start 1 2", "changed 1 2", "start 1 2"}))
        << "an edit that changes nothing is no change";
}

TEST_F(Grid, AsksForTheMenuOfACellOnly) {
    add("a", {}, "");
    const int row = add("b", {}, "");
    const auto ask = [](QContextMenuEvent::Reason reason, QWidget& at, const QPoint& where) {
        QContextMenuEvent event(reason, where, at.mapToGlobal(where));
        QApplication::sendEvent(&at, &event);
    };
    QWidget& cells = *grid_.viewport();
    ask(QContextMenuEvent::Mouse, cells, grid_.centre(row, 2));
    EXPECT_EQ(grid_.menuAt, cells.mapToGlobal(grid_.centre(row, 2)));
    ask(QContextMenuEvent::Mouse, cells, QPoint(5, cells.height() - 5));
    ask(QContextMenuEvent::Mouse, *grid_.horizontalHeader()->viewport(), QPoint(5, 5));
    ask(QContextMenuEvent::Keyboard, grid_, {});
    EXPECT_EQ(grid_.calls, (Calls{"menu 2 2"})) << "no cell is meant, or none is current";
    grid_.setCurrentCell(1, 2);
    ask(QContextMenuEvent::Keyboard, grid_, {});
    EXPECT_EQ(grid_.calls.back(), "menu 1 2");
    EXPECT_EQ(grid_.menuAt, cells.mapToGlobal(grid_.centre(1, 2)));
}

TEST_F(Grid, RemovesARowWithTheEditInIt) {
    for (const char* text : {"1", "2", "3"})
        add(text, {}, text);
    goTo(2);
    type("x");
    grid_.removeRow(2);
    EXPECT_FALSE(grid_.isEditing());
    EXPECT_EQ(grid_.text(2, 2), "3");
    EXPECT_EQ(grid_.currentRow(), 2);
    type("y");
    grid_.removeRow(1);
    press(Qt::Key_Return);
    EXPECT_EQ(grid_.text(1, 2), "y") << "an edit in another row goes on";
    grid_.removeRow(2);
    grid_.removeRow(0);
    EXPECT_EQ(grid_.rowCount(), 1);
}

TEST_F(Grid, TellsWhoCannotSeeItWhatEachCellIs) {
    grid_.setCellText(0, 2, "Value");
    GridCellStyle locked{.readOnly = true, .toolTip = "Locked by <b>/etc</b>"};
    add("Name", locked, "a\nb");
    add("Flag", {.kind = GridCellKind::checkBox}, "1");
    add("Mode", {.kind = GridCellKind::radioGroup, .choices = {"x", "y"}}, "1");
    add("Ink", {.kind = GridCellKind::color}, "255");
    add("Odd", {.kind = GridCellKind::color}, "no colour");
    auto* table = QAccessible::queryAccessibleInterface(&grid_)->tableInterface();
    add("Own", {.accessibleName = "Ninth"}, "x");
    const char* const names[] = {"Name, Value, a b",    "Flag, Value, checked", "Mode, Value, y",
                                 "Ink, Value, #ff0000", "Odd, Value",           "Ninth, x"};
    for (int row = 0; row < 6; ++row)
        EXPECT_EQ(table->cellAt(row, 1)->text(QAccessible::Name).toStdString(), names[row]);
    EXPECT_EQ(table->cellAt(0, 1)->text(QAccessible::Description).toStdString(), "Locked by <b>/etc</b>");
    EXPECT_EQ(grid_.model()->index(0, 1).data(Qt::ToolTipRole).toString().toStdString(),
              "<p>Locked by &lt;b&gt;/etc&lt;/b&gt;</p>")
        << "the path is no markup";
    goTo(1);
    grid_.setCellStyle(1, 2, {});
    press(Qt::Key_F2);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName().toStdString(), "Name, Value");
}

TEST_F(Grid, PaintsStatedColors) {
    const int ink = add("Ink", {.kind = GridCellKind::color}, "16711680"); // blue in the high byte
    const int paper = add("Paper", {.interior = QColor(1, 2, 3)}, "");
    grid_.clearSelection();
    const QImage picture = grid_.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(grid_.centre(ink, 2)), QColor(0, 0, 255));
    EXPECT_EQ(picture.pixelColor(grid_.centre(paper, 2)), QColor(1, 2, 3));
}

TEST_F(Grid, KeepsItsCellsWhenItGrowsAndIgnoresThoseItDoesNotHave) {
    add("a", {}, "1");
    grid_.setColumnCount(3);
    grid_.setRowCount(4);
    EXPECT_EQ(grid_.text(1, 2), "1");
    grid_.setCellText(4, 3, "end");
    EXPECT_EQ(grid_.text(4, 3), "end");
    for (const auto& [row, column] : {std::pair{5, 1}, {1, 4}, {-1, 1}, {1, 0}, {0, 9}}) {
        grid_.setCellText(row, column, "outside");
        grid_.setCellStyle(row, column, {.readOnly = true});
        EXPECT_EQ(grid_.text(row, column), "");
        EXPECT_FALSE(grid_.cellStyle(row, column).readOnly);
    }
    grid_.setColumnCount(2);
    grid_.setRowCount(1);
    EXPECT_EQ(grid_.text(1, 2), "1");
    grid_.setRowCount(0);
    goTo(1);
    press(Qt::Key_F2);
    EXPECT_EQ(grid_.currentRow(), 0);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QApplication::sendEvent(&grid_, &enter);
    EXPECT_TRUE(enter.isAccepted()) << "Enter is for the dialog's button";
}
