#include "details/pages/project/projectpaths.h"

#include "tests/project/projectfixture.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class ProjectPaths : public ProjectPages {
protected:
    ProjectPaths() : before_(fs::current_path()) {}
    ~ProjectPaths() override { fs::current_path(before_); }

    bool isValid(const std::string& text) {
        Orv::IProjectFileData& file = *project().projectFile;
        return ovsettings::IsFileLocationValid(file.GetFilePath(), ovsettings::ResolvePagePath(text, file));
    }

private:
    fs::path before_;
};

} // namespace

TEST_F(ProjectPaths, ALocationIsValidWhereItsDirectoryExists) {
    const std::string here = directory().string();
    const std::string deep = here + "/" + std::string(150, 'd') + "/" + std::string(150, 'e');
    for (const std::string& made : {deep, here + "/Parts", here + "/Gehäuse"})
        fs::create_directories(made);
    testsupport::writeFile(here + "/file", "x");
    testsupport::writeFile(here + "/location.map", "$PARTS " + here + "/Parts\n");
    const testsupport::ScopedEnvironment place("OV_PLACE", here), unset("OV_UNSET", std::nullopt),
        empty("OV_EMPTY", ""), longer("OV_LONG", deep);
    openProject();
    fs::current_path(here);

    const struct {
        std::string text;
        bool valid;
    } rows[] = {
        {here + "/missing.ini", true},
        {here + "\\parts\\missing.ini", true},
        {"PARTS\\missing.ini", true},
        {"/missing.ini", true},
        {here + "/Gehäuse/x.ini", true},
        {"%OV_PLACE%\\x.ini", true},
        {"$PARTS\\x.ini", true},
        {"$NOWHERE\\x.ini", false},
        {"%OV_UNSET%\\x.ini", false},
        {"%OV_EMPTY%", false},
        {"bare.ini", false},
        {here + "/missing/x.ini", false},
        {here + "/file/x.ini", false},
        {here + "/Parts /x.ini", false},
        // What the location map has no room for is looked for as it stands.
        {deep + "/x.ini", true},
        {"%OV_LONG%/x.ini", false},
        {std::string(10'000, 'a'), false},
        {"/" + std::string(10'000, 'a') + "/x", false},
        {"$" + std::string(300, 'A') + "\\x.ini", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isValid(row.text), row.valid) << row.text;
        EXPECT_EQ(fs::current_path(), here) << row.text;
    }
}

TEST_F(ProjectPaths, TheCurrentDirectoryIsKeptEvenWhenItHasNoNameAnyMore) {
    openProject();
    fs::create_directories(directory() / "Sub");
    fs::current_path(directory() / "Sub");
    fs::rename(directory() / "Sub", directory() / "Moved");
    EXPECT_TRUE(isValid((directory() / "x.ini").string()));
    EXPECT_EQ(fs::current_path(), directory() / "Moved");
    fs::remove(directory() / "Moved");
    EXPECT_TRUE(isValid((directory() / "x.ini").string()));
    EXPECT_FALSE(isValid("Sub\\x.ini"));
    std::error_code gone;
    EXPECT_EQ(fs::current_path(gone), fs::path());
}
