#include "dialog/pages/components/specialcomponentsdialog.h"

#include "orv/projectconfiguration.h"
#include "orv/specialcomponents.h"
#include "suite/specialcomponentsfile.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QAbstractItemView>

using ovsettings::CSpecialComponentsDialog;

namespace {

using Names = std::vector<std::string>;

enum Index { kPortIn = 0, kOnSheet = 7, kOffSheet = 8, kPower = 9, kGround = 10, kBusNet = 11, kBusBus = 12 };

class SpecialComponents : public ProjectPages {
protected:
    std::string path(const char* name = "special.pin") const { return (directory() / name).string(); }

    /// Opens the page over a file with three grounds and one power symbol, and a central library.
    CSpecialComponentsDialog& open(const std::string& file = "special.pin") {
        testsupport::writeFile(path(), "; ours\n[Ground]\nSymbol#0=s:GND\nSymbol#1=s:AGND\nSymbol#2=s:PGND\n"
                                       "[Power]\nSymbol#0=s:V5\n[Foreign]\nKey=kept\n"
                                       "[RipperBusBus]\nSymbol#0=s:RIP\n");
        testsupport::writeFile(path("parts.lmc"), "[CentralLibrary]\n[Partitions.Symbols]\nlib=symbols\n"
                                                  "[SpecialSymbols.Port]\nSymbol#0=lib:PORT\n"
                                                  "[SpecialSymbols.OnSheet]\nSymbol#0=lib:ON\n"
                                                  "[SpecialSymbols.OffSheet]\nSymbol#0=lib:OFF\n"
                                                  "[SpecialSymbols.Power]\nSymbol#0=lib:VCC\n"
                                                  "[SpecialSymbols.Ground]\nSymbol#0=lib:EARTH\n"
                                                  "[SpecialSymbols.RipperBusNet]\nSymbol#0=lib:BUSNET\n"
                                                  "[SpecialSymbols.RipperBusBus]\nSymbol#0=lib:BUSBUS\n");
        openProject("[DesignInfo]\nCentralLibrary=" + path("parts.lmc") +
                    "\nPinComponents=" + (file.empty() ? "" : path(file.c_str())) + "\n");
        auto& page = openPage<CSpecialComponentsDialog>("Special Components");
        QApplication::setActiveWindow(&window_);
        return page;
    }

    void show(const char* category) {
        auto& categories = control<QComboBox>("Category");
        categories.setCurrentIndex(categories.findText(QString::fromLatin1(category)));
    }
    QListWidget& list() { return control<QListWidget>("Symbols"); }
    Names rows() { return testsupport::textsOf(list()); }
    void key(int row, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        list().setCurrentRow(row);
        list().setFocus();
        QTest::keyClick(&list(), key, modifiers);
    }
    /// Begins to edit a row in place, with a text over the one there is.
    void beginEdit(int row, const char* text) {
        key(row, Qt::Key_F2);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
    /// Begins a new row and chooses for it what that suggests which is typed.
    void addRow(const char* typed) {
        testsupport::whenDialog([&](QDialog& dialog) {
            QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(typed));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            if (dialog.isVisible())
                dialog.reject();
        });
        QTest::mouseClick(&control<QToolButton>("New"), Qt::LeftButton);
        QApplication::setActiveWindow(&window_);
    }
    Names inFile(int category, const char* name = "special.pin") const {
        NProjectTools::CSpecialComponentsFile file;
        file.Reload(path(name));
        return file.GetCategory(category);
    }
    Orv::ISpecialComponents& components() {
        return dynamic_cast<Orv::ISpecialComponents&>(*project().pinComponents);
    }
};

} // namespace

