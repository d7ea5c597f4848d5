#include "orv/centrallibrarystate.h"
#include "suite/checkcl.h"
#include "suite/openproject.h"
#include "suite/projectdatafile.h"
#include "suite/projectfile.h"
#include "tests/support/testsupport.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using testsupport::writeFile;

class CentralLibrary : public testing::Test {
protected:
    std::unique_ptr<NProjectTools::COpenProject> open(const std::string& text) {
        writeFile(directory / "demo.prj", text);
        std::string error;
        auto project = NProjectTools::COpenProject::open((directory / "demo.prj").string(), error);
        EXPECT_NE(project, nullptr) << error;
        return project;
    }

    testsupport::Installation installation;
    testsupport::TemporaryDirectory directory;
};

TEST_F(CentralLibrary, IsOfTheCurrentReleaseIfItsIndexSaysSo) {
    struct Row {
        std::string text;
        bool current;
    };
    const std::array rows{
        Row{"[CentralLibrary]\r\nrelease = \"9.2\"\r\n", true},
        Row{"[CentralLibrary]\nRelease=9.1\n", false},
        Row{"[CentralLibrary]\nRelease=9.20\n", false},
        Row{"[Library]\nRelease=9.2\n", false},
        Row{"[CentralLibr", false},
        Row{std::string("\0\x01\xFF binary", 10), false},
        Row{"", false},
    };
    for (const Row& row : rows) {
        writeFile(directory / "Parts.lmc", row.text);
        const std::string path = directory.path().string() + "\\parts.lmc";
        EXPECT_EQ(NOrvUtils::COrvCheckCL::CheckCLFlowVersion(path), row.current) << row.text;
    }
    EXPECT_FALSE(NOrvUtils::COrvCheckCL::CheckCLFlowVersion(directory.path().string()));
    EXPECT_FALSE(NOrvUtils::COrvCheckCL::CheckCLFlowVersion((directory / "none.lmc").string()));
}

TEST_F(CentralLibrary, IsAttachedWhileItsIndexExists) {
    const auto project = open("[DesignInfo]\nCentralLibrary=lib\\parts.lmc\n");
    Orv::CProjectConfiguration& record = project->configuration();
    EXPECT_FALSE(record.centralLibraryState->IsAttached());
    fs::create_directory(directory / "lib");
    writeFile(directory / "lib/parts.lmc", "");
    EXPECT_TRUE(record.centralLibraryState->IsAttached());
    record.projectFile->SetCentralLibraryPath("lib");
    EXPECT_FALSE(record.centralLibraryState->IsAttached()) << "a directory is no index";
    record.projectFile->SetCentralLibraryPath("");
    EXPECT_FALSE(record.centralLibraryState->IsAttached());
}

TEST_F(CentralLibrary, NamedFilesKeepTheirContentWhereTheNextCannotBeRead) {
    writeFile(directory / "a.ini", "[Borders]\nASHEETL=x:A\n");
    writeFile(directory / "b.ini", "[Borders]\nBSHEETL=x:B\nBSHEETL1=x:B1\n");
    const auto project = open("[DesignInfo]\nBorderSymbols=A.ini\n");
    auto& borders = dynamic_cast<NProjectTools::CProjectDataFile&>(*project->configuration().borderSymbols);
    EXPECT_EQ(borders.value("borders", "ASHEETL"), "x:A");
    borders.Reload((directory / "none.ini").string());
    EXPECT_EQ(borders.value("Borders", "ASHEETL"), "x:A");
    borders.Reload((directory / "b.ini").string());
    EXPECT_EQ(borders.keys("Borders"), (std::vector<std::string>{"BSHEETL", "BSHEETL1"}));
    borders.Reload("");
    EXPECT_TRUE(borders.sectionNames().empty());
}

} // namespace
