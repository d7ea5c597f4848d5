#include "dialog/pages/project/netnamedelimiter.h"

#include "orv/projectconfiguration.h"
#include "tests/support/projectfixture.h"

namespace {

constexpr const char* kNone = "None";
constexpr const char* kRound = "Round Brackets \"()\"";
constexpr const char* kSquare = "Square Brackets \"[]\"";

class NetNameDelimiter : public ProjectPages {};

TEST_F(NetNameDelimiter, ShowsTheStoredOneAndStoresAnotherOnly) {
    struct Row {
        std::string stored;
        const char* shown;
        const char* chosen; ///< null: the user touches nothing
        std::string after;
    };
    const Row rows[] = {
        {"", kNone, nullptr, ""},     {"()", kRound, nullptr, "()"}, {"[]", kSquare, nullptr, "[]"},
        {"", kNone, kRound, "()"},    {"()", kRound, kSquare, "[]"}, {"[]", kSquare, kNone, ""},
        {"{}", kNone, nullptr, "{}"}, {"{}", kNone, kSquare, "[]"},  {"() ", kNone, nullptr, "() "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored + " and " + (row.chosen ? row.chosen : "nothing"));
        openProject();
        project().projectFile->SetNetNameDelimiter(row.stored);
        const std::string stored = onDisk()->GetNetNameDelimiter();
        const std::string before = testsupport::readFile(projectPath());
        auto& page = openPage("NetNameDelimiter");
        EXPECT_TRUE(control<QRadioButton>(row.shown).isChecked());
        if (row.chosen)
            testsupport::press(window_, row.chosen);
        EXPECT_TRUE(page.onOk());
        EXPECT_EQ(onDisk()->GetNetNameDelimiter(), row.chosen ? row.after : stored);
        EXPECT_EQ(testsupport::readFile(projectPath()) == before, row.chosen == nullptr);
    }
}

TEST_F(NetNameDelimiter, ChoiceIsComparedWithWhatWasLoadedEvenAfterApply) {
    openProject();
    auto& page = openPage("NetNameDelimiter");
    EXPECT_FALSE(page.isModified());
    testsupport::press(window_, kRound);
    EXPECT_TRUE(page.isModified());
    page.onApply();
    EXPECT_FALSE(page.isModified());
    testsupport::press(window_, kNone);
    page.onApply();
    EXPECT_EQ(onDisk()->GetNetNameDelimiter(), "()");
    EXPECT_TRUE(page.isModified()) << "the project has another one";
    testsupport::press(window_, kRound);
    EXPECT_FALSE(page.isModified());

    testsupport::press(window_, kSquare);
    const ProjectErrors quiet;
    std::filesystem::remove(projectPath());
    std::filesystem::create_directory(projectPath());
    page.onApply();
    EXPECT_TRUE(page.isModified()) << "it could not be written";
}

TEST_F(NetNameDelimiter, WithoutAProjectNothingIsReadOrWritten) {
    Orv::CProjectConfiguration empty;
    for (Orv::CProjectConfiguration* project : {static_cast<Orv::CProjectConfiguration*>(nullptr), &empty}) {
        ovsettings::CNetNameDelimiter page(nullptr);
        page.setProjectConfiguration(project);
        page.createWindow(nullptr);
        testsupport::find<QRadioButton>(page, kSquare)->click();
        EXPECT_FALSE(page.isModified());
        EXPECT_TRUE(page.onApply());
        EXPECT_TRUE(page.onOk());
    }
}

} // namespace
