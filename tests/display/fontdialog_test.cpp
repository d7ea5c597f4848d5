#include "dialog/pages/display/fontdialog.h"

#include "dialog/pages/display/fontsgrid.h"
#include "dialog/pages/display/ownbitmapbtn.h"
#include "dialog/pages/display/scalefactoredit.h"
#include "tests/display/displaypages.h"

#include <QtWidgets/QFontDialog>
#include <QtWidgets/QListView>

#include <algorithm>

using ovsettings::CFontDialog;
using ovsettings::CFontsGrid;
using namespace testsupport;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* kLocks = R"(
    <section path="Orvane/FONT_MAP">
        <group type="font" name="GOTHIC"><attribute name="WEIGHT" locked="yes">400</attribute></group>
    </section>
    <section path="Orvane/SETTINGS"><value name="SCALEFACTOR" locked="yes">3</value></section>)";

class FontPage : public DisplayPages {
protected:
    CFontsGrid& grid() { return *page_->findChild<CFontsGrid*>(); }
    QPushButton& button(const char* caption) { return *find<QPushButton>(window_, caption); }
    std::string shown(int row) { return grid().cellText(row, 2).toStdString(); }

    void click(int row, int column) {
        const QModelIndex index = grid().model()->index(row - 1, column - 1);
        grid().scrollTo(index);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().visualRect(index).topLeft() + QPoint(10, 5));
    }

    /// Chooses this font in the chooser that comes next, and tells what it started with.
    static void choose(const QFont& font, QFont* start = nullptr) {
        whenDialog([font, start](QDialog& dialog) {
            auto& chooser = dynamic_cast<QFontDialog&>(dialog);
            if (start)
                *start = chooser.currentFont();
            chooser.setCurrentFont(font);
            chooser.accept();
        });
    }
};

} // namespace

TEST_F(FontPage, ShowsTheFaceOfEachStrokeFontAndTheWordsOfItsStyle) {
    load();
    Orv::setValues(appConfig_, "FIXED", {"Arial", "Bold Oblique", "700", "0", "1", "1", "1", "1"});
    Orv::setValues(appConfig_, "ROMAN", {"", "", "400", "0", "0", "0", "0", "1"});
    Orv::setValues(appConfig_, "PLOT", {"0", "x", "400", "0", "1", "1", "1", "1"});
    Orv::setValues(appConfig_, "KANJI", {"Arial", "x", "400", "0", "2", "0", "1", "0"});
    open<CFontDialog>();
    const char* const captions[] = {
        "Fixed",  "Roman",           "Roman Italic", "Roman Bold", "Roman Bold Italic", "Sans Serif",
        "Script", "Sans Serif Bold", "Script Bold",  "Gothic",     "Old English",       "Kanji",
        "Plot"};
    ASSERT_EQ(grid().rowCount(), 13);
    for (int row = 1; row <= 13; ++row)
        EXPECT_EQ(grid().cellText(row, 1).toStdString(), captions[row - 1]);
    EXPECT_EQ(shown(1), "Arial Bold Italic Underline Strikeout");
    EXPECT_EQ(shown(2), " Bold");
    EXPECT_EQ(shown(3), "");
    EXPECT_EQ(shown(12), "Arial Strikeout");
    EXPECT_EQ(shown(13), "") << "a font that is not mapped has no style either";
}

TEST_F(FontPage, StoresTheChosenFontWhicheverWayTheChooserIsOpened) {
    const std::function<void()> ways[] = {
        [this] { button("Edit mapping").click(); },
        [this] { QTest::keyClick(&grid(), Qt::Key_Return); },
        [this] {
            QTest::mouseClick(grid().viewport()->findChild<ovsettings::CBitmapBtnEdit*>(), Qt::LeftButton);
        },
    };
    for (const auto& open_ : ways) {
        load();
        Orv::setValues(appConfig_, "SCRIPT", {"DejaVu Sans", "Book", "400", "128", "0", "1", "0", "0"});
        CFontDialog& page = open<CFontDialog>();
        click(7, 2);
        QFont font("DejaVu Sans Mono"), start;
        font.setStyleName("Bold");
        font.setStrikeOut(true);
        choose(font, &start);
        EXPECT_FALSE(page.isModified());
        open_();
        EXPECT_TRUE(page.isModified());
        EXPECT_EQ(start.family(), "DejaVu Sans");
        EXPECT_TRUE(start.underline() && !start.strikeOut() && !start.italic() && !start.bold());
        EXPECT_EQ(shown(7), "DejaVu Sans Mono Bold Strikeout");
        EXPECT_TRUE(page.onOk());
        EXPECT_FALSE(page.isModified());
        EXPECT_EQ(stored("SCRIPT"), (Texts{"DejaVu Sans Mono", "Bold", "700", "1", "0", "0", "1", "1"}));
        EXPECT_EQ(stored("FIXED"), Texts(8, "0")) << "a font that is not mapped stays as it was";
    }
}

