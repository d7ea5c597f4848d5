#include "dialog/pages/editor/globalnetsdialog.h"

#include "dialog/pages/editor/globalsgrid.h"
#include "tests/support/widgets.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

TEST(GlobalNetsPage, KeepsWhatIsTypedAndStoresNothing) {
    QDialog window;
    ovsettings::CGlobalNetsDialog page(nullptr);
    page.createWindow(&window);
    page.show();
    page.resize(400, 300);
    testsupport::activate(window);
    auto& grid = *page.findChild<ovsettings::CGlobalsGrid*>();
    EXPECT_EQ(grid.rowCount(), 11);
    EXPECT_EQ(grid.cellText(0, 1).toStdString(), "Global Net");
    EXPECT_EQ(grid.cellText(0, 2).toStdString(), "Alias");
    EXPECT_NEAR(grid.widthOfColumn(1), grid.widthOfColumn(2), 1);
    EXPECT_EQ(grid.widthOfColumn(1) + grid.widthOfColumn(2), grid.clientWidth());

    grid.setFocus();
    grid.setCurrentIndex({});
    QPushButton ok(&window);
    ok.setDefault(true);
    ok.show();
    QObject::connect(&ok, &QPushButton::clicked, &window, &QDialog::accept);
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible()) << "the key is the grid's";
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(grid.currentColumn(), 1);
    for (const char* text : {"VCC", "+5V"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_TRUE(page.onLeave());
    page.hide();
    EXPECT_TRUE(page.onOk());
    EXPECT_FALSE(page.isModified());
    page.show();
    EXPECT_EQ(grid.cellText(1, 1).toStdString(), "VCC");
    EXPECT_EQ(grid.cellText(1, 2).toStdString(), "+5V");
}
