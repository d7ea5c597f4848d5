#include "dialog/pages/borders/bordersdialog.h"

#include "dialog/pages/borders/attributesgrid.h"
#include "dialog/pages/borders/bordersgrid.h"
#include "orv/symbolreader.h"
#include "store/unitglue.h"
#include "suite/bordersymbolsfile.h"
#include "tests/support/projectfixture.h"

#include <QtCore/QThread>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>

using Orv::Metrics::Unit;
using ovsettings::CBordersDialog;
using ovsettings::CBordersGrid;
using namespace testsupport;

namespace {

using Table = Orv::IBorderSymbols::Table;
using Texts = std::vector<std::string>;

constexpr int kStandardSizes = 22;

/// Chooses in the next chooser of symbols what a search finds.
void chooseNext(const char* search) {
    whenDialog([search](QDialog& chooser) {
        EXPECT_EQ(chooser.windowTitle().toStdString(), "Border Symbol");
        QTest::keyClicks(controlByCaption(chooser, "Filter:"), search);
        press(chooser, "OK");
    });
}

/// The properties dialog's grid.
ovsettings::CAttributesGrid& attributes(QDialog& dialog) {
    return *dialog.findChild<ovsettings::CAttributesGrid*>();
}

class Borders : public ProjectPages {
protected:
    CBordersDialog& openWith(const std::string& borders) {
        writeFile(directory() / "borders.ini", borders);
        writeFile(directory() / "lib/parts.lmc",
                  "[CentralLibrary]\nRelease=9.2\n[Partitions.Symbols]\nb=b\n"
                  "[SpecialSymbols.Border]\nSymbol#0=b:FIRST\nSymbol#1=b:OTHER\n");
        openProject("[DesignInfo]\nBorderSymbols=borders.ini\nCentralLibrary=lib/parts.lmc\n");
        auto& page = openPage<CBordersDialog>("Borders");
        page.resize(600, 400);
        QApplication::setActiveWindow(&window_);
        return page;
    }
    void addSymbol(const std::string& name, const std::string& properties) {
        writeFile(directory() / ("lib/b/" + name + ".sym"),
                  "[Symbol]\nName=" + name + "\nPartition=b\n\n[Properties]\n" + properties);
    }

    CBordersGrid& grid() { return *window_.findChild<CBordersGrid*>(); }
    Texts row(int row) {
        Texts texts;
        for (int column = 1; column <= grid().columnCount(); ++column)
            texts.push_back(grid().cellText(row, column).toStdString());
        return texts;
    }
    void click(int row, int column) { testsupport::clickCell(grid(), row, column); }
    void key(int row, int column, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        grid().setFocus();
        grid().setCurrentCell(row, column);
        QTest::keyClick(&grid(), key, modifiers);
    }
    void addCustom(const char* width, const char* height, Texts* boxes = nullptr) {
        whenDialog([=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle().toStdString(), "New Size");
            QTest::keyClicks(controlByCaption(dialog, "Width"), width);
            QTest::keyClicks(controlByCaption(dialog, "Height"), height);
            if (boxes) {
                boxes->push_back(messageDuring([&] { press(dialog, "OK"); }));
                press(dialog, "Cancel");
            } else {
                press(dialog, "OK");
            }
        });
        press(window_, "Add Custom");
    }
    void deleteCustom(int row) {
        grid().setCurrentCell(row, 1);
        press(window_, "Delete Custom");
    }
    bool mayDelete() { return control<QPushButton>("Delete Custom").isEnabled(); }

    Orv::IBorderSymbols& held() { return dynamic_cast<Orv::IBorderSymbols&>(*project().borderSymbols); }
    Table tableOnDisk() const {
        NProjectTools::CBorderSymbolsFile file;
        file.Reload((directory() / "borders.ini").string());
        return file.GetTable();
    }
    Texts propertiesOnDisk() const {
        NProjectTools::CBorderSymbolsFile file;
        file.Reload((directory() / "borders.ini").string());
        Texts texts;
        for (const auto& [name, value] : file.GetProperties())
            texts.push_back(name + '=' + value);
        return texts;
    }
};

