#include "dialog/widgets/wheelguard.h"

#include "dialog/widgets/decimalspinctrl.h"
#include "tests/support/widgets.h"

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>
#include <gtest/gtest.h>

namespace {

constexpr int kRows = 200;

void turnWheelDown(QWidget& target) {
    const QPointF at(5, 5);
    QWheelEvent event(at, target.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Only an event that comes from the window system is passed on to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&target, &event);
}

/// A page with one control of each kind in a scroll area that is too low for it.
class WheelGuard : public testing::Test {
protected:
    WheelGuard() {
        auto* page = new QWidget;
        layout_ = new QVBoxLayout(page);
        spin_ = add(new ovsettings::CDecimalSpinCtrl);
        combo_ = addCombo();
        list_ = add(new QListWidget);
        for (int row = 0; row < kRows; ++row)
            list_->addItem(QString::number(row));
        spin_->setValue(50);
        page->setMinimumHeight(2000);
        ovsettings::installWheelGuard(*page);
        area_.setWidget(page);
        area_.resize(300, 200);
        testsupport::activate(area_);
        area_.setFocus();
    }

    template <typename T>
    T* add(T* widget) {
        layout_->addWidget(widget);
        return widget;
    }

    QComboBox* addCombo() {
        auto* combo = add(new QComboBox);
        combo->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        return combo;
    }

    std::vector<int> state() const { return {static_cast<int>(spin_->getValue()), combo_->currentIndex()}; }
    int scrolledPage() const { return area_.verticalScrollBar()->value(); }
    int scrolledList() const { return list_->verticalScrollBar()->value(); }

    QScrollArea area_;
    QVBoxLayout* layout_;
    ovsettings::CDecimalSpinCtrl* spin_;
    QComboBox* combo_;
    QListWidget* list_;
};

} // namespace

TEST_F(WheelGuard, ScrollsThePageOverAControlWithoutFocus) {
    const std::vector<int> before = state();
    int scrolled = scrolledPage();
    const std::vector<QWidget*> targets{
        spin_, spin_->findChild<QWidget*>(QStringLiteral("qt_spinbox_lineedit")), combo_};
    for (QWidget* target : targets) {
        turnWheelDown(*target);
        EXPECT_EQ(state(), before) << target->metaObject()->className();
        EXPECT_GT(scrolledPage(), scrolled) << target->metaObject()->className();
        scrolled = scrolledPage();
    }
}

TEST_F(WheelGuard, ScrollsAListWithoutFocusAlsoOverTheEditorOfACell) {
    turnWheelDown(*list_->viewport());
    const int scrolled = scrolledList();
    EXPECT_GT(scrolled, 0);
    auto* editor = addCombo();
    list_->setItemWidget(list_->item(kRows / 2), editor);
    turnWheelDown(*editor);
    EXPECT_EQ(editor->currentIndex(), 0);
    EXPECT_GT(scrolledList(), scrolled);
    EXPECT_EQ(scrolledPage(), 0);
    for (const QWidget* control : std::initializer_list<QWidget*>{spin_, combo_, list_, editor})
        EXPECT_EQ(control->focusPolicy(), Qt::StrongFocus) << "the wheel gives nothing the focus";
}

TEST_F(WheelGuard, LeavesTheWheelToTheControlThatHasTheFocus) {
    const std::vector<int> before = state();
    for (QWidget* control : std::initializer_list<QWidget*>{spin_, combo_}) {
        control->setFocus();
        turnWheelDown(*control);
    }
    const std::vector<int> after = state();
    for (std::size_t control = 0; control < before.size(); ++control)
        EXPECT_NE(after[control], before[control]) << control;
    EXPECT_EQ(scrolledPage(), 0);
}

TEST_F(WheelGuard, GuardsAControlThatComesLater) {
    QComboBox* late = addCombo();
    late->show();
    turnWheelDown(*late);
    EXPECT_EQ(late->currentIndex(), 0);
    EXPECT_GT(scrolledPage(), 0);
}
