#include "dialog/widgets/stringconversion.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>

namespace {

const std::vector<std::string> kFields{"Project file", "Layout template:", "Configuration file:"};

class Pcb : public ProjectPages {
protected:
    Pcb() : before_(std::filesystem::current_path()) {
        testsupport::writeFile(directory() / "board.prj", "x");
        std::filesystem::current_path(directory());
        openProject();
    }
    ~Pcb() override { std::filesystem::current_path(before_); }

private:
    std::filesystem::path before_;
};

TEST_F(Pcb, PageIsLeftOnlyWithNamesOfFilesThatOpenOrNone) {
    struct Row {
        std::vector<std::string> typed;
        int refused; ///< index of the field that is refused; -1 for none
    };
    const Row rows[] = {
        {{"", "", ""}, -1},
        {{"board.prj", "board.prj", "board.prj"}, -1},
        {{"sub\\board.prj", "", ""}, 0},
        {{"board.prj", "", "missing.cnf"}, 2},
        {{"board.prj", ".\\board.prj", "missing.cnf"}, 1},
    };
    for (const Row& row : rows) {
        auto& page = openPage("PCB");
        for (std::size_t field = 0; field < kFields.size(); ++field)
            type(kFields[field], row.typed[field]);
        if (row.refused < 0) {
            EXPECT_TRUE(page.onLeave());
            EXPECT_TRUE(page.isValid());
            continue;
        }
        const std::string& refused = kFields[static_cast<std::size_t>(row.refused)];
        SCOPED_TRACE(refused);
        EXPECT_EQ(boxDuring([&] { EXPECT_FALSE(page.onLeave()); }).text, "Incorrect file name!");
        EXPECT_EQ(window_.focusWidget(), &control<QWidget>(refused));
        EXPECT_EQ(boxDuring([&] { EXPECT_FALSE(page.isValid()); }).text, "Incorrect file name!");
        for (const std::string& field : kFields)
            type(field, "");
        EXPECT_TRUE(page.onLeave()) << "an emptied form is no trap";
    }
}

TEST_F(Pcb, ChosenPathIsRefusedAndEmptiesItsField) {
    const std::vector<std::string> titles{"Project File", "LayoutTemplate", "Configuratoin file"};
    auto& page = openPage("PCB");
    const auto buttons = page.findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 3);
    for (std::size_t field = 0; field < kFields.size(); ++field) {
        SCOPED_TRACE(titles[field]);
        type(kFields[field], "board.prj");
        std::string told;
        testsupport::whenModal([&](QWidget& modal) {
            auto& chooser = dynamic_cast<QFileDialog&>(modal);
            EXPECT_EQ(chooser.windowTitle().toStdString(), titles[field]);
            auto& name = *chooser.findChild<QLineEdit*>();
            EXPECT_EQ(name.text(), QString());
            testsupport::answerNextMessageBox("OK", &told);
            name.setText(ovsettings::toQString((directory() / "board.prj").string()));
            chooser.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
        });
        QTest::mouseClick(buttons[static_cast<qsizetype>(field)], Qt::LeftButton);
        EXPECT_EQ(told, "Incorrect file name!");
        EXPECT_EQ(shown(kFields[field]), "");
    }
    EXPECT_TRUE(page.onLeave());
}

} // namespace
