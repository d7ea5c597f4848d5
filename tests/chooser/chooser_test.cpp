#include "suite/cldialog.h"
#include "tests/support/widgets.h"

#include <QtWidgets/QTableView>

#include <algorithm>

namespace {

using namespace testsupport;
using Names = std::vector<std::string>;

class Feed : public cldialog::IDialogFeed {
public:
    explicit Feed(std::string library) : library_(std::move(library)) {}

    void GetSymbols(cldialog::IDataSource& source, Names& symbols) override {
        symbols.push_back("OWN");
        source.GetGroundSymbols(symbols);
    }
    std::string GetCentralLibraryPath() override { return library_; }

private:
    std::string library_;
};

/// A library of three partitions in a directory of the test's own, the last without a directory.
class SymbolChooser : public testing::Test {
protected:
    SymbolChooser() {
        writeFile(index(),
                  "[CentralLibrary]\nName=Parts\n"
                  "[Partitions.Symbols]\nspecial=symbols/special\nlogic=symbols/logic\nlost=symbols/lost\n"
                  "[SpecialSymbols.Ground]\n"
                  "Symbol#0=special:AGND\nSymbol#1=special:GND\nSymbol#2=special:GNDÄ\n"
                  "Symbol#3=special:EARTH\n"
                  "[SpecialSymbols.Port]\nSymbol#0=special:IN\n");
        for (const char* name : {"AGND", "EARTH", "GNDÄ", "IN"})
            writeFile(symbolFile("special", name), "[Symbol]\n");
        writeFile(symbolFile("special", "GND"),
                  "[Symbol]\nName=GND\nDescription=Ground <main>\n[Pins]\n1=A GROUND\n"
                  "[Properties]\nNET=gnd\nVALUE=@part_number\n");
        for (const char* name : {"7400", "7402"})
            writeFile(symbolFile("logic", name), "[Symbol]\n");
    }

    std::filesystem::path index() const { return directory / "parts.lmc"; }
    std::filesystem::path symbolFile(const std::string& partition, const std::string& name) const {
        return directory / ("symbols/" + partition + "/" + name + ".sym");
    }

    /// Runs the script in the chooser and returns what was chosen.
    std::string choose(const std::function<void(QDialog&)>& script) {
        return choose(index().string(), script);
    }
    static std::string choose(const std::string& library, const std::function<void(QDialog&)>& script) {
        Feed feed(library);
        whenDialog(script);
        return cldialog::showCentralLibraryDialog(feed, "Ground Symbol");
    }

    static QTableView& list(QDialog& dialog) { return *find<QTableView>(dialog, "Symbols:"); }
    static bool okIsEnabled(QDialog& dialog) { return controlByCaption(dialog, "OK")->isEnabled(); }

    static Names shown(QDialog& dialog) { return textsOf(list(dialog)); }
    static std::string current(QDialog& dialog) {
        return list(dialog).currentIndex().data().toString().toStdString();
    }
    static std::string problem(QDialog& dialog) {
        for (const auto* label : dialog.findChildren<QLabel*>()) {
            if (label->accessibleName() == QLatin1String("Problem") && label->isVisible())
                return label->text().toStdString();
        }
        return {};
    }
    /// With the keys of a user who tabs to the drop-down.
    static void switchTo(QDialog& dialog, const std::string& category) {
        auto* categories = find<QComboBox>(dialog, "Category:");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), categories);
        const int wanted = categories->findText(QString::fromStdString(category));
        ASSERT_GE(wanted, 0) << category;
        while (categories->currentIndex() < wanted)
            QTest::keyClick(categories, Qt::Key_Down);
        QTest::keyClick(categories, Qt::Key_Backtab);
        QApplication::processEvents();
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void type(const std::string& text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text));
    }

    TemporaryDirectory directory;
};