TEST_F(Borders, ShowsEverySizeAndStoresWhatIsChosen) {
    CBordersDialog& page = openWith("[Borders]\nASHEETL=b:A\nASHEETL1=b:A1\nA4SHEETP=b:A4\n"
                                    "2x3SHEET=b:C\n2x3SHEET1=b:C1\n7X8SHEET=no size\n");
    ASSERT_EQ(grid().rowCount(), kStandardSizes + 2);
    EXPECT_EQ(row(0), (Texts{"Sheet size", "First sheet", "Next sheets"}));
    EXPECT_EQ(row(1), (Texts{"A Landscape", "b:A1", "b:A"}));
    EXPECT_EQ(row(2), (Texts{"A Portrait", "", ""}));
    EXPECT_EQ(row(22), (Texts{"A4 Portrait", "", "b:A4"}));
    EXPECT_EQ(row(23), (Texts{"2x3SHEET", "b:C1", "b:C"}));
    EXPECT_EQ(row(24), (Texts{"2x3SHEET1", "", "b:C1"}));

    chooseNext("FIRST");
    click(2, 2);
    chooseNext("OTHER");
    key(22, 3, Qt::Key_Return);
    EXPECT_TRUE(page.isModified());
    EXPECT_TRUE(page.onApply());
    EXPECT_FALSE(page.isModified());
    EXPECT_EQ(tableOnDisk(), (Table{{"ASHEETL", "b:A"},
                                    {"ASHEETL1", "b:A1"},
                                    {"ASHEETP1", "b:FIRST"},
                                    {"A4SHEETP", "b:OTHER"},
                                    {"2x3SHEET", "b:C"},
                                    {"2x3SHEET1", "b:C1"},
                                    {"7X8SHEET", "no size"}}));
}

TEST_F(Borders, ChangesNothingWithoutAChoice) {
    CBordersDialog& page = openWith("[Borders]\nASHEETL=b:\xFF\n");
    whenDialog([](QDialog& chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); });
    click(1, 3);
    click(1, 1);
    for (const Qt::Key swallowed : {Qt::Key_X, Qt::Key_Space, Qt::Key_F2, Qt::Key_F4, Qt::Key_PageDown}) {
        key(1, 3, swallowed);
        EXPECT_FALSE(grid().isEditing());
        EXPECT_EQ(grid().currentRow(), 1);
    }
    const struct {
        Qt::Key key;
        int row, column;
    } arrows[] = {{Qt::Key_Down, 3, 3}, {Qt::Key_Up, 1, 3}, {Qt::Key_Left, 2, 2}, {Qt::Key_Right, 2, 3}};
    for (const auto& arrow : arrows) {
        key(2, arrow.key == Qt::Key_Right ? 2 : 3, arrow.key);
        EXPECT_EQ(grid().currentRow(), arrow.row);
        EXPECT_EQ(grid().currentColumn(), arrow.column);
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&grid(), &escape);
    EXPECT_FALSE(escape.isAccepted()) << "it is the dialog's";
    key(grid().rowCount(), 3, Qt::Key_Tab);
    EXPECT_FALSE(grid().hasFocus());
    EXPECT_FALSE(page.isModified());
    const std::string before = readFile(directory() / "borders.ini");
    EXPECT_TRUE(page.onLeave());
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(readFile(directory() / "borders.ini"), before);
    // Bytes that no widget can show stay in the rows that are stored along.
    chooseNext("FIRST");
    click(2, 3);
    page.onOk();
    EXPECT_EQ(tableOnDisk().at("ASHEETL"), "b:\xFF");
}

