#include "dialog/projectfile/projectpaths.h"

#include "platform/currentdirectory.h"

#include "tests/support/projectfixture.h"

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

    // What the location map has no room for is looked for as it stands.
    const std::string valid[] = {
        here + "/missing.ini",   here + "\\parts\\missing.ini", "PARTS\\missing.ini", "/missing.ini",
        here + "/Gehäuse/x.ini", "%OV_PLACE%\\x.ini",           "$PARTS\\x.ini",      deep + "/x.ini"};
    testsupport::writeFile(here + "/Parts/there.ini", "");
    const std::string invalid[] = {"$NOWHERE\\x.ini",
                                   "$Parts\\there.ini",
                                   "$OV_PLACE/file",
                                   "%OV_UNSET%\\x.ini",
                                   "%OV_EMPTY%",
                                   "bare.ini",
                                   here + "/missing/x.ini",
                                   here + "/file/x.ini",
                                   here + "/Parts /x.ini",
                                   "%OV_LONG%/x.ini",
                                   std::string(10'000, 'a'),
                                   "/" + std::string(10'000, 'a') + "/x",
                                   "$" + std::string(300, 'A') + "\\x.ini"};
    for (const std::string& text : valid)
        EXPECT_TRUE(isValid(text)) << text;
    for (const std::string& text : invalid)
        EXPECT_FALSE(isValid(text)) << text;
    EXPECT_EQ(fs::current_path(), here);
}

TEST_F(ProjectPaths, TheCurrentDirectoryIsKeptEvenWhenItHasNoNameAnyMore) {
    openProject();
    fs::create_directories(directory() / "Sub");
    fs::current_path(directory() / "Sub");
    {
        platform::CurrentDirectory current;
        EXPECT_TRUE(current.changeTo(directory().string()));
        fs::rename(directory() / "Sub", directory() / "Moved");
    }
    EXPECT_EQ(fs::current_path(), directory() / "Moved");
    fs::remove(directory() / "Moved");
    EXPECT_TRUE(isValid((directory() / "x.ini").string()));
    EXPECT_FALSE(isValid("Sub\\x.ini"));
    std::error_code gone;
    EXPECT_EQ(fs::current_path(gone), fs::path());
}
