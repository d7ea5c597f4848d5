// Each sample file, cut off at every place and with one byte changed at every place, before its real reader.
//
// OV_DAMAGE=all tries every value of every byte; otherwise a few telling values, and of larger files not
// every place.

#include "dialog/pages/libraries/libraryrecognition.h"
#include "dialog/pages/project/layouttools.h"
#include "dialog/shell/categories.h"
#include "orv/appconfiguration.h"
#include "orv/colorscheme.h"
#include "orv/symbolreader.h"
#include "schemes/objectschema.h"
#include "store/appcfg.h"
#include "suite/bordersymbolsfile.h"
#include "suite/configuration.h"
#include "suite/kdsclient.h"
#include "suite/libraryserver.h"
#include "suite/locationmap.h"
#include "suite/openproject.h"
#include "suite/projectdatafile.h"
#include "suite/projectfile.h"
#include "suite/specialcomponentsfile.h"
#include "suite/symbollibs.h"
#include "suite/zec.h"
#include "tests/support/configurationtext.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <set>

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

constexpr double kLongest = 1.0; // seconds of the processor, of one reading
constexpr std::size_t kPlaces = 2048;

bool tryAll() {
    const char* word = std::getenv("OV_DAMAGE");
    return word && std::string_view(word) == "all";
}

std::set<char> valuesInPlaceOf(char c) {
    std::set<char> values{'\0', '<', '&', '"', '=', '\n', '\xff', static_cast<char>(c + 1)};
    for (int value = 0; tryAll() && value < 256; ++value)
        values.insert(static_cast<char>(value));
    values.erase(c);
    return values;
}

/// Every damaged form of a text. `stride` leaves out places.
template <typename Try>
void forEachDamage(const std::string& whole, std::size_t stride, Try attempt) {
    const auto timed = [&](const std::string& damaged) {
        const std::clock_t begin = std::clock();
        attempt(damaged);
        EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, kLongest);
    };
    for (std::size_t place = 0; place < whole.size(); place += stride) {
        SCOPED_TRACE("at byte " + std::to_string(place));
        timed(whole.substr(0, place));
        std::string changed = whole;
        for (const char value : valuesInPlaceOf(whole[place])) {
            changed[place] = value;
            timed(changed);
        }
        if (testing::Test::HasFailure())
            return; // one is enough, and the file still is what failed
    }
}

std::size_t strideFor(const std::string& whole, std::size_t places) {
    return tryAll() ? 1 : whole.size() / places + 1;
}