TEST_F(Borders, AnEmptiedCellLeavesTheSymbolInTheFile) {
    CBordersDialog& page = openWith("[Borders]\nASHEETL=b:A\nASHEETL1=b:A1\n");
    key(1, 2, Qt::Key_Delete);
    EXPECT_EQ(row(1), (Texts{"A Landscape", "", "b:A"}));
    QContextMenuEvent right(QContextMenuEvent::Mouse, testsupport::centreOf(grid(), 1, 3),
                            grid().viewport()->mapToGlobal(testsupport::centreOf(grid(), 1, 3)));
    QApplication::sendEvent(grid().viewport(), &right);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text().toStdString(), "Delete");
    EXPECT_EQ(grid().currentColumn(), 3);
    menu->actions().front()->trigger();
    menu->close();
    EXPECT_EQ(row(1), (Texts{"A Landscape", "", ""}));
    EXPECT_TRUE(page.isModified());
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(tableOnDisk(), (Table{{"ASHEETL", "b:A"}, {"ASHEETL1", "b:A1"}}));
    page.onEnter();
    EXPECT_EQ(row(1), (Texts{"A Landscape", "b:A1", "b:A"})) << "as it stands in the file";
    QContextMenuEvent onSize(QContextMenuEvent::Mouse, testsupport::centreOf(grid(), 1, 1),
                             grid().viewport()->mapToGlobal(testsupport::centreOf(grid(), 1, 1)));
    QApplication::sendEvent(grid().viewport(), &onSize);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Borders, NamesACustomSizeWithTheDecimalsOfTheUnit) {
    struct {
        const char *unit, *width, *height, *key;
    } const rows[] = {
        {"in", "34", "22.126", "34.00x22.13SHEET"}, {"mm", "100", " 50 ", "100.00x50.00SHEET"},
        {"cm", "1e1", "2", "10.000x2.000SHEET"},    {"th", "999.6", "787401", "1000x787401SHEET"},
        {"in", "34,5", "22", "34.50x22.00SHEET"},
    };
    ASSERT_TRUE(appConfig_.load());
    const GermanNumbers german;
    for (const auto& sample : rows) {
        if (std::string(sample.width).find(',') != std::string::npos && !german.available())
            continue;
        Orv::setConfiguredUnit(appConfig_, Orv::Metrics::FindUnitByAbbreviation(sample.unit));
        CBordersDialog& page = openWith("");
        addCustom(sample.width, sample.height);
        const std::string key = sample.key;
        ASSERT_EQ(grid().rowCount(), kStandardSizes + 1) << key;
        EXPECT_EQ(row(kStandardSizes + 1), (Texts{key, key + "1", key}));
        EXPECT_TRUE(mayDelete());
        page.onApply();
        EXPECT_EQ(tableOnDisk(), (Table{{key, key}, {key + "1", key + "1"}}));

        grid().setCurrentCell(1, 1);
        EXPECT_FALSE(mayDelete());
        addCustom(sample.width, sample.height);
        EXPECT_EQ(grid().currentRow(), kStandardSizes + 1) << "the size that is there";
        EXPECT_FALSE(page.isModified());
    }
}

TEST_F(Borders, RefusesASizeThatIsNone) {
    CBordersDialog& page = openWith("");
    for (const char* wrong : {"", "0", "-5", "0.001", "abc", "12abc", "nan", "inf", "1e30", "787.41"}) {
        Texts boxes;
        addCustom(wrong, "5", &boxes);
        addCustom("5", wrong, &boxes);
        EXPECT_EQ(boxes, (Texts{"Width should be a number between 0.01 and 787.40",
                                "Height should be a number between 0.01 and 787.40"}))
            << wrong;
    }
    EXPECT_EQ(grid().rowCount(), kStandardSizes);
    EXPECT_FALSE(page.isModified());
}

TEST_F(Borders, CellsOfOneKeyShowAndChangeTogether) {
    CBordersDialog& page = openWith("[Borders]\n2x3SHEET=b:C\n2x3SHEET1=b:C1\n");
    chooseNext("FIRST");
    click(23, 2);
    EXPECT_EQ(row(24), (Texts{"2x3SHEET1", "", "b:FIRST"}));
    chooseNext("OTHER");
    click(24, 3);
    EXPECT_EQ(row(23), (Texts{"2x3SHEET", "b:OTHER", "b:C"}));
    page.onApply();
    EXPECT_EQ(tableOnDisk(), (Table{{"2x3SHEET", "b:C"}, {"2x3SHEET1", "b:OTHER"}}));
}