TEST_F(SymbolChooser, TypingNarrowsTheSuggestionsAndEnterChoosesTheNearest) {
    struct Row {
        QString typed;
        Names shown;
        std::string chosen;
    };
    const Row rows[] = {
        {"gnd", {"special:AGND", "special:GND", "special:GNDÄ"}, "special:GND"},
        {"nd SPEC", {"special:AGND", "special:GND", "special:GNDÄ"}, "special:AGND"},
        {"special:e", {"special:EARTH"}, "special:EARTH"},
        {QStringLiteral("ndä"), {"special:GNDÄ"}, "special:GNDÄ"},
        {"own", {"OWN"}, "OWN"},
        {"vcc", {}, ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(choose([&](QDialog& dialog) {
                      EXPECT_EQ(dialog.windowTitle().toStdString(), "Ground Symbol");
                      EXPECT_FALSE(okIsEnabled(dialog));
                      EXPECT_EQ(shown(dialog).size(), 5u);
                      auto* filter = qobject_cast<QLineEdit*>(QApplication::focusWidget());
                      ASSERT_NE(filter, nullptr);
                      for (const QChar letter : row.typed)
                          filter->insert(letter);
                      EXPECT_EQ(shown(dialog), row.shown);
                      EXPECT_EQ(okIsEnabled(dialog), !row.chosen.empty());
                      press(Qt::Key_Return);
                      EXPECT_EQ(dialog.isVisible(), row.chosen.empty());
                      if (row.chosen.empty())
                          dialog.reject();
                  }),
                  row.chosen)
            << row.typed.toStdString();
    }
}

TEST_F(SymbolChooser, ErasingShowsMoreAgainAndSelectsNothing) {
    choose([](QDialog& dialog) {
        type("gndx");
        EXPECT_TRUE(shown(dialog).empty());
        press(Qt::Key_Backspace);
        EXPECT_EQ(current(dialog), "special:GND");
        for (int i = 0; i < 3; ++i)
            press(Qt::Key_Backspace);
        EXPECT_EQ(shown(dialog).size(), 5u);
        EXPECT_FALSE(okIsEnabled(dialog));
        dialog.reject();
    });
}

TEST_F(SymbolChooser, ArrowKeysMoveInTheListFromTheFilterAndLettersFilterFromTheList) {
    EXPECT_EQ(choose([](QDialog& dialog) {
                  press(Qt::Key_Down);
                  EXPECT_EQ(current(dialog), "OWN");
                  press(Qt::Key_PageDown);
                  EXPECT_EQ(current(dialog), "special:EARTH");
                  list(dialog).setFocus();
                  press(Qt::Key_Home);
                  EXPECT_EQ(current(dialog), "OWN");
                  type("gnd");
                  EXPECT_EQ(find<QLineEdit>(dialog, "Filter:")->text().toStdString(), "gnd");
                  EXPECT_EQ(current(dialog), "special:GND");
                  press(Qt::Key_Up);
                  press(Qt::Key_Enter);
              }),
              "special:AGND");
}

TEST_F(SymbolChooser, ADoubleClickChooses) {
    EXPECT_EQ(choose([](QDialog& dialog) {
                  QTableView& view = list(dialog);
                  const QPoint row = view.visualRect(view.model()->index(4, 0)).center();
                  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row);
                  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row);
              }),
              "special:EARTH");
}

TEST_F(SymbolChooser, ACategoryShowsTheSymbolsOfItsPartitionAndKeepsTheFilter) {
    EXPECT_EQ(choose([](QDialog& dialog) {
                  switchTo(dialog, "logic");
                  EXPECT_EQ(shown(dialog), (Names{"logic:7400", "logic:7402"}));
                  EXPECT_FALSE(okIsEnabled(dialog));
                  press(Qt::Key_Escape);
              }),
              "");
    EXPECT_EQ(choose([](QDialog& dialog) {
                  type("0");
                  switchTo(dialog, "All symbols");
                  EXPECT_EQ(shown(dialog), (Names{"logic:7400", "logic:7402"}));
                  type("2");
                  press(Qt::Key_Return);
              }),
              "logic:7402");
}

