#include "dialog/pages/borders/attributedialog.h"

#include "dialog/pages/borders/attributesgrid.h"
#include "tests/support/widgets.h"

using ovsettings::Attributes;
using ovsettings::CAttributeDialog;
using ovsettings::CAttributesGrid;
using namespace testsupport;

namespace {

/// The dialog over three properties, of which two have known values, and two more on offer.
class AttributeDialog : public testing::Test {
protected:
    AttributeDialog() {
        dialog_.setAttributes(before_);
        dialog_.setKnownValues({{"TITLE", {"one", "two"}}, {"REV", {"A"}}});
        dialog_.setNames({"REV", "TITLE", "DATE"});
    }
    int run(const std::function<void()>& script) {
        whenDialog([&](QDialog&) { script(); });
        return dialog_.DoModal();
    }
    CAttributesGrid& grid() { return *dialog_.findChild<CAttributesGrid*>(); }
    void goTo(int row, int column) {
        grid().setFocus();
        grid().setCurrentCell(row, column);
    }
    void type(const char* keys) {
        for (; *keys; ++keys)
            QTest::keyClick(dialog_.focusWidget(), *keys);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(dialog_.focusWidget(), key, modifiers);
    }
    /// Opens the list of the current cell, as a user does, and takes the entry at a place in it, from 0.
    void choose(int entry) {
        key(Qt::Key_Down, Qt::AltModifier);
        QWidget* list = QApplication::activePopupWidget();
        ASSERT_NE(list, nullptr);
        auto* view = list->findChild<QAbstractItemView*>();
        QTest::keyClick(view, Qt::Key_Home);
        for (; entry > 0; --entry)
            QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_FALSE(grid().isEditing());
    }
    std::string choices(int row, int column) {
        return grid().cellStyle(row, column).choices.join(QLatin1Char('|')).toStdString();
    }

    const Attributes before_{{"TITLE", "own"}, {"NOTE", "text"}, {"AUTHOR", ""}};
    CAttributeDialog dialog_;
};

TEST_F(AttributeDialog, GivesBackTheRowsFromTopToBottom) {
    EXPECT_EQ(run([&] {
                  goTo(1, 2);
                  choose(2);
                  goTo(2, 2);
                  type("typed");
                  press(dialog_, "OK"); // with the cell still in its editor
              }),
              QDialog::Accepted);
    EXPECT_EQ(dialog_.attributes(), (Attributes{{"TITLE", "two"}, {"NOTE", "typed"}, {"AUTHOR", ""}}));
}

TEST_F(AttributeDialog, TakesNoValueAndAValueThatIsNotKnown) {
    run([&] {
        goTo(1, 2);
        choose(0);
        EXPECT_EQ(grid().cellText(1, 2).toStdString(), "");
        EXPECT_EQ(choices(1, 2), "<Empty>|one|two");
        type("my own");
        key(Qt::Key_Return);
        EXPECT_EQ(choices(1, 2), "<Empty>|one|two|my own");
        // A list that is closed without a choice leaves the text to be typed over.
        key(Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(QApplication::activePopupWidget()->findChild<QAbstractItemView*>(), Qt::Key_Escape);
        QApplication::processEvents();
        EXPECT_TRUE(grid().isEditing());
        key(Qt::Key_End);
        type("!");
        press(dialog_, "OK");
    });
    EXPECT_EQ(dialog_.attributes().front().second, "my own!");
}

TEST_F(AttributeDialog, OffersInItsLastRowTheNamesThatHaveNone) {
    run([&] {
        ASSERT_EQ(grid().rowCount(), 4);
        EXPECT_EQ(choices(4, 1), "REV|DATE");
        goTo(4, 1);
        choose(0);
        EXPECT_EQ(choices(4, 2), "<Empty>|A");
        goTo(4, 2);
        choose(1);
        goTo(5, 1);
        choose(0);
        EXPECT_EQ(grid().rowCount(), 5) << "no name is left to offer";
        goTo(1, 1);
        press(dialog_, "Delete");
        EXPECT_EQ(choices(5, 1), "TITLE");
        goTo(5, 1);
        press(dialog_, "Delete");
        EXPECT_EQ(grid().rowCount(), 5) << "the row that offers names stays";
        press(dialog_, "OK");
    });
    EXPECT_EQ(dialog_.attributes(),
              (Attributes{{"NOTE", "text"}, {"AUTHOR", ""}, {"REV", "A"}, {"DATE", ""}}));
}

TEST_F(AttributeDialog, CancelLeavesTheListAsItWas) {
    EXPECT_EQ(run([&] {
                  goTo(1, 2);
                  press(dialog_, "Delete");
                  goTo(1, 2);
                  type("typed");
                  press(dialog_, "Cancel");
              }),
              QDialog::Rejected);
    EXPECT_EQ(dialog_.attributes(), before_);
}

TEST_F(AttributeDialog, TheHiddenAddAsksForANameAndAddsNothing) {
    const auto add = [&](const char* name, const char* button, std::vector<std::string>* boxes) {
        whenDialog([=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle().toStdString(), "New Property");
            QTest::keyClicks(controlByCaption(dialog, "Name"), name);
            QTest::keyClicks(controlByCaption(dialog, "Value"), "value");
            if (boxes)
                answerNextMessageBox("OK", &boxes->emplace_back());
            press(dialog, button);
        });
        find<QPushButton>(dialog_, "Add")->click();
    };
    std::vector<std::string> boxes;
    run([&] {
        EXPECT_FALSE(find<QPushButton>(dialog_, "Add")->isVisible());
        add("", "OK", &boxes);
        add("NAME", "OK", nullptr);
        add("", "Cancel", nullptr);
        EXPECT_EQ(grid().rowCount(), 4);
        press(dialog_, "OK");
    });
    EXPECT_EQ(boxes, (std::vector<std::string>{"Empty attribute name"}));
    EXPECT_EQ(dialog_.attributes(), before_);
}

} // namespace