TEST_F(Borders, DeletesACustomSizeAndNoOther) {
    const std::pair<std::vector<int>, Table> rows[] = {
        {{1, kStandardSizes}, {{"2x3SHEET", "b:C"}, {"2x3SHEET1", "b:C1"}, {"4x5SHEET", "b:D"}}},
        {{23}, {{"2x3SHEET1", "b:C1"}, {"4x5SHEET", "b:D"}}},
        {{24}, {{"2x3SHEET", "b:C"}, {"4x5SHEET", "b:D"}}},
        {{23, 23}, {{"4x5SHEET", "b:D"}}},
        {{24, 23, 23}, {}},
    };
    for (const auto& [deleted, left] : rows) {
        CBordersDialog& page = openWith("[Borders]\n2x3SHEET=b:C\n2x3SHEET1=b:C1\n4x5SHEET=b:D\n");
        for (const int row : deleted)
            deleteCustom(row);
        EXPECT_EQ(mayDelete(), grid().currentRow() > kStandardSizes);
        page.onApply();
        EXPECT_EQ(tableOnDisk(), left);
        page.onEnter();
        EXPECT_EQ(grid().rowCount(), kStandardSizes + static_cast<int>(left.size()));
    }
}

TEST_F(Borders, LeavingAsksAndStoresOrKeepsTheEditsOnThePage) {
    for (const bool keep : {true, false}) {
        addSymbol("A", "TITLE=\n");
        CBordersDialog& page = openWith("[Borders]\nASHEETL=b:A\n4x5SHEET=b:D\n[Properties]\nTITLE=old\n");
        chooseNext("OTHER");
        click(1, 3);
        deleteCustom(23);
        whenDialog([](QDialog& dialog) {
            attributes(dialog).setCurrentCell(1, 2);
            QTest::keyClicks(&attributes(dialog), "n");
            press(dialog, "OK");
        });
        press(window_, "Properties");
        const SeenBox question = boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, keep ? "Yes" : "No");
        EXPECT_EQ(question.title, "Borders");
        EXPECT_EQ(question.text, "Do you want to save the changes you've made in this page?");
        page.onEnter();
        EXPECT_EQ(page.isModified(), !keep);
        EXPECT_EQ(row(1), (Texts{"A Landscape", "", "b:OTHER"}));
        EXPECT_EQ(grid().rowCount(), kStandardSizes);
        const Table edited{{"ASHEETL", "b:OTHER"}};
        const Table before{{"ASHEETL", "b:A"}, {"4x5SHEET", "b:D"}};
        EXPECT_EQ(tableOnDisk(), keep ? edited : before);
        EXPECT_EQ(propertiesOnDisk(), (Texts{keep ? "TITLE=n" : "TITLE=old"}));
        EXPECT_EQ(held().GetTable(), keep ? edited : before);
        EXPECT_EQ(held().GetProperties().front().second, keep ? "n" : "old");
        EXPECT_TRUE(page.onOk());
        EXPECT_EQ(tableOnDisk(), edited);
        EXPECT_EQ(propertiesOnDisk(), Texts{"TITLE=n"});
    }
}

