// The sample project and its central library: whatever they name is there.

#include "orv/bordersymbols.h"
#include "orv/centrallibrarystate.h"
#include "orv/specialcomponents.h"
#include "orv/symbolreader.h"
#include "platform/profilefile.h"
#include "suite/checkcl.h"
#include "suite/locationmap.h"
#include "suite/openproject.h"
#include "suite/projectfile.h"
#include "suite/symbollibs.h"
#include "tests/support/testsupport.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class SampleProject : public testing::Test {
protected:
    SampleProject() : index((samples / "library/parts.lmc").string()) {
        EXPECT_TRUE(index.load());
        project = NProjectTools::COpenProject::open(
            (samples / "motorcontroller/motorcontroller.prj").string(), error);
    }

    void SetUp() override { ASSERT_NE(project, nullptr) << error; }

    Orv::IProjectFileData& file() { return *project->configuration().projectFile; }

    Texts partitions(const std::string& kind) const { return index.keys("Partitions." + kind); }

    /// The values of a section, which must be names of partitions.
    void expectPartitions(const std::string& section) const {
        for (const std::string& key : index.keys(section)) {
            const Texts known = partitions(key.substr(0, key.find('#')));
            EXPECT_NE(std::ranges::find(known, index.get(section, key)), known.end())
                << section << ' ' << key;
        }
    }

    fs::path symbolFile(const std::string& fullName) const {
        const auto colon = fullName.find(':');
        return samples / "library" / index.get("Partitions.Symbols", fullName.substr(0, colon)) /
               (fullName.substr(colon + 1) + ".sym");
    }

    testsupport::Installation installation;
    const fs::path samples = OV_SAMPLES;
    platform::ProfileFile index;
    std::unique_ptr<NProjectTools::COpenProject> project;
    std::string error;
};

TEST_F(SampleProject, NamesOnlyWhatIsThere) {
    InitLocationMap(file().GetFilePath().c_str(), 0);
    const auto hardName = [](const std::string& name) {
        std::array<char, kLocationBufferSize> buffer{};
        return GetHardName(name.c_str(), buffer.data()) == 0 ? std::string(buffer.data()) : name;
    };
    for (const std::string& path :
         {file().GetCentralLibraryPath(1), file().GetBorderSymbolsPath(1), file().GetPinComponentsPath(1),
          file().GetBusContentsPath(1), hardName(file().GetConstraintsFile()),
          hardName(file().GetPcbConfigFile()), hardName(file().GetValue("DesignInfo", "PropertyDefinitions")),
          hardName(file().GetValue("DesignInfo", "DBCFile"))})
        EXPECT_TRUE(fs::is_regular_file(path)) << path;
    EXPECT_TRUE(project->configuration().centralLibraryState->IsAttached());
    EXPECT_TRUE(NOrvUtils::COrvCheckCL::CheckCLFlowVersion(file().GetCentralLibraryPath(1)));

    const auto libraries = project->configuration().symbolLibs->GetLibList();
    EXPECT_EQ(libraries.size(), 7u);
    for (const NProjectTools::ISymbolLibrary* library : libraries)
        EXPECT_TRUE(fs::is_regular_file(library->GetFullPath() + "/lib.cfg")) << library->GetFullPath();
}

TEST_F(SampleProject, EveryDesignSeesPartitionsOfTheLibrary) {
    Texts designs;
    file().GetDesignNames(designs);
    EXPECT_EQ(designs.size(), 3u);
    for (const std::string& design : designs) {
        const std::string scheme = file().GetSearchScheme(design);
        EXPECT_TRUE(scheme == "{Local to Project}" || !index.get("Schemes", scheme).empty()) << scheme;
        EXPECT_NE(file().GetTopBlock(design), "") << design;
        const Texts known = partitions("Symbols");
        for (const std::string& name : file().GetSymbolPartitions(design))
            EXPECT_NE(std::ranges::find(known, name), known.end()) << name;
        for (const Texts& list : {file().GetPdbSearchPath(design), file().GetThirdPartitions(design)}) {
            for (const std::string& name : list)
                EXPECT_TRUE(fs::is_regular_file(samples / "library" / name)) << name;
        }
    }
}

