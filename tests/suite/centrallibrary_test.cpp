#include "suite/libraries/centrallibrary.h"

#include "orv/centrallibrarystate.h"
#include "orv/symbolreader.h"
#include "suite/checkcl.h"
#include "suite/openproject.h"
#include "suite/projectfile.h"
#include "tests/support/testsupport.h"

namespace {

namespace fs = std::filesystem;
using suite::PartitionType;
using testsupport::writeFile;
using Texts = std::vector<std::string>;

const std::string kBinary("\x7f\0ELF", 5);

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
    const auto isCurrent = [this](const std::string& text) {
        writeFile(directory / "Parts.lmc", text);
        return NOrvUtils::COrvCheckCL::CheckCLFlowVersion(directory.path().string() + "\\parts.lmc");
    };
    EXPECT_TRUE(isCurrent("[CentralLibrary]\r\nrelease = \"9.2\"\r\n"));
    for (const std::string& text :
         {std::string("[CentralLibrary]\nRelease=9.1\n"), std::string("[CentralLibrary]\nRelease=9.20\n"),
          std::string("[Library]\nRelease=9.2\n"), std::string("[CentralLibr"),
          std::string("\0\x01\xFF binary", 10), std::string()})
        EXPECT_FALSE(isCurrent(text)) << text;
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

TEST_F(CentralLibrary, TheIndexIsReadInItsOrder) {
    writeFile(
        directory / "Parts.LMC",
        "\xEF\xBB\xBF[Partitions.Symbols]\r\nLogic=Symbols\\Logic\r\nanalog='/net/analog'\r\nLOGIC=late\r\n"
        "[partitions.pdbs]\r\nlogic=pdbs/logic.pdb\r\n"
        "[Schemes]\r\nMixed=7\r\n(Default)=1\r\nmixed=2\r\nOdd=x\r\n"
        "[Scheme MIXED]\r\nSymbols#1=Logic\r\nSymbols#0=not there\r\nsymbols#0=late\r\nSymbols#3=gap\r\n"
        "[SpecialSymbols.Power]\r\nSymbol#0=logic:VCC\r\nSymbol#1=\r\nSymbol#02=no\r\n"
        "[Partitions.Symbols]\r\nlost=second section\r\n");
    fs::create_directories(directory / "symbols/logic");
    for (const char* name : {"b.sym", "A.SYM", "c.txt", ".sym", ".b.sym.lock"})
        writeFile(directory / "symbols/logic" / name, "[Symbol]\n");
    fs::create_directory(directory / "symbols/logic/d.sym");

    suite::CentralLibrary library;
    ASSERT_TRUE(library.load(directory.path().string() + "\\parts.lmc"));
    EXPECT_EQ(library.directory(), directory.path());
    const auto& partitions = library.partitions(PartitionType::symbols);
    ASSERT_EQ(partitions.size(), 2u);
    EXPECT_EQ(partitions[0].name + ' ' + partitions[0].location, "Logic Symbols\\Logic");
    EXPECT_EQ(library.fullPath(partitions[0]), directory / "symbols/logic");
    EXPECT_EQ(library.fullPath(partitions[1]), "/net/analog");
    EXPECT_EQ(library.findPartition(PartitionType::symbols, "ANALOG"), &partitions[1]);
    EXPECT_EQ(library.findPartition(PartitionType::cells, "logic"), nullptr);
    EXPECT_EQ(library.partitions(PartitionType::pdbs).size(), 1u);
    std::string schemes;
    for (const suite::Scheme& scheme : library.schemes())
        schemes += scheme.name + std::to_string(scheme.type) + ' ';
    EXPECT_EQ(schemes, "Mixed7 (Default)1 Odd0 ");
    EXPECT_EQ(library.schemeList("mixed", PartitionType::symbols), (Texts{"not there", "Logic"}));
    EXPECT_EQ(library.schemeList("none", PartitionType::symbols), Texts{});
    EXPECT_EQ(library.specialSymbols(suite::SpecialSymbolKind::power), (Texts{"logic:VCC", ""}));
    EXPECT_EQ(suite::symbolNames(library, partitions[0]), (Texts{"A", "b"}));
    EXPECT_EQ(suite::symbolNames(library, partitions[1]), Texts{});
}

TEST_F(CentralLibrary, WhatIsNoIndexOrSymbolIsRefused) {
    suite::CentralLibrary library;
    writeFile(directory / "good.lmc", "[Partitions.Symbols]\np=.\n");
    for (const std::string& text :
         {std::string(), std::string("[Symbol]\n"), std::string("[Centr"), kBinary}) {
        ASSERT_TRUE(library.load((directory / "good.lmc").string()));
        writeFile(directory / "bad.lmc", text);
        const auto loaded = library.load((directory / "bad.lmc").string());
        ASSERT_FALSE(loaded);
        EXPECT_EQ(loaded.error().path, (directory / "bad.lmc").string());
        EXPECT_TRUE(library.partitions(PartitionType::symbols).empty());
    }
    EXPECT_FALSE(library.load(""));
    EXPECT_FALSE(library.load(directory.path().string()));

    ASSERT_TRUE(library.load((directory / "good.lmc").string()));
    fs::create_directory(directory / "sub");
    writeFile(directory / "sub/S.sym", "[Symbol]\n");
    writeFile(directory / "binary.sym", kBinary);
    writeFile(directory / "text.sym", "no symbol\n");
    for (const char* name : {"binary", "text", "none", "sub/S", "", "sub"})
        EXPECT_FALSE(suite::readSymbol(library, "p", name)) << name;
    EXPECT_FALSE(suite::readSymbol(library, "q", "binary"));
}

TEST_F(CentralLibrary, PropertiesAreReadFromTheLibraryAsItIsNow) {
    using Properties = std::vector<std::pair<std::string, std::string>>;
    const auto project = open("[DesignInfo]\nCentralLibrary=lib\\parts.lmc\n");
    Orv::ISymbolReader& reader = *project->configuration().symbolReader;
    EXPECT_EQ(reader.GetProperties("a", "S"), Properties{}) << "no library is there";
    for (const char* partition : {"a", "b", "c"})
        fs::create_directories(directory / "lib" / partition);
    writeFile(directory / "lib/parts.lmc", "[Partitions.Symbols]\na=a\nb=B\n");
    writeFile(directory / "lib/b/S.sym", "[Properties]\nTITLE=\nDATE=@date\ntitle=late\n");
    writeFile(directory / "lib/c/S.sym", "[Properties]\nC=c\n");
    const Properties inB{{"TITLE", ""}, {"DATE", "@date"}};
    EXPECT_EQ(reader.GetProperties("B", "s"), inB);
    EXPECT_EQ(reader.GetProperties("", "S"), inB) << "the first partition that has it";
    EXPECT_EQ(reader.GetProperties("a", "S"), Properties{});
    EXPECT_EQ(reader.GetProperties("c", "S"), Properties{});
    writeFile(directory / "lib/parts.lmc", "[Partitions.Symbols]\nc=c\nb=b\n;\n");
    EXPECT_EQ(reader.GetProperties("", "S"), (Properties{{"C", "c"}}));
    fs::remove_all(directory / "lib");
    EXPECT_EQ(reader.GetProperties("", "S"), Properties{});
}

TEST_F(CentralLibrary, PropertiesThatIdentifyASymbolAreNoneOfABorder) {
    const auto project = open("");
    Orv::IPropertyFilter& filter = *project->configuration().propertyFilter;
    for (const char* name : {"REFDES", "part_number", "Partition", "NAME", "DESCRIPTION"})
        EXPECT_FALSE(filter.Counts(name)) << name;
    for (const char* name : {"TITLE", "REVISION", "NAMES", ""})
        EXPECT_TRUE(filter.Counts(name)) << name;
}

} // namespace
