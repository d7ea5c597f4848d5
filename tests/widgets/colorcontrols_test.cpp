#include "dialog/widgets/colorbutton.h"
#include "dialog/widgets/colorchangeobserver.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/ownseccolorwell.h"
#include "tests/support/widgets.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QColorDialog>

using ovsettings::ColorButton;
using ovsettings::COwnSECColorWell;
using namespace testsupport;

namespace {

constexpr int kRed = 0x0000ff, kGreen = 0x00ff00, kBlue = 0xff0000;

/// A grid whose colour cells open the button's well.
class ColorCells : public testing::Test, ovsettings::IColorChangeObserver {
protected:
    class Grid : public ovsettings::GridWnd {
    public:
        ColorButton button{*this};

    protected:
        void onCellPressed(int row, int column) override {
            button.initForCell(row, column);
            button.open();
        }
    };

    ColorCells() {
        grid.setColumnCount(2);
        grid.setRowCount(3);
        grid.setCellStyle(2, 2, {.kind = ovsettings::GridCellKind::color});
        grid.setCellText(2, 2, QString::number(kBlue));
        grid.button.setPalette({kRed, kGreen, kBlue, 0, 1, 2, 3, 4, 5, 6});
        grid.button.setObserver(this);
        grid.resize(300, 200);
        grid.show();
        grid.setCurrentCell(2, 2);
    }

    void onColorChanged(int row, int column, int color) override {
        told += std::to_string(row) + ' ' + std::to_string(column) + ' ' + std::to_string(color) + ';';
    }

    QWidget& openByKey() {
        QTest::keyClick(&grid, Qt::Key_Space);
        return *well();
    }

    /// The one that is on show; another may wait for its deletion.
    COwnSECColorWell* well() const {
        for (auto* well : grid.button.findChildren<COwnSECColorWell*>()) {
            if (well->isVisible())
                return well;
        }
        return nullptr;
    }

    static void press(QWidget& well, std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(well.focusWidget(), key);
    }

    std::string text() const { return grid.cellText(2, 2).toStdString(); }

    Grid grid;
    std::string told;
};

} // namespace

TEST_F(ColorCells, StoreAColorChosenByKeys) {
    press(openByKey(), {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Return});
    EXPECT_EQ(text(), "255") << "the well begins at the cell's colour";
    EXPECT_EQ(told, "2 2 255;");
    EXPECT_EQ(well(), nullptr);
    EXPECT_FALSE(grid.button.isVisible());

    press(openByKey(), {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Space});
    EXPECT_EQ(text(), std::to_string(kGreen));
}

TEST_F(ColorCells, StoreAColorChosenByMouse) {
    const QRect cell = grid.visualRect(grid.model()->index(1, 1));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    COwnSECColorWell* const opened = well();
    ASSERT_NE(opened, nullptr);
    EXPECT_GT(opened->y(), grid.viewport()->mapToGlobal(cell.bottomLeft()).y()) << "it hides its cell";
    QTest::mouseClick(opened->findChildren<QAbstractButton*>().at(1), Qt::LeftButton);
    EXPECT_EQ(text(), std::to_string(kGreen));
}

TEST_F(ColorCells, KeepTheirColorWhenNoneIsChosen) {
    QWidget& well = openByKey();
    press(well, {Qt::Key_Left, Qt::Key_Escape});
    EXPECT_FALSE(well.isVisible());
    openByKey();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(grid.button.isVisible()) << "whatever becomes of the well before";
    grid.button.hideButton();
    EXPECT_EQ(grid.button.geometry(), QRect(0, 0, 0, 0));
    EXPECT_EQ(text(), std::to_string(kBlue));
    EXPECT_EQ(told, "");
}

TEST_F(ColorCells, TakeAnyColorOfThePlatformsDialog) {
    for (const bool accept : {false, true}) {
        QWidget& well = openByKey();
        whenModal([&, accept](QWidget& modal) {
            auto* chooser = qobject_cast<QColorDialog*>(&modal);
            ASSERT_NE(chooser, nullptr);
            EXPECT_EQ(chooser->currentColor(), QColor(Qt::blue));
            EXPECT_TRUE(grid.button.isVisible()) << "the well is hidden, but not done";
            chooser->setCurrentColor(QColor(1, 2, 3));
            accept ? chooser->accept() : chooser->reject();
        });
        QTest::keyClick(find<QPushButton>(well, "Other..."), Qt::Key_Return);
        EXPECT_EQ(text(), std::to_string(accept ? 0x030201 : kBlue));
    }
}

TEST_F(ColorCells, AreShownInTheColorOfTheirText) {
    const std::pair<const char*, int> rows[] = {
        {"255", kRed}, {"0xff0000", kRed}, {"0X00FF00", kGreen},
        {"", 0},       {"nonsense", 0},    {"4294967295", 0xffffff},
    };
    for (const auto& [cellText, color] : rows) {
        grid.setCellText(2, 2, cellText);
        grid.button.initForCell(2, 2);
        const QColor middle =
            grid.grab().toImage().pixelColor(grid.button.mapTo(&grid, grid.button.rect().center()));
        EXPECT_EQ(middle, QColor(color & 0xff, color >> 8 & 0xff, color >> 16)) << cellText;
    }
}