TEST_F(Borders, OffersWhatTheSymbolsOfTheTableSayOfTheirProperties) {
    addSymbol("A", "TITLE=one\nREFDES=X1\nDATE=@date\n");
    addSymbol("B", "TITLE=two\nAUTHOR=\n");
    addSymbol("C", "TITLE=one\n");
    addSymbol("UNUSED", "TITLE=three\n");
    CBordersDialog& page = openWith("[Borders]\nASHEETL=b:A\nBSHEETL1=b:B\n2x3SHEET=C\n4x5SHEET=b:GONE\n"
                                    "[Properties]\nTITLE=own\nNOTE=\xFF\nAUTHOR=me\n"
                                    "[AvailableProperties]\nName#0=TITLE\nName#1=DATE\nName#2=REVISION\n");
    whenDialog([](QDialog& dialog) {
        auto& grid = attributes(dialog);
        const auto choices = [&](int row, int column) {
            return grid.cellStyle(row, column).choices.join(QLatin1Char('|')).toStdString();
        };
        EXPECT_TRUE(controlByCaption(
            dialog, "Use this dialog to provide values for existing border properties.  Add  other available "
                    "properties from drop-down list in the last row.  The values assigned here will later be "
                    "applied to properties on the default border symbol being used."));
        EXPECT_EQ(choices(1, 2), "<Empty>|one|two|own");
        EXPECT_EQ(choices(2, 2), "");
        EXPECT_EQ(choices(3, 2), "<Empty>|me");
        EXPECT_EQ(choices(4, 1), "DATE|REVISION");
        press(dialog, "OK");
    });
    press(window_, "Properties");
    EXPECT_FALSE(page.isModified()) << "nothing was changed";

    struct : Orv::IPropertyFilter {
        bool Counts(const std::string& name) override { return name != "AUTHOR"; }
    } filter;
    project().propertyFilter = &filter;
    whenDialog([](QDialog& dialog) {
        auto& grid = attributes(dialog);
        EXPECT_TRUE(grid.cellStyle(3, 2).choices.empty());
        EXPECT_FALSE(grid.cellStyle(1, 2).choices.empty());
        grid.setCurrentCell(1, 2);
        QTest::keyClicks(&grid, "unwanted");
        press(dialog, "Cancel");
    });
    press(window_, "Properties");
    EXPECT_FALSE(page.isModified());

    whenDialog([](QDialog& dialog) {
        auto& grid = attributes(dialog);
        grid.setCurrentCell(3, 2);
        press(dialog, "Delete");
        grid.setFocus();
        grid.setCurrentCell(3, 1);
        QTest::keyClick(&grid, Qt::Key_R);
        QTest::keyClick(grid.window()->focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(&grid, "D");
        press(dialog, "OK");
    });
    press(window_, "Properties");
    page.onApply();
    // What was taken out of the list keeps its value.
    EXPECT_EQ(propertiesOnDisk(), (Texts{"TITLE=own", "NOTE=\xFF", "AUTHOR=me", "REVISION=D"}));
}

TEST_F(Borders, ReadingManySlowSymbolsCanBeStopped) {
    struct SlowReader : Orv::ISymbolReader {
        std::vector<std::pair<std::string, std::string>> GetProperties(const std::string&,
                                                                       const std::string&) override {
            ++asked;
            QThread::msleep(60); // as a network directory may be
            return {};
        }
        int asked = 0;
    } reader;
    openWith("[Borders]\n");
    for (int row = 1; row <= kStandardSizes; ++row)
        held().GetTable()[std::to_string(row) + "x1SHEET"] = "b:" + std::to_string(row);
    page_->onEnter();
    project().symbolReader = &reader;
    whenModal([](QWidget& box) { press(box, "Cancel"); });
    press(window_, "Properties");
    EXPECT_LT(reader.asked, kStandardSizes);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Borders, FollowsTheFileThatAnotherPageGaveTheProject) {
    CBordersDialog& page = openWith("[Borders]\nASHEETL=b:A\n");
    writeFile(directory() / "other.ini", "[Borders]\nASHEETL=b:B\n");
    project().projectFile->SetValue("DesignInfo", "BorderSymbols", "other.ini");
    held().Reload(project().projectFile->GetBorderSymbolsPath(1));
    page.onOk();
    EXPECT_EQ(readFile(directory() / "other.ini"), "[Borders]\nASHEETL=b:B\n");
    page.onEnter();
    EXPECT_EQ(row(1), (Texts{"A Landscape", "", "b:B"}));
}

TEST_F(Borders, DoesWithoutWhatTheHostDoesNotGive) {
    openWith("[Borders]\nASHEETL=b:A\n[Properties]\nTITLE=own\n");
    project().symbolReader = nullptr;
    project().propertyFilter = nullptr;
    project().centralLibraryState = nullptr;
    whenDialog([](QDialog& dialog) {
        EXPECT_EQ(attributes(dialog).attributes(), (ovsettings::Attributes{{"TITLE", "own"}}));
        press(dialog, "Cancel");
    });
    press(window_, "Properties");
    whenDialog([](QDialog& chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); });
    click(1, 2);

    struct Other : Orv::IProjectFileConsumer {
        void Reload(const std::string&) override {}
    } other;
    for (Orv::IProjectFileConsumer* symbols :
         {project().borderSymbols, static_cast<Orv::IProjectFileConsumer*>(&other), {}}) {
        if (symbols == project().borderSymbols) // without a file instead
            project().projectFile->SetValue("DesignInfo", "BorderSymbols", "");
        project().borderSymbols = symbols;
        auto& page = openPage<CBordersDialog>("Borders");
        EXPECT_FALSE(grid().isEnabled());
        for (const char* button : {"Properties", "Add Custom", "Delete Custom"})
            EXPECT_FALSE(control<QPushButton>(button).isEnabled());
        EXPECT_TRUE(page.onApply() && page.onLeave() && page.onOk());
    }
}

} // namespace