TEST_F(SymbolChooser, ThePreviewReadsTheSelectedSymbolAndMissesOneWithoutAFile) {
    std::filesystem::remove(symbolFile("special", "AGND"));
    EXPECT_EQ(choose([](QDialog& dialog) {
                  const auto text = [&dialog](const char* caption) {
                      return find<QLabel>(dialog, caption)->text().toStdString();
                  };
                  type("gnd");
                  QApplication::processEvents();
                  EXPECT_EQ(text("Name:"), "GND");
                  EXPECT_EQ(text("Library:"), "special");
                  EXPECT_EQ(text("Description:"), "Ground <main>");
                  const auto* properties = find<QTreeWidget>(dialog, "Properties:");
                  ASSERT_EQ(properties->topLevelItemCount(), 2);
                  EXPECT_EQ(properties->topLevelItem(1)->text(0).toStdString(), "VALUE");
                  EXPECT_EQ(properties->topLevelItem(1)->text(1).toStdString(), "@part_number");
                  press(Qt::Key_Up);
                  QApplication::processEvents();
                  EXPECT_EQ(text("Name:"), "AGND");
                  EXPECT_TRUE(contains(text("Description:"), "not in the library"));
                  EXPECT_EQ(properties->topLevelItemCount(), 0);
                  press(Qt::Key_Return);
              }),
              "special:AGND");
}

TEST_F(SymbolChooser, WhatTheLibrarySaysIsShownAsItStands) {
    const std::string symbol = "special:" + kActingText;
    writeFile(directory / (kActingText + ".lmc"),
              "[CentralLibrary]\n[Partitions.Symbols]\nspecial=symbols/special\n" + kActingText + "=lost\n" +
                  "[SpecialSymbols.Ground]\nSymbol#0=" + symbol + "\n");
    writeFile(symbolFile("special", kActingText), "[Symbol]\nDescription=" + kActingText +
                                                      "\n[Properties]\n" + kActingText + "=" + kActingText +
                                                      "\n");
    Names texts;
    EXPECT_EQ(choose((directory / (kActingText + ".lmc")).string(),
                     [&](QDialog& dialog) {
                         switchTo(dialog, "All symbols");
                         type("<b>");
                         QApplication::processEvents();
                         texts = textsWithoutEffect(dialog);
                         press(Qt::Key_Return);
                     }),
              symbol);
    // The item of the list, name and description with their tool tips, the value of the property.
    EXPECT_EQ(
        std::ranges::count_if(texts, [](const auto& text) { return text.find("<img") != std::string::npos; }),
        6);
}

TEST_F(SymbolChooser, WithoutALibraryItSaysSoAndOffersWhatTheFeedNames) {
    writeFile(directory / "binary.lmc", std::string("\0\x01\xFF", 3));
    struct Row {
        std::string library, said;
    };
    const Row rows[] = {
        {"", "The project has no central library."},
        {(directory / "none.lmc").string(), "none.lmc"},
        {(directory / "binary.lmc").string(), "binary.lmc"},
        {directory.path().string(), "not available"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(choose(row.library,
                         [&](QDialog& dialog) {
                             EXPECT_TRUE(contains(problem(dialog), row.said));
                             switchTo(dialog, "All symbols");
                             EXPECT_TRUE(shown(dialog).empty());
                             find<QComboBox>(dialog, "Category:")->setCurrentIndex(0);
                             type("own");
                             press(Qt::Key_Return);
                         }),
                  "OWN")
            << row.library;
    }
}

TEST_F(SymbolChooser, ALibraryThatVanishesLeavesTheSuggestions) {
    EXPECT_EQ(choose([this](QDialog& dialog) {
                  auto* categories = find<QComboBox>(dialog, "Category:");
                  categories->setCurrentIndex(categories->findText(QStringLiteral("logic")));
                  EXPECT_EQ(problem(dialog), "");
                  std::filesystem::remove_all(directory.path());
                  categories->setCurrentIndex(1);
                  EXPECT_EQ(shown(dialog), (Names{"logic:7400", "logic:7402"}));
                  EXPECT_TRUE(contains(problem(dialog), ": special, lost"));
                  categories->setCurrentIndex(0);
                  EXPECT_EQ(problem(dialog), "");
                  type("earth");
                  QApplication::processEvents();
                  press(Qt::Key_Return);
              }),
              "special:EARTH");
}

TEST_F(SymbolChooser, KeepsItsSize) {
    QSize size;
    choose([&size](QDialog& dialog) {
        dialog.resize(dialog.size() - QSize(40, 30));
        size = dialog.size();
        dialog.reject();
    });
    choose([&size](QDialog& dialog) {
        EXPECT_EQ(dialog.size(), size);
        dialog.reject();
    });
}

} // namespace
