#include "dialog/pages/display/colordialog.h"

#include "tests/display/displaypages.h"

#include <QtWidgets/QColorDialog>
#include <QtWidgets/QFileDialog>

using ovsettings::CColorDialog;
using ovsettings::CColorsGrid;
using namespace testsupport;

namespace {

class ColorPage : public DisplayPages {
protected:
    ColorPage() { writeFile(installation_.standard() / "colors.def", "SCHEME installed\n"); }

    CColorDialog& openPage() {
        load();
        return open<CColorDialog>();
    }

    CColorsGrid& grid() { return *window_.findChild<CColorsGrid*>(); }
    QComboBox& schemes() { return *find<QComboBox>(window_, "Color scheme"); }

    void clickCell(int row, int column) { testsupport::clickCell(grid(), row, column); }

    void pressEnter(int row, int column) {
        grid().setCurrentCell(row, column);
        QTest::keyClick(&grid(), Qt::Key_Return);
    }

    /// Chooses this colour, or cancels, in the chooser that comes next.
    static void chooseNext(const QColor& color, bool accept = true) {
        whenModal([color, accept](QWidget& modal) {
            auto* chooser = qobject_cast<QColorDialog*>(&modal);
            ASSERT_NE(chooser, nullptr);
            EXPECT_EQ(chooser->currentColor(), QColor(Qt::white)) << "it opens without a colour";
            chooser->setCurrentColor(color);
            accept ? chooser->accept() : chooser->reject();
        });
    }

    static void chooseFile(const std::filesystem::path& path, const QString& title) {
        whenModal([path, title](QWidget& modal) {
            auto* dialog = qobject_cast<QFileDialog*>(&modal);
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), title);
            dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(path.string()));
            QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
        });
    }

    /// The interior of a palette entry's cell, as text.
    std::string shown(int entry) {
        const int row = entry % 8 + 1, column = entry < 8 ? 2 : 4;
        return grid().cellStyle(row, column).interior->name().toStdString();
    }

    /// Gives the list of schemes its entries, which the page itself never does.
    void selectFirstScheme() {
        schemes().addItems({"Current Colors", "installed", "beyond the list"});
        schemes().setCurrentText("installed");
        EXPECT_EQ(shown(9), "#000000");
        schemes().setCurrentText("Current Colors");
    }
};

} // namespace

TEST_F(ColorPage, ShowsNumbersAndColorsOfThePaletteInEightRows) {
    openPage();
    const char* const headers[] = {"ID", "Color", "ID", "Color"};
    for (int column = 1; column <= 4; ++column)
        EXPECT_EQ(grid().cellText(0, column).toStdString(), headers[column - 1]);
    for (int row = 1; row <= 8; ++row) {
        EXPECT_EQ(grid().cellText(row, 1), QString::number(row - 1));
        EXPECT_EQ(grid().cellText(row, 3), QString::number(row + 7));
        EXPECT_EQ(grid().cellText(row, 2), QString());
        for (const int column : {2, 4}) {
            EXPECT_EQ(grid().model()->index(row - 1, column - 1).data(Qt::AccessibleTextRole).toString(),
                      "Color, " + grid().cellText(row, column - 1));
        }
    }
    EXPECT_TRUE(find<QRadioButton>(window_, "Screen")->isChecked());

    const int id = 4 * grid().fontMetrics().averageCharWidth();
    const int colors = grid().clientWidth() - 2 * id - 5;
    const int widths[] = {id, colors / 2, id, colors - colors / 2};
    for (int column = 1; column <= 4; ++column)
        EXPECT_EQ(grid().widthOfColumn(column), widths[column - 1]) << column;
}

TEST_F(ColorPage, EditsAnotherEntryByEnterThanByAClickAtTheSamePlace) {
    openPage();
    const struct {
        bool enter;
        int row, column, entry;
    } rows[] = {{false, 1, 2, 0}, {true, 1, 2, 1}, {false, 8, 4, 15}, {true, 7, 4, 15}, {true, 8, 2, 8}};
    int value = 0x204060;
    for (const auto& row : rows) {
        const QColor color = QColor::fromRgb(static_cast<QRgb>(++value));
        chooseNext(color);
        row.enter ? pressEnter(row.row, row.column) : clickCell(row.row, row.column);
        EXPECT_EQ(shown(row.entry), color.name().toStdString()) << row.row << ' ' << row.column;
    }

    const auto palette = [this] {
        std::string colors;
        for (int entry = 0; entry < 16; ++entry)
            colors += shown(entry);
        return colors;
    };
    const std::string before = palette();
    chooseNext(Qt::red);
    pressEnter(8, 4); // entry 16, which there is not
    chooseNext(Qt::red, false);
    clickCell(1, 2);
    clickCell(1, 3);
    pressEnter(1, 1);
    QTest::keyClick(&grid(), Qt::Key_Space);
    EXPECT_EQ(palette(), before);
}

TEST_F(ColorPage, KeepsTheColorsOfScreenAndPrinterApart) {
    openPage();
    chooseNext(Qt::red);
    clickCell(3, 2);
    press(window_, "Printer");
    EXPECT_EQ(shown(2), "#000000");
    chooseNext(Qt::blue);
    clickCell(3, 2);
    EXPECT_EQ(shown(2), "#0000ff");
    find<QRadioButton>(window_, "Screen")->setChecked(true);
    EXPECT_EQ(shown(2), "#ff0000");
}