/// Where a file is rewritten faster than the system's disk would have it.
struct InMemory {
    InMemory() : place("TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()) {}

    ScopedEnvironment place;
};

/// A copy of the sample project with its library, in a working installation.
struct Samples {
    Samples() {
        for (const char* part : {"motorcontroller", "library", "shared"})
            fs::copy(fs::path(OV_SAMPLES) / part, directory / part, fs::copy_options::recursive);
        fs::copy(fs::path(OV_INSTALLATION) / "standard", installation.standard(),
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        const auto ignore = [](const std::string&) {
        };
        NProjectTools::CProjectFile::SetErrorHandler(ignore);
        Orv::IOvConfigurationManager::Instance().SetErrorHandler(ignore);
    }
    ~Samples() {
        NProjectTools::CProjectFile::SetErrorHandler({});
        Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
    }

    fs::path find(const std::string& file) const {
        const fs::path sample = directory / file;
        return fs::exists(sample) ? sample : installation.home() / file;
    }
    std::string project() const { return (directory / "motorcontroller/motorcontroller.prj").string(); }

    const InMemory memory;
    Installation installation;
    TemporaryDirectory directory;
};

void readProject(const Samples&, const std::string& path) {
    NProjectTools::CProjectFile project;
    if (!project.openProjectFile(path))
        return;
    std::vector<std::string> designs;
    project.GetDesignNames(designs);
    project.GetCentralLibraryPath(1);
    for (const std::string& design : designs) {
        project.GetPdbSearchPath(design);
        project.GetForwardAnnotationBlocked(design);
    }
    NProjectTools::CSymbolLibs().Load(&project);
}

void readMap(const Samples& samples, const std::string&) {
    std::array<char, kLocationBufferSize> buffer{};
    InitLocationMap(samples.project().c_str(), 0);
    for (const char* name : {"$PARTS/parts.lmc", "$SHARED", "$BOARD/x"})
        GetHardName(name, buffer.data());
    GetSoftName(samples.project().c_str(), buffer.data());
}

void readLibrary(const Samples&, const std::string& path) {
    CLibServer server(path);
    server.Load(path, 1);
    CLibSchemePartition partitions(server);
    partitions.InitPartitionType(13);
    std::vector<std::string> names;
    std::vector<int> types;
    partitions.GetSchemes(names, types);
    for (const std::string& scheme : std::vector<std::string>(names))
        partitions.GetSchemePartitionListByType(scheme, names);
}

void readSymbol(const Samples& samples, const std::string& path) {
    static std::unique_ptr<NProjectTools::COpenProject> project;
    std::string error;
    // The index is to be read once.
    if (!project || project->configuration().projectFile->GetFilePath() != samples.project())
        project = NProjectTools::COpenProject::open(samples.project(), error);
    project->configuration().symbolReader->GetProperties("logic", fs::path(path).stem().string());
}

void readDatabase(const Samples&, const std::string& path) {
    try {
        iKDS::KDSPI database;
        iKDS::ContainerT<iKDS::ISnapshot> snapshot;
        iKDS::ListT<iKDS::BlockInfo> blocks;
        if (database.AttachSubClient("damage", path) && database.GetSnapshotByName("controller", snapshot))
            static_cast<void>(snapshot->GetListBlocks(blocks));
    } catch (const iKDS::Exception& damage) {
        EXPECT_TRUE(contains(damage.GetResult().GetDescription(), path));
    }
}

template <typename File>
void reload(const Samples&, const std::string& path) {
    File().Reload(path);
}

/// A kind of file and who reads it.
struct Kind {
    const char* file;
    void (*read)(const Samples& samples, const std::string& path);
    std::size_t places = kPlaces; ///< fewer where reading takes longer
};

const Kind kKinds[] = {
    {"standard/settings.xml",
     [](const Samples&, const std::string& path) {
         ovsettings::readCatalogue(readFile(path));
     }},
    {"standard/light.ovc",
     [](const Samples&, const std::string& path) {
         ovsettings::CObjectSchema().read(path);
     }},
    {"standard/colors.def",
     [](const Samples&, const std::string& path) {
         Orv::readColorSchemes(path);
     }},
    {"standard/pcbsystem.ini",
     [](const Samples&, const std::string&) {
         ovsettings::LayoutTools().read();
     }},
    {"motorcontroller/motorcontroller.prj", &readProject, 512},
    {"motorcontroller/location.map", &readMap},
    {"motorcontroller/borders.ini", &reload<NProjectTools::CBorderSymbolsFile>},
    {"motorcontroller/special.pin", &reload<NProjectTools::CSpecialComponentsFile>},
    {"motorcontroller/buscontents.ini", &reload<NProjectTools::CProjectDataFile>},
    {"motorcontroller/motorcontroller.kds", &readDatabase, 512},
    {"library/parts.lmc", &readLibrary},
    {"library/symbols/logic/74HC00.sym", &readSymbol},
    {"motorcontroller/libraries/board/lib.cfg",
     [](const Samples&, const std::string& path) {
         ZECReadAlias(fs::path(path).parent_path().string());
     }},
    {"shared/legacy/sch.lib",
     [](const Samples&, const std::string& path) {
         ovsettings::recogniseLibrary(fs::path(path).parent_path().string(), ovsettings::LibraryType());
     }},
};

class DamagedFile : public testing::TestWithParam<Kind> {};

std::string nameOf(const testing::TestParamInfo<Kind>& info) {
    std::string name = fs::path(info.param.file).filename().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

TEST_P(DamagedFile, IsReadAsFarAsItGoes) {
    const Samples samples;
    const fs::path file = samples.find(GetParam().file);
    const std::string whole = readFile(file);
    ASSERT_FALSE(whole.empty()) << file;
    forEachDamage(whole, strideFor(whole, GetParam().places), [&](const std::string& damaged) {
        writeFile(file, damaged);
        GetParam().read(samples, file.string());
    });
}

INSTANTIATE_TEST_SUITE_P(Kinds, DamagedFile, testing::ValuesIn(kKinds), nameOf);

class DamagedLevel : public testing::TestWithParam<int> {};

TEST_P(DamagedLevel, LeavesTheOthersAndIsToldByFileAndLine) {
    const InMemory memory;
    const Installation installation;
    const std::array levels{installation.standard(), installation.site(), installation.user()};
    const std::array<std::string, 3> keys{"MRU_SIZE", "NET_LENGTH_HR", "GRID_HR"};
    const auto level = static_cast<std::size_t>(GetParam());
    for (std::size_t i = 0; i < levels.size(); ++i)
        writeLevel(levels[i], setting(keys[i], "7"));
    std::vector<std::string> messages;
    Orv::IOvConfigurationManager::Instance().SetErrorHandler(
        [&messages](const std::string& message) { messages.push_back(message); });
    const std::string file = (levels[level] / "orvane.xml").string();
    const std::string whole =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- a -->\n"
        "<configuration>\n <section path=\"Orvane/SETTINGS\">\n"
        "  <value name=\"DB_AUTO_BACKUP\" locked=\"no\">1</value>\n"
        "  <list name=\"PROPERTIES_TOOLTIP\"><item encoding=\"base64\">QQ==</item></list>\n"
        " </section>\n <section path=\"Orvane/OBJECTS\">\n"
        "  <group type=\"object\" name=\"NET\"><attribute name=\"COLOR\" locked=\"1\">"
        "0x00ff00</attribute></group>\n </section>\n</configuration>\n";
    Orv::iAppConfiguration store;
    forEachDamage(whole, strideFor(whole, kPlaces), [&](const std::string& damaged) {
        writeFile(file, damaged);
        messages.clear();
        ASSERT_TRUE(store.load());
        for (std::size_t i = 0; i < levels.size(); ++i) {
            if (i != level) {
                EXPECT_EQ(store.valueDirectory(keys[i], 0), levels[i].string()) << keys[i];
            }
        }
        for (const std::string& message : messages) {
            ASSERT_TRUE(message.starts_with(file + ':')) << message;
            EXPECT_GT(std::atoi(message.c_str() + file.size() + 1), 0) << message;
            if (message.find("locked=") != std::string::npos) {
                EXPECT_TRUE(message.find("DB_AUTO_BACKUP") != std::string::npos ||
                            message.find("NET COLOR") != std::string::npos)
                    << message;
            }
        }
        const bool isWhole = damaged.ends_with("</configuration>\n") || damaged.size() + 1 >= whole.size();
        EXPECT_TRUE(isWhole || !messages.empty());
    });
    Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
}

INSTANTIATE_TEST_SUITE_P(Levels, DamagedLevel, testing::Values(0, 1, 2));

} // namespace
