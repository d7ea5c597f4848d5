#include "dialog/pages/project/projectdialog.h"

#include "ovsettings/showsettingsdialog.h"
#include "suite/projectfile.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>

#include <algorithm>

using ovsettings::CProjectDialog;

namespace {

constexpr char kTools[] = "[PCBSYSTEM beta]\ndisplay_name=Board\ncns=b.cns\ncfg=b.cfg\n"
                          "[PCBSYSTEM alpha]\ndisplay_name=Board\ncns=a.cns\ncfg=a.cfg\n"
                          "[PCBSYSTEM hidden]\ndisplay=false\ndisplay_name=Secret\ncns=h.cns\n"
                          "[PCBSYSTEM  two blanks]\ncns=t.cns\n"
                          "[PCBSYSTEM loud]\ndisplay=TRUE\n"
                          "[Other]\ndisplay_name=Other\n"
                          "[PCBSYSTEM last]\ndisplay_name=Last\n";
constexpr char kStandard[] = "%RSR_HOME%\\standard\\";

class NetlistProjectPage : public ProjectPages {
protected:
    NetlistProjectPage() { testsupport::writeFile(installation_.standard() / "pcbsystem.ini", kTools); }

    /// Opens the page over a project with these values.
    CProjectDialog& open(const std::string& tool = "", const std::string& designInfo = "") {
        openProject("[DesignInfo]\n" + designInfo);
        if (!tool.empty())
            project().projectFile->SetLayoutTool(tool);
        return openPage<CProjectDialog>("Netlist Project");
    }
    QComboBox& tools() { return control<QComboBox>("Layout Tool"); }
    QCheckBox& box(const std::string& caption) { return control<QCheckBox>(caption); }
    std::string inDirectory(const std::string& name) const { return (directory() / name).string(); }
};

/// A project that writes down what is stored in it.
struct RecordedProject : NProjectTools::CProjectFileUtilitiesLight {
    explicit RecordedProject(const std::string& path) : CProjectFileUtilitiesLight(path.c_str()) {}
    void SetServerName(const std::string& name) override {
        calls.push_back("server " + name);
        CProjectFile::SetServerName(name);
    }
    void SetLayoutTool(const std::string& name) override {
        calls.push_back("tool " + name);
        CProjectFile::SetLayoutTool(name);
    }
    void SetConstraintsFile(const std::string& name) override {
        calls.push_back("CnsFileName cleared" + name);
        CProjectFile::SetConstraintsFile(name);
    }
    void SetPcbConfigFile(const std::string& name) override {
        calls.push_back("PcbCfgFileName cleared" + name);
        CProjectFile::SetPcbConfigFile(name);
    }
    void SetValue(const std::string& section, const std::string& key, const std::string& value) override {
        calls.push_back(key);
        CProjectFile::SetValue(section, key, value);
    }
    std::vector<std::string> calls;
};

struct RecordedFile : Orv::IProjectFileConsumer {
    RecordedFile(RecordedProject& in, const char* as) : project(in), name(as) {}
    void Reload(const std::string& path) override { project.calls.push_back(name + ' ' + path); }
    RecordedProject& project;
    std::string name;
};

} // namespace

TEST_F(NetlistProjectPage, OffersTheVisibleToolsAndKnowsAll) {
    const struct {
        const char *key, *selected, *constraints, *configuration, *storedAs;
    } rows[] = {
        {"beta", "Board", "isis\\b.cns", "b.cfg", "alpha"},
        {"hidden", "", "isis\\h.cns", "", "hidden"},
        {" two blanks", "xxx", "isis\\t.cns", "", " two blanks"},
        {"last", "Last", "isis\\", "", "last"},
    };
    for (const auto& row : rows) {
        CProjectDialog& page = open(row.key);
        EXPECT_EQ(testsupport::textsOf(tools()), (std::vector<std::string>{"Board", "Board", "xxx", "Last"}));
        EXPECT_EQ(tools().currentText().toStdString(), row.selected) << row.key;
        EXPECT_EQ(shown("Constraints Definition"), std::string(kStandard) + row.constraints);
        EXPECT_EQ(shown("PCB Configuration"), std::string(kStandard) + row.configuration);
        EXPECT_FALSE(control<QLineEdit>("Constraints Definition").isEnabled());
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(onDisk()->GetLayoutTool(), row.storedAs) << "of two tools with one name, the lower key";
    }
}