TEST_F(SampleProject, TheLibraryHoldsTheSymbolsOfItsIndex) {
    EXPECT_EQ(partitions("Symbols").size(), 12u);
    std::set<fs::path> symbols;
    for (const std::string& partition : partitions("Symbols")) {
        for (const auto& entry :
             fs::directory_iterator(samples / "library" / index.get("Partitions.Symbols", partition))) {
            symbols.insert(entry.path());
            platform::ProfileFile symbol(entry.path().string());
            EXPECT_TRUE(symbol.load());
            EXPECT_EQ(symbol.get("Symbol", "Name"), entry.path().stem()) << entry.path();
            EXPECT_EQ(symbol.get("Symbol", "Partition"), partition) << entry.path();
        }
    }
    EXPECT_EQ(symbols.size(), 200u);
    for (const char* kind : {"PDBs", "Cells"}) {
        for (const std::string& partition : partitions(kind))
            EXPECT_TRUE(
                fs::exists(samples / "library" / index.get(std::string("Partitions.") + kind, partition)));
    }
    for (const std::string& scheme : index.keys("Schemes"))
        expectPartitions("Scheme " + scheme);
    for (const std::string& section : index.sectionNames()) {
        const bool special = section.starts_with("SpecialSymbols.");
        for (const std::string& key : special ? index.keys(section) : Texts())
            EXPECT_TRUE(fs::exists(symbolFile(index.get(section, key)))) << index.get(section, key);
    }
}

TEST_F(SampleProject, BordersAndSpecialComponentsAreSymbolsOfTheLibrary) {
    const Orv::CProjectConfiguration& record = project->configuration();
    auto& borders = dynamic_cast<Orv::IBorderSymbols&>(*record.borderSymbols);
    EXPECT_TRUE(borders.GetTable().contains("34x22SHEET1"));
    std::set<std::string> properties;
    for (const auto& [size, symbol] : borders.GetTable()) {
        EXPECT_TRUE(fs::exists(symbolFile(symbol))) << size;
        const auto colon = symbol.find(Orv::kSymbolSeparator);
        for (const auto& property :
             record.symbolReader->GetProperties(symbol.substr(0, colon), symbol.substr(colon + 1)))
            properties.insert(property.first);
    }
    EXPECT_EQ(properties, (std::set<std::string>{"AUTHOR", "DATE", "REVISION", "SHEET", "TITLE"}));
    const Texts offered = borders.GetPropertyNames();
    for (const auto& [name, value] : borders.GetProperties()) {
        EXPECT_TRUE(properties.contains(name)) << name;
        EXPECT_NE(std::ranges::find(offered, name), offered.end()) << name;
    }
    auto& special = dynamic_cast<Orv::ISpecialComponents&>(*record.pinComponents);
    for (int i = 0; i < Orv::ISpecialComponents::kCategories; ++i) {
        EXPECT_FALSE(special.GetCategory(i).empty()) << i;
        for (const std::string& symbol : special.GetCategory(i))
            EXPECT_TRUE(fs::exists(symbolFile(symbol))) << symbol;
    }
}

TEST_F(SampleProject, TheInstallationHasTheDefaultFilesOfEveryLayoutTool) {
    const fs::path standard = OV_INSTALLATION "/standard";
    platform::ProfileFile tools((standard / "pcbsystem.ini").string());
    ASSERT_TRUE(tools.load());
    for (const std::string& tool : tools.sectionNames()) {
        EXPECT_TRUE(fs::is_regular_file(standard / "isis" / tools.get(tool, "cns"))) << tool;
        EXPECT_TRUE(fs::is_regular_file(standard / tools.get(tool, "cfg"))) << tool;
    }
    EXPECT_NE(tools.get("PCBSYSTEM " + file().GetLayoutTool(), "display_name"), "");
    EXPECT_TRUE(fs::is_regular_file(standard / "netlist.prp"));
}

} // namespace