TEST_F(ColorPage, LeavesToTheDialogOnlyEscapeArrowsAndTab) {
    openPage();
    grid().setFocus();
    grid().setCurrentCell(2, 1);
    const std::pair<int, bool> rows[] = {
        {Qt::Key_F2, true},     {Qt::Key_A, true},       {Qt::Key_PageDown, true},
        {Qt::Key_Return, true}, {Qt::Key_Escape, false},
    };
    for (const auto& [key, taken] : rows) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&grid(), &press);
        EXPECT_EQ(press.isAccepted(), taken) << key;
        EXPECT_EQ(grid().currentRow(), 2);
    }
    QTest::keyClick(&grid(), Qt::Key_Down);
    EXPECT_EQ(grid().currentRow(), 3);
    EXPECT_FALSE(grid().isEditing());
}

TEST_F(ColorPage, PaintsThePreviewByPaletteNumber) {
    openPage();
    chooseNext(Qt::red);
    clickCell(1, 2);
    chooseNext(Qt::green);
    clickCell(2, 4); // entry 9
    EXPECT_EQ(previewAt(75, 25), QColor(Qt::red)) << "text colours, as they are delivered, count as entry 0";
    EXPECT_EQ(previewAt(10, 10), QColor(Qt::red)) << "so does that of the background";

    for (const char* word : {"NET", "PROPERTY"})
        grid().setPreviewEntry(word, 9);
    grid().setPreviewEntry("BACKGROUND", 255);
    grid().setPreviewEntry("BOX", 16);
    press(window_, "Screen");
    EXPECT_EQ(previewAt(75, 25), QColor(Qt::green));
    EXPECT_EQ(previewAt(10, 10), grid().palette().color(QPalette::Base)) << "255 is the system's colour";
    EXPECT_EQ(previewAt(20, 30), QColor(Qt::black)) << "there is no such entry";
    EXPECT_EQ(grid().previewEntry("ATTRIBUTE"), 0) << "whatever the entry of its slot";
    press(window_, "Printer");
    EXPECT_EQ(previewAt(10, 10), QColor(Qt::white));
    EXPECT_EQ(previewAt(75, 25), QColor(Qt::black));
}

TEST_F(ColorPage, StoresAndExportsNothingSinceNoSchemeCanBeSelected) {
    CColorDialog& page = openPage();
    chooseNext(Qt::red);
    clickCell(1, 2);
    EXPECT_FALSE(page.isModified()) << "no host is told of this page";
    const auto screen = stored("SCREEN"), printer = stored("PRINTER");
    writeFile(installation_.user() / "calm.scm", "SCHEME calm\nSCREEN_COLOR 1 255\n");
    chooseFile(installation_.user() / "calm.scm", "Load Color Scheme");
    press(window_, "Import");
    EXPECT_EQ(schemes().count(), 0);
    EXPECT_EQ(shown(0), "#ff0000") << "the palette keeps what it has";
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(stored("SCREEN"), screen);
    EXPECT_EQ(stored("PRINTER"), printer);
    press(window_, "Export");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ColorPage, TellsOfAFileThatCannotBeReadWithAnEmptyMessage) {
    std::filesystem::remove(installation_.standard() / "colors.def");
    EXPECT_EQ(messageDuring([&] { openPage(); }), "");
    writeFile(installation_.user() / "bad.scm", "SCHEME bad\nWINDOW_BACKGROUND 255 0 0\n");
    chooseFile(installation_.user() / "bad.scm", "Load Color Scheme");
    std::string message = "none";
    // The box comes after the dialog for the file has gone.
    QMetaObject::invokeMethod(
        &window_, [&] { answerNextMessageBox("OK", &message); }, Qt::QueuedConnection);
    press(window_, "Import");
    EXPECT_EQ(message, "");
}

TEST_F(ColorPage, StoresTheSelectedSchemeAndExportsThePaletteOnShow) {
    CColorDialog& page = openPage();
    const auto screen = stored("SCREEN");
    selectFirstScheme();
    EXPECT_EQ(shown(9), "#ff0000");
    EXPECT_EQ(shown(1), "#800000");
    chooseNext(QColor(1, 2, 3));
    clickCell(1, 2);
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(stored("SCREEN").at(4), "0x000080") << "in its normal form";
    EXPECT_EQ(stored("SCREEN").at(0), screen.at(0)) << "the scheme is stored, not the palette";

    const auto path = installation_.user() / "my.new.scm";
    chooseFile(path, "Save Color Scheme");
    press(window_, "Export");
    const Orv::ColorSchemes written = Orv::readColorSchemes(path.string());
    ASSERT_EQ(written.schemes.size(), 1U) << written.reason;
    EXPECT_EQ(written.schemes[0].name, "my");
    EXPECT_EQ(written.schemes[0].screenColors[0], 0x030201);
    EXPECT_EQ(written.schemes[0].printColors[14], 0x400040);
    EXPECT_EQ(written.schemes[0].layerSlots[12], 0);

    QTest::keyClick(&schemes(), Qt::Key_End);
    EXPECT_EQ(shown(1), "#800000") << "an entry beyond the list selects nothing";
}