TEST_F(NetlistProjectPage, KeepsAToolThatTheInstallationDoesNotDescribe) {
    for (const bool installed : {true, false}) {
        if (!installed)
            std::filesystem::remove(installation_.standard() / "pcbsystem.ini");
        CProjectDialog& page = open("elsewhere", "CnsFileName=own.cns\n");
        EXPECT_EQ(tools().count(), installed ? 4 : 0);
        EXPECT_EQ(tools().currentIndex(), -1);
        EXPECT_EQ(shown("PCB Configuration"), "");
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(onDisk()->GetLayoutTool(), "elsewhere");
        EXPECT_EQ(stored("CnsFileName"), "own.cns");
    }
}

TEST_F(NetlistProjectPage, CutsWhatTheProfileCallsHaveNoRoomFor) {
    std::string text = "[PCBSYSTEM a]\ndisplay_name=" + std::string(3000, 'n') + "\n";
    text += "[" + std::string(2000, 's') + "]\n[PCBSYSTEM far down beyond the buffer]\n[PCBSYSTEM b]\n";
    testsupport::writeFile(installation_.standard() / "pcbsystem.ini", text);
    open("a");
    ASSERT_EQ(tools().count(), 1);
    EXPECT_EQ(tools().itemText(0).size(), 2047);
}

TEST_F(NetlistProjectPage, AnotherToolBringsItsOwnFiles) {
    CProjectDialog& page = open("last", "CnsFileName=own.cns\nPcbCfgFileName=own.cfg\n");
    EXPECT_TRUE(box("Use Custom Constraints File").isChecked());
    EXPECT_EQ(shown("PCB Configuration"), "own.cfg");
    QTest::keyClick(&tools(), Qt::Key_End);
    EXPECT_EQ(shown("PCB Configuration"), "own.cfg") << "it is the tool already";

    QTest::keyClick(&tools(), Qt::Key_Home);
    EXPECT_EQ(shown("Constraints Definition"), std::string(kStandard) + "isis\\a.cns");
    EXPECT_EQ(shown("PCB Configuration"), std::string(kStandard) + "a.cfg");
    EXPECT_FALSE(box("Use Custom Constraints File").isChecked());
    EXPECT_FALSE(control<QLineEdit>("PCB Configuration").isEnabled());
    EXPECT_EQ(onDisk()->GetLayoutTool(), "last") << "not before the store";
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(onDisk()->GetLayoutTool(), "alpha");
    EXPECT_EQ(stored("CnsFileName") + stored("PcbCfgFileName"), "");
    tools().setCurrentText(QStringLiteral("Last"));
    EXPECT_EQ(shown("PCB Configuration"), kStandard) << "however it is selected";
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(onDisk()->GetLayoutTool(), "last");
}

