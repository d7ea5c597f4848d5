#include "dialog/widgets/propfile.h"

#include "dialog/widgets/stringconversion.h"
#include "tests/support/widgets.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>

using namespace ovsettings;

namespace {

TEST(FileValidator, TakesBareNamesAndInItsStrictModeOnlyFilesThatOpen) {
    const testsupport::TemporaryDirectory directory;
    testsupport::writeFile(directory / "here.cfg", "x");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    const struct {
        const char* path;
        bool existing, bare;
    } cases[] = {
        {"HERE.cfg", true, true},        {"..", false, true},
        {"here.cfg", true, true},        {"missing.cfg", false, true},
        {"sub\\here.cfg", false, false}, {"./here.cfg", false, false},
        {"C:\\here.cfg", false, false},  {"", false, true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CFileValidator(CFileValidator::existingBareName).isValid(c.path), c.existing) << c.path;
        EXPECT_EQ(CFileValidator(CFileValidator::bareName).isValid(c.path), c.bare) << c.path;
        EXPECT_FALSE(CFileValidator(2).isValid(c.path)) << c.path;
    }
    std::filesystem::current_path(before);
}

TEST(PropFile, BrowsingSetsTheFieldUnlessTheValidatorRefuses) {
    const testsupport::TemporaryDirectory directory;
    testsupport::writeFile(directory / "chosen.cfg", "x");
    const CFileValidator bareNames(CFileValidator::bareName);
    QLineEdit edit(QStringLiteral("before"));
    CPropFile field(edit);
    field.setInitialDirectory(directory.path().string());
    field.setFilter("PCB Configuration (*.cfg)|*.cfg|All Files (*.*)|*.*||");
    field.setTitle("Choose");

    const auto browse = [&](QDialog::DialogCode answer) {
        testsupport::whenModal([&](QWidget& modal) {
            auto* dialog = qobject_cast<QFileDialog*>(&modal);
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Choose"));
            EXPECT_EQ(dialog->directory().absolutePath(), toQString(directory.path().string()));
            EXPECT_EQ(dialog->nameFilters(), (QStringList{QStringLiteral("PCB Configuration (*.cfg)"),
                                                          QStringLiteral("All Files (*)")}));
            dialog->findChild<QLineEdit*>()->setText(QStringLiteral("chosen.cfg"));
            if (answer == QDialog::Accepted)
                dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
            else
                dialog->reject();
        });
        field.browse();
    };

    browse(QDialog::Rejected);
    EXPECT_EQ(edit.text(), QStringLiteral("before"));
    browse(QDialog::Accepted);
    EXPECT_EQ(edit.text(), toQString((directory / "chosen.cfg").string()));

    field.setValidator(&bareNames);
    std::string told;
    testsupport::whenModal([&](QWidget& modal) {
        testsupport::answerNextMessageBox("OK", &told);
        static_cast<QFileDialog&>(modal).findChild<QLineEdit*>()->setText(QStringLiteral("chosen.cfg"));
        static_cast<QFileDialog&>(modal)
            .findChild<QDialogButtonBox*>()
            ->button(QDialogButtonBox::Open)
            ->click();
    });
    field.browse();
    EXPECT_EQ(told, "Incorrect file name!");
    EXPECT_EQ(edit.text(), QString());
    EXPECT_FALSE(field.isValid());
}

TEST(PropFile, CheckingTheFieldTellsARefusalAndKeepsTheVerdict) {
    const CFileValidator bareNames(CFileValidator::bareName);
    QLineEdit edit(QStringLiteral("a\\b"));
    CPropFile field(edit);
    EXPECT_TRUE(field.checkField());
    field.setValidator(&bareNames);
    EXPECT_EQ(testsupport::messageDuring([&] { EXPECT_FALSE(field.checkField()); }), "Incorrect file name!");
    EXPECT_FALSE(field.isValid());
    edit.setText(QStringLiteral("b"));
    EXPECT_TRUE(field.checkField());
    EXPECT_TRUE(field.isValid());
}

} // namespace
