#include "suite/wdirutils.h"
#include "tests/support/testsupport.h"

namespace {

TEST(WorkingDirectories, ComeFromTheVariableWithTheInstallationLast) {
    using List = std::vector<std::string>;
    struct Row {
        const char* what;
        std::optional<std::string> wdir;
        std::optional<std::string> home;
        List directories;
    };
    const testsupport::TemporaryDirectory root;
    const std::string disk = root.path().string();
    std::filesystem::create_directories(root / "u");
    std::filesystem::create_directory_symlink("u", root / "link");
    std::filesystem::create_directories(root / "standard");
    const Row kRows[] = {
        {"not set", std::nullopt, "/opt/orv", {}},
        {"empty", "", "/opt/orv", {}},
        {"installation appended", "/u;/s", "/opt/orv", {"/u", "/s", "/opt/orv/standard"}},
        {"installation there already", "/u;/opt/./orv//standard/", "/opt/orv//", {"/u", "/opt/orv/standard"}},
        {"installation in another case",
         disk + "/u;" + disk + "/STANDARD",
         disk,
         {disk + "/u", disk + "/standard"}},
        {"one directory again", "/u;/s/../u/.;/s;/./s", "/o", {"/u", "/s", "/o/standard"}},
        {"through a link or in another case",
         disk + "/u;" + disk + "/link;" + disk + "/U;/s",
         "/o",
         {disk + "/u", "/s", "/o/standard"}},
        {"backslashes", "C:\\u\\;\\\\server\\s", "C:\\orv\\", {"C:/u", "//server/s", "C:/orv/standard"}},
        {"as they stand", " /U ;~/x", "/Opt/Orv", {" /U ", "~/x", "/Opt/Orv/standard"}},
        {"empty entries", "/u;;/s;", "/o", {"/u", "/s", "/o/standard"}},
        {"empty first entry keeps its place", ";/s", "/o", {"", "/s", "/o/standard"}},
        {"root", "/;//", "/", {"/", "/standard"}},
        {"no installation", "/u;/s", std::nullopt, {"/u", "/s"}},
    };
    for (const Row& row : kRows) {
        const testsupport::ScopedEnvironment wdir("WDIR", row.wdir);
        const testsupport::ScopedEnvironment home("RSR_HOME", row.home);
        List directories{"stale"};
        EXPECT_EQ(Orv::WdirUtils::GetWDIRs(directories), !row.directories.empty()) << row.what;
        EXPECT_EQ(directories, row.directories) << row.what;
        Orv::WdirUtils::GetWDIRs(directories, "/projects/a.prj");
        EXPECT_EQ(directories, row.directories) << row.what;
    }
}

} // namespace