TEST_F(NetlistProjectPage, AHiddenPageDoesNotTakeBackWhatAnotherOneStores) {
    installation_.writeCatalogue(installation_.category("A", "Netlist Project") +
                                 installation_.category("B", "Central Library"));
    ASSERT_TRUE(appConfig_.load());
    for (const std::string hidden : {"A", "B"}) {
        const std::string active = hidden == "A" ? "B" : "A";
        openProject("[DesignInfo]\nServerName=host\nBus_Contents=/old.ini\n");
        testsupport::whenDialog([&](QDialog& dialog) {
            testsupport::selectCategory(dialog, hidden);
            testsupport::selectCategory(dialog, active);
            const auto onPage = [&](const char* caption) {
                const auto& pages = dialog.findChildren<ovsettings::CPropDialogTemplate*>();
                const auto page = std::ranges::find_if(pages, [](auto* p) { return p->isVisible(); });
                return testsupport::controlByCaption(**page, caption);
            };
            QTest::keyClick(onPage("Use Remote Server Configuration Manager"), Qt::Key_Space);
            QTest::keyClick(onPage("Bus Contents"), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(onPage("Bus Contents"), "/new.ini");
            QTest::mouseClick(testsupport::controlByCaption(dialog, "OK"), Qt::LeftButton);
        });
        ovsettings::showSettingsDialog(appConfig_, project(), nullptr);
        EXPECT_EQ(onDisk()->GetServerName() + stored("Bus_Contents"), "/new.ini") << active;
    }
}

TEST_F(NetlistProjectPage, AClearedBoxClearsTheProjectButNotTheField) {
    CProjectDialog& page = open("last", "CnsFileName=own.cns\n");
    QTest::keyClick(&box("Use Custom Constraints File"), Qt::Key_Space);
    EXPECT_FALSE(control<QLineEdit>("Constraints Definition").isEnabled());
    QTest::keyClick(&box("Use Custom Configuration File"), Qt::Key_Space);
    type("PCB Configuration", "tÿped.cfg ");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(shown("Constraints Definition"), "own.cns");
    EXPECT_EQ(stored("CnsFileName"), "");
    EXPECT_EQ(stored("PcbCfgFileName"), "tÿped.cfg ");
}

TEST_F(NetlistProjectPage, WritesEverythingInItsOrder) {
    CProjectDialog& page = open();
    EXPECT_EQ(shown("Property Definitions"), std::string(kStandard) + "netlist.prp");
    RecordedProject recorded(projectPath().string());
    project().projectFile = &recorded;
    RecordedFile borders{recorded, "borders"}, components{recorded, "components"}, buses{recorded, "buses"};
    project().borderSymbols = &borders;
    project().pinComponents = &components;
    project().busContents = &buses;
    for (const char* caption : {"Special Components", "Border Symbols", "Bus Contents"})
        type(caption, inDirectory(std::string(caption) + ".ini"));
    QTest::keyClick(&box("Use Remote Server Configuration Manager"), Qt::Key_Space);
    type("Server Name", "host");
    QTest::keyClick(&tools(), Qt::Key_End);
    for (const bool custom : {true, false}) {
        for (const char* caption : {"Use Custom Constraints File", "Use Custom Configuration File"})
            QTest::keyClick(&box(caption), Qt::Key_Space);
        recorded.calls.clear();
        EXPECT_TRUE(page.onOk());
        std::vector<std::string> expected{"server host",
                                          "Bus_Contents",
                                          "buses " + inDirectory("Bus Contents.ini"),
                                          "PinComponents",
                                          "components " + inDirectory("Special Components.ini"),
                                          "BorderSymbols",
                                          "borders " + inDirectory("Border Symbols.ini"),
                                          "PropertyDefinitions",
                                          "tool last"};
        for (const char* file : {"CnsFileName", "PcbCfgFileName"})
            expected.push_back(custom ? file : std::string(file) + " cleared");
        EXPECT_EQ(recorded.calls, expected);
    }
    EXPECT_EQ(stored("PropertyDefinitions"), std::string(kStandard) + "netlist.prp") << "though not there";
}

TEST_F(NetlistProjectPage, IsModifiedFromTheFirstDifferenceUntilItIsStored) {
    // Of two tools with one name the project has the one that would not be stored: that is no difference yet.
    const std::string text = "ServerName=host\nPcbCfgFileName=own.cfg\n";
    for (const std::string key : {"Netlist Project", "Central Library"}) {
        const bool isProject = key == "Netlist Project";
        open("beta", text);
        auto& page = openPage(key);
        EXPECT_FALSE(page.isModified());
        const auto typed = [&](const char* caption, const std::string& value) {
            return [=, this] {
                type(caption, value);
            };
        };
        const auto pressed = [&](const char* caption) {
            return [=, this] {
                QTest::keyClick(&box(caption), Qt::Key_Space);
            };
        };
        using Change = std::function<void()>;
        std::vector<std::pair<Change, Change>> changes{
            {typed("Special Components", "/a.ini"), typed("Special Components", "")},
            {typed("Border Symbols", "/a.ini"), typed("Border Symbols", "")},
            {typed("Bus Contents", "/a.ini"), typed("Bus Contents", "")},
            {typed("Server Name", "h"), typed("Server Name", "host")},
            {pressed("Use Remote Server Configuration Manager"),
             pressed("Use Remote Server Configuration Manager")},
        };
        if (!isProject) {
            changes.emplace_back(typed("Central Library Path", "/a.lmc"), typed("Central Library Path", ""));
        } else {
            testsupport::writeFile(directory() / "own.prp", "x");
            changes.emplace_back(typed("Property Definitions", inDirectory("own.prp")),
                                 typed("Property Definitions", std::string(kStandard) + "netlist.prp"));
            changes.emplace_back(typed("PCB Configuration", "x.cfg"), typed("PCB Configuration", "own.cfg"));
            changes.emplace_back(pressed("Use Custom Constraints File"),
                                 pressed("Use Custom Constraints File"));
            changes.emplace_back([this] { tools().setCurrentIndex(3); },
                                 [=, this] {
                                     tools().setCurrentIndex(0);
                                     pressed("Use Custom Configuration File")();
                                     type("PCB Configuration", "own.cfg");
                                 });
        }
        for (std::size_t i = 0; i < changes.size(); ++i) {
            changes[i].first();
            EXPECT_TRUE(page.isModified()) << key << i;
            changes[i].second();
            EXPECT_FALSE(page.isModified()) << key << i;
            changes[i].first();
            EXPECT_TRUE(page.onApply());
            EXPECT_FALSE(page.isModified()) << key << i;
            EXPECT_TRUE(page.onLeave()) << "nothing is asked after a store";
            changes[i].second();
            EXPECT_TRUE(page.onApply());
        }
    }
}

TEST_F(NetlistProjectPage, WhatAnotherProgramStoresIsNoChangeOfTheUsers) {
    for (const char* key : {"Netlist Project", "Central Library"}) {
        openProject("[DesignInfo]\nBorderSymbols=/before.ini\nServerName=before\n");
        auto& page = openPage(key);
        const auto otherProgramStores = [&](const std::string& name) {
            onDisk()->SetValue("DesignInfo", "BorderSymbols", "/" + name + ".ini");
            onDisk()->SetServerName(name);
        };
        otherProgramStores("theirs");
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(shown("Border Symbols") + shown("Server Name"), "/theirs.initheirs");
        EXPECT_TRUE(page.onLeave()) << "without a question";

        // What the user declines to save is not written either, now or later.
        page.onEnter();
        type("Border Symbols", "/mine.ini");
        otherProgramStores("again");
        EXPECT_EQ(boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "No"), kSaveQuestion);
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("BorderSymbols") + onDisk()->GetServerName(), "/again.iniagain") << key;

        type("Border Symbols", "/mine.ini");
        otherProgramStores("more");
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored("BorderSymbols") + onDisk()->GetServerName(), "/mine.inimore") << key;
    }
}