TEST_F(SpecialComponents, OffersForEachCategoryWhatTheLibraryHasForIt) {
    CSpecialComponentsDialog& page = open();
    Names titles;
    for (const char* port : {"IN", "OUT", "BI", "TRI", "ANALOG", "OCL", "OEM"})
        titles.push_back(std::string("Port ") + port);
    for (const char* other : {"On Sheet", "Off Sheet", "Power", "Ground", "Ripper Bus-Net", "Ripper Bus-Bus"})
        titles.push_back(std::string(other) + " Symbol");
    const char* const behindThePorts[] = {"lib:ON",    "lib:OFF",    "lib:VCC",
                                          "lib:EARTH", "lib:BUSNET", "lib:BUSBUS"};
    for (int category = kPortIn; category <= kBusBus; ++category) {
        const std::string expected = category < kOnSheet ? "lib:PORT" : behindThePorts[category - kOnSheet];
        Names offered;
        testsupport::whenDialog([&](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle().toStdString(), titles.at(static_cast<std::size_t>(category)));
            offered = testsupport::textsOf(*testsupport::find<QAbstractItemView>(dialog, "Symbols:"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        EXPECT_EQ(page.chooseSymbol(category), expected);
        EXPECT_EQ(offered, Names{expected});
    }
    for (const int none : {-1, 13})
        EXPECT_EQ(page.chooseSymbol(none), "") << none;
}

TEST_F(SpecialComponents, EachCategoryKeepsItsRowsUntilTheyAreStoredTogether) {
    CSpecialComponentsDialog& page = open();
    EXPECT_EQ(control<QComboBox>("Category").count(), 11);
    show("Ground");
    addRow("earth");
    EXPECT_EQ(rows(), (Names{"lib:EARTH", "s:GND", "s:AGND", "s:PGND"})) << "at the top";
    addRow("no such symbol");
    EXPECT_EQ(list().count(), 4) << "cancelled";
    show("OffSheet");
    EXPECT_EQ(rows(), Names{});
    addRow("off");
    show("Power");
    beginEdit(0, "own:V12");
    show("Ground");
    EXPECT_EQ(list().count(), 4);
    key(3, Qt::Key_Up, Qt::AltModifier);
    key(1, Qt::Key_Delete);
    EXPECT_EQ(inFile(kOffSheet), Names{}) << "nothing is stored yet";
    beginEdit(2, "s:LAST");
    EXPECT_TRUE(page.isModified());
    EXPECT_TRUE(page.onOk());
    EXPECT_FALSE(page.isModified());
    EXPECT_EQ(inFile(kGround), (Names{"lib:EARTH", "s:PGND", "s:LAST"}));
    EXPECT_EQ(inFile(kOffSheet), Names{"lib:OFF"});
    EXPECT_EQ(inFile(kPower), Names{"own:V12"}) << "the edit was open when another category was selected";
    EXPECT_EQ(inFile(kBusBus), Names{"s:RIP"});
    EXPECT_NE(testsupport::readFile(path()).find("; ours"), std::string::npos);
    EXPECT_TRUE(testsupport::contains(testsupport::readFile(path()), "Key=kept"));
}

TEST_F(SpecialComponents, AnEditInPlaceOffersTheSymbolsOfTheFileAndTakesAnyText) {
    open();
    show("Ground");
    key(1, Qt::Key_F2);
    auto* combo = dynamic_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(testsupport::textsOf(*combo), (Names{"s:V5", "s:GND", "s:AGND", "s:PGND", "s:RIP"}));
    EXPECT_EQ(combo->currentText().toStdString(), "s:AGND");
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(rows(), (Names{"s:GND", "s:PGND", "s:PGND"}));
    beginEdit(0, "s:A");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(rows().front(), "s:A") << "not the symbol that begins so";

    // The page may go in the midst of an edit.
    beginEdit(2, "s:B");
    closePage();
}

TEST_F(SpecialComponents, LeavingAsksOnlyForAChangeWithinTheShorterList) {
    const Names before{"s:GND", "s:AGND", "s:PGND"};
    for (const bool keep : {true, false}) {
        CSpecialComponentsDialog& page = open();
        EXPECT_TRUE(page.onLeave()) << "nothing has changed";
        show("Ground");
        beginEdit(1, "s:CHASSIS");
        show("Power");
        EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, keep ? "Yes" : "No"), kSaveQuestion);
        show("Ground");
        EXPECT_EQ(rows(), keep ? Names({"s:GND", "s:CHASSIS", "s:PGND"}) : before);
        EXPECT_EQ(inFile(kGround), rows());
    }

    CSpecialComponentsDialog& page = open();
    show("Ground");
    key(2, Qt::Key_Delete);
    show("OffSheet");
    addRow("off");
    EXPECT_FALSE(page.isModified());
    EXPECT_TRUE(page.onLeave()) << "without a question";
    page.onEnter();
    EXPECT_EQ(rows(), Names{"lib:OFF"}) << "yet it is not lost";
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(inFile(kGround), (Names{"s:GND", "s:AGND"}));
    EXPECT_EQ(inFile(kOffSheet), Names{"lib:OFF"});
}

TEST_F(SpecialComponents, WithoutAFileOrItsObjectThereIsNothingToEdit) {
    struct AnotherClass : Orv::IProjectFileConsumer {
        void Reload(const std::string&) override {}
    } anotherClass;
    open();
    Orv::IProjectFileConsumer* const held = project().pinComponents;
    const std::string text = testsupport::readFile(path());
    for (Orv::IProjectFileConsumer* object :
         std::array<Orv::IProjectFileConsumer*, 3>{nullptr, &anotherClass, held}) {
        project().pinComponents = object;
        if (object == held)
            project().projectFile->SetValue("DesignInfo", "PinComponents", "");
        auto& page = openPage<CSpecialComponentsDialog>("Special Components");
        for (const char* caption : {"Category", "Symbols", "New"})
            EXPECT_FALSE(control<QWidget>(caption).isEnabled()) << caption;
        EXPECT_TRUE(page.onLeave() && page.onApply());
        EXPECT_EQ(testsupport::readFile(path()), text);
    }
    project().projectFile->SetValue("DesignInfo", "PinComponents", path());
    page_->onEnter();
    EXPECT_TRUE(control<QListWidget>("Symbols").isEnabled());
}

TEST_F(SpecialComponents, TheListsOfOneFileNeverGetIntoAnotherButWhatWasChangedDoes) {
    testsupport::writeFile(path("other.pin"), "[Ground]\nSymbol#0=other:GND\nSymbol#1=s:AGND\n");
    CSpecialComponentsDialog& page = open();
    const auto name = [&](const char* file) {
        project().projectFile->SetValue("DesignInfo", "PinComponents", path(file));
        project().pinComponents->Reload(path(file));
    };
    show("Ground");
    addRow("earth");
    key(2, Qt::Key_Delete);
    name("other.pin");
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(inFile(kGround, "other.pin"), (Names{"lib:EARTH", "other:GND"}));
    EXPECT_EQ(inFile(kGround), (Names{"s:GND", "s:AGND", "s:PGND"}));
    EXPECT_EQ(rows(), (Names{"lib:EARTH", "other:GND"}));

    // Without a change the page shows the new file from its first category on.
    name("special.pin");
    page.onEnter();
    EXPECT_EQ(control<QComboBox>("Category").currentIndex(), 0);
    show("Ground");
    EXPECT_EQ(rows(), (Names{"s:GND", "s:AGND", "s:PGND"}));

    // Without an object that was reloaded, the lists are the ones that the new file is to get.
    addRow("earth");
    project().projectFile->SetValue("DesignInfo", "PinComponents", path("new.pin"));
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(inFile(kGround, "new.pin"), (Names{"lib:EARTH", "s:GND", "s:AGND", "s:PGND"}));
}

TEST_F(SpecialComponents, ASymbolThatIsNoUtf8IsStoredAsItWas) {
    CSpecialComponentsDialog& page = open();
    components().GetCategory(kPower) = {"s:\xFF", "s:B"};
    page.reset();
    show("Power");
    key(1, Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(inFile(kPower), (Names{"s:B", "s:\xFF"}));
}
