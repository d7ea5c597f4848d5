#include "suite/wdirutils.h"
#include "tests/support/testsupport.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

TEST(WorkingDirectories, ComeFromTheVariableWithTheInstallationLast) {
    using List = std::vector<std::string>;
    struct Row {
        const char* what;
        std::optional<std::string> wdir;
        std::optional<std::string> home;
        List directories;
    };
    const Row kRows[] = {
        {"not set", std::nullopt, "/opt/orv", {}},
        {"empty", "", "/opt/orv", {}},
        {"installation appended", "/u;/s", "/opt/orv", {"/u", "/s", "/opt/orv/standard"}},
        {"installation there already",
         "/u;/opt/./orv//standard/",
         "/opt/orv/",
         {"/u", "/opt/./orv//standard"}},
        {"backslashes", "C:\\u\\;\\\\server\\s", "C:\\orv\\", {"C:/u", "//server/s", "C:/orv/standard"}},
        {"as they stand", " /U ;~/x", "/Opt/Orv", {" /U ", "~/x", "/Opt/Orv/standard"}},
        {"empty entries", "/u;;/s;", "/o", {"/u", "/s", "/o/standard"}},
        {"empty first entry keeps its place", ";/s", "/o", {"", "/s", "/o/standard"}},
        {"root", "/;//", "/", {"/", "/", "/standard"}},
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