TEST_F(NetlistProjectPage, TheToolAndItsFilesFollowAnotherProgramWhereTheUserHasNotChangedThem) {
    CProjectDialog& page = open("beta", "CnsFileName=own.cns\n");
    const auto otherProgramStores = [&](const std::string& tool, const std::string& file) {
        onDisk()->SetLayoutTool(tool);
        onDisk()->SetValue("DesignInfo", "CnsFileName", file);
    };
    const auto storedAll = [&] {
        return onDisk()->GetLayoutTool() + '|' + stored("CnsFileName") + '|' + stored("PcbCfgFileName");
    };
    otherProgramStores("last", "");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedAll(), "last||");
    EXPECT_EQ(shown("PCB Configuration"), kStandard) << "the tool's own";
    EXPECT_EQ(tools().currentText().toStdString(), "Last");

    QTest::keyClick(&box("Use Custom Configuration File"), Qt::Key_Space);
    type("PCB Configuration", "mine.cfg");
    otherProgramStores("elsewhere", "theirs.cns");
    page.onEnter();
    EXPECT_EQ(shown("Constraints Definition"), "theirs.cns");
    EXPECT_EQ(tools().currentIndex(), -1);
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedAll(), "elsewhere|theirs.cns|mine.cfg");
    EXPECT_FALSE(page.isModified());

    tools().setCurrentIndex(3);
    otherProgramStores("alpha", "again.cns");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(storedAll(), "last||") << "the choice of a tool is one of its files, too";
}

