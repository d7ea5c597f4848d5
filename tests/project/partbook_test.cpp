#include "dialog/widgets/stringconversion.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>

namespace {

constexpr const char* kCaption = "OvPartBook configuration";

class PartBook : public ProjectPages {};

TEST_F(PartBook, StoresWhatWasTypedAndWritesNothingOtherwise) {
    const std::string text = "[DesignInfo]\nDBCFile = old.dbc\n; mine\n";
    openProject(text);
    auto& page = openPage("PartBookDialog");
    EXPECT_EQ(shown(kCaption), "old.dbc");
    EXPECT_TRUE(page.onApply());
    EXPECT_EQ(testsupport::readFile(projectPath()), text);

    type(kCaption, "neu größer.dbc");
    EXPECT_TRUE(page.isModified());
    EXPECT_TRUE(page.onOk());
    EXPECT_FALSE(page.isModified());
    EXPECT_EQ(stored("DBCFile"), "neu größer.dbc");
    type(kCaption, "");
    EXPECT_TRUE(page.onOk());
    EXPECT_EQ(stored("DBCFile"), "");
}

TEST_F(PartBook, ChosenFileGoesIntoTheFieldWithItsSuffix) {
    openProject();
    auto& page = openPage("PartBookDialog");
    testsupport::whenModal([this](QWidget& modal) {
        auto& chooser = dynamic_cast<QFileDialog&>(modal);
        EXPECT_EQ(chooser.windowTitle(), "OvPartBook configuration file");
        EXPECT_EQ(chooser.nameFilters(), QStringList("OvPartBook User Configuration (*.dbc)"));
        chooser.findChild<QLineEdit*>()->setText(ovsettings::toQString((directory() / "parts").string()));
        chooser.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    QTest::mouseClick(&control<QToolButton>("..."), Qt::LeftButton);
    EXPECT_EQ(shown(kCaption), (directory() / "parts.dbc").string());
    page.onApply();
    EXPECT_EQ(stored("DBCFile"), (directory() / "parts.dbc").string());
}

} // namespace