TEST_F(FontPage, AFaceThatThisMachineLacksStaysWithItsStyleUntilAnotherIsChosen) {
    const QString offered = QFontDialog(QFont("No Such Face")).currentFont().family();
    Texts mapped{"No Such Face", "Black Oblique", "900", "128", "1", "0", "0", "1"}, underlined = mapped;
    underlined[5] = "1";
    const std::pair<std::function<void(QFontDialog&)>, Texts> rows[] = {
        {[](QFontDialog& chooser) { chooser.reject(); }, mapped},
        {[](QFontDialog& chooser) { chooser.accept(); }, mapped},
        {[](QFontDialog& chooser) {
             EXPECT_EQ(chooser.findChild<QLineEdit*>()->text(), "No Such Face");
             find<QCheckBox>(chooser, "Underline")->click();
             chooser.accept();
         },
         underlined},
        {[](QFontDialog& chooser) {
             QTest::keyClick(chooser.findChild<QComboBox*>(), Qt::Key_Down);
             QApplication::processEvents();
             EXPECT_EQ(chooser.findChild<QComboBox*>()->currentIndex(), 1) << "another writing system";
             chooser.accept();
         },
         mapped},
        {[&](QFontDialog& chooser) {
             auto& faces = *chooser.findChild<QListView*>();
             const auto names = textsOf(faces);
             clickCell(faces,
                       static_cast<int>(std::ranges::find(names, offered.toStdString()) - names.begin()) + 1,
                       1);
             chooser.accept();
         },
         {offered.toStdString()}},
    };
    for (const auto& row : rows) {
        load();
        Orv::setValues(appConfig_, "SCRIPT", mapped);
        CFontDialog& page = open<CFontDialog>();
        click(7, 2);
        whenDialog([&](QDialog& dialog) { row.first(dynamic_cast<QFontDialog&>(dialog)); });
        button("Edit mapping").click();
        EXPECT_EQ(page.isModified(), row.second != mapped);
        EXPECT_TRUE(page.onApply());
        Texts kept = stored("SCRIPT");
        if (row.second.size() == 1) {
            EXPECT_EQ(kept[3], "1") << "the character set of the face that was given up goes with it";
            kept.resize(1);
        }
        EXPECT_EQ(kept, row.second);
    }
}

TEST_F(FontPage, ForgetsAFaceByTheButtonButNotByTheDeleteKey) {
    const Texts mapped{"Arial", "Bold", "700", "1", "0", "0", "0", "1"};
    load();
    Orv::setValues(appConfig_, "ROMAN", mapped);
    CFontDialog* page = &open<CFontDialog>();
    click(2, 1);
    QTest::keyClick(&grid(), Qt::Key_Delete);
    EXPECT_EQ(shown(2), "Arial Bold") << "the key is one of column 2";
    click(2, 2);
    QTest::keyClick(&grid(), Qt::Key_Delete);
    EXPECT_EQ(shown(2), "");
    EXPECT_TRUE(grid().cellStyle(2, 2).toolTip.isEmpty());
    EXPECT_FALSE(page->isModified()) << "the mapping is still there";
    EXPECT_TRUE(page->onApply());
    EXPECT_EQ(stored("ROMAN"), mapped);

    page = &open<CFontDialog>();
    EXPECT_EQ(shown(2), "Arial Bold");
    click(2, 2);
    QTest::mouseClick(&button("Remove mapping"), Qt::LeftButton);
    EXPECT_EQ(shown(2), "");
    EXPECT_TRUE(page->isModified());
    EXPECT_TRUE(page->onApply());
    EXPECT_EQ(stored("ROMAN"), (Texts{"", "Bold", "700", "1", "0", "0", "0", "1"}));
    page = &open<CFontDialog>();
    EXPECT_EQ(shown(2), " Bold");
    click(3, 2);
    button("Remove mapping").click();
    EXPECT_FALSE(page->isModified()) << "there is none";
}

TEST_F(FontPage, ALockedFieldDisablesTheButtonsOfItsRow) {
    load(kLocks);
    open<CFontDialog>();
    for (const int row : {9, 10, 11}) {
        click(row, 1);
        EXPECT_EQ(button("Edit mapping").isEnabled(), row != 10);
        EXPECT_EQ(button("Remove mapping").isEnabled(), row != 10);
        EXPECT_EQ(grid().viewport()->findChild<ovsettings::CBitmapBtnDel*>()->isVisible(), row != 10);
    }
    EXPECT_EQ(grid().cellStyle(10, 2).toolTip.toStdString(), "Locked by " + installation_.site().string());
    EXPECT_FALSE(controlByCaption(window_, "Scale factor")->isEnabled());
}

TEST_F(FontPage, WritesAScaleFactorAsItStandsIfItBeginsWithAPositiveNumber) {
    const GermanNumbers german;
    load();
    const std::string noUtf8 = "2\xFC";
    Orv::setValue(appConfig_, "SCALEFACTOR", noUtf8);
    CFontDialog& page = open<CFontDialog>();
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("SCALEFACTOR"), Texts{noUtf8}) << "left alone";
    auto& factor = *find<ovsettings::ScaleFactorEdit>(window_, "Scale factor");
    const std::pair<const char*, const char*> rows[] = {
        {"1.5", "1.5"}, {"0", "1.5"},   {"-1", "1.5"},      {"wide", "1.5"},
        {"", "1.5"},    {"1,5", "1,5"}, {"1e-50", "1e-50"}, {" 2x", " 2x"},
    };
    for (const auto& [typed, expected] : rows) {
        factor.setFocus();
        type(factor, typed);
        grid().setFocus();
        EXPECT_EQ(page.isModified(), stored("SCALEFACTOR") != Texts{expected}) << typed;
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("SCALEFACTOR"), Texts{expected}) << typed;
    }
    QTest::keyClick(&factor, Qt::Key_Up);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("SCALEFACTOR"), Texts{"2.1"}) << "with a point, wherever the user lives";
}