TEST_F(NetlistProjectPage, TellsTheFirstFieldThatItRefuses) {
    testsupport::writeFile(directory() / "Own.prp", "x");
    CProjectDialog& page = open();
    const std::string before = testsupport::readFile(projectPath());
    const auto refused = [&](bool (CProjectDialog::*operation)(), const std::string& text) {
        EXPECT_EQ(boxDuring([&] { EXPECT_FALSE((page.*operation)()); }),
                  (SeenBox{"Error", text, QMessageBox::Critical}));
    };
    QTest::keyClick(&box("Use Remote Server Configuration Manager"), Qt::Key_Space);
    refused(&CProjectDialog::onApply, "Server name is empty.");
    for (const std::string& unreadable : {std::string(), std::string("missing.prp"), inDirectory("")}) {
        type("Property Definitions", unreadable);
        refused(&CProjectDialog::onApply, "Invalid Property Definitions file.");
    }
    const struct {
        const char *caption, *name;
    } rows[] = {{"Bus Contents", "Bus Contents"},
                {"Border Symbols", "Borders Symbol"},
                {"Special Components", "Special Components"}};
    for (const auto& row : rows) {
        type(row.caption, "bare.ini");
        refused(&CProjectDialog::onApply, "Invalid " + std::string(row.name) + " file.");
        refused(&CProjectDialog::onLeave, "Invalid " + std::string(row.name) + " file location.");
    }
    EXPECT_EQ(testsupport::readFile(projectPath()), before) << "a refused page writes nothing";

    for (const auto& row : rows)
        type(row.caption, "");
    type("Property Definitions", inDirectory("x\\..\\..\\") + directory().filename().string() + "\\own.PRP");
    std::filesystem::create_directories(directory() / "x");
    type("Server Name", "host");
    boxDuring([&] { EXPECT_TRUE(page.onLeave()); }, "Yes");
    EXPECT_EQ(onDisk()->GetServerName(), "host");
    type("Property Definitions", std::string(kStandard) + "netlist.prp");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(stored("PropertyDefinitions"), std::string(kStandard) + "netlist.prp") << "the first one again";
}

TEST_F(NetlistProjectPage, BrowsesForTheFilesOfItsOwn) {
    open("last", "CnsFileName=own.cns\nPcbCfgFileName=own.cfg\n");
    const struct {
        int button;
        const char *caption, *title, *filter, *name, *chosen;
    } rows[] = {
        {3, "Property Definitions", "Proprty Definitions", "Proprty Definitions File (*.prp)", "*.prp",
         "typed"},
        {4, "Constraints Definition", "Constraints Definition", "Constraints Definition (*.cns)", "",
         "typed.cns"},
        {5, "PCB Configuration", "PCB Configuration", "PCB Configuration (*.cfg)", "", "typed.cfg"},
    };
    const auto buttons = window_.findChildren<QToolButton*>();
    for (const auto& row : rows) {
        testsupport::whenModal([&](QWidget& modal) {
            auto& chooser = dynamic_cast<QFileDialog&>(modal);
            auto* name = chooser.findChild<QLineEdit*>();
            EXPECT_EQ(chooser.windowTitle().toStdString(), row.title);
            EXPECT_EQ(chooser.nameFilters().value(0).toStdString(), row.filter);
            EXPECT_EQ(name->text().toStdString(), row.name);
            name->setText(QStringLiteral("typed"));
            chooser.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
        });
        QTest::mouseClick(buttons.value(row.button), Qt::LeftButton);
        EXPECT_EQ(shown(row.caption), inDirectory(row.chosen));
    }
}
