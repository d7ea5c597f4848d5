#include "suite/locationmap.h"

#include "suite/kernel.h"
#include "suite/projectfile.h"
#include "tests/support/testsupport.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testsupport::ScopedEnvironment;
using testsupport::writeFile;

class LocationMap : public testing::Test {
protected:
    LocationMap() {
        fs::create_directory(project);
        fs::create_directories(installation.site());
        NProjectTools::CProjectFile::SetErrorHandler(
            [this](const std::string& message) { errors.push_back(message); });
    }
    ~LocationMap() override { NProjectTools::CProjectFile::SetErrorHandler({}); }

    void define(const std::string& text) {
        writeFile(project / "location.map", text);
        ASSERT_EQ(InitLocationMap((project / "demo.prj").c_str(), 0), 0);
    }

    static std::string hardName(const std::string& name) {
        std::array<char, kLocationBufferSize> buffer{'?'};
        const int result = GetHardName(name.c_str(), buffer.data());
        return (result == 0 ? "0 " : "1 ") + std::string(buffer.data());
    }

    static std::string softName(const std::string& path) {
        std::array<char, kLocationBufferSize> buffer{'?'};
        const int result = GetSoftName(path.c_str(), buffer.data());
        return (result == 0 ? "0 " : "1 ") + std::string(buffer.data());
    }

    testsupport::Installation installation;
    testsupport::TemporaryDirectory directory;
    const fs::path project = directory / "project";
    std::vector<std::string> errors;
};

TEST_F(LocationMap, TurnsSoftNamesIntoRealPaths) {
    const ScopedEnvironment set("OV_TEST_PARTS", "/net/parts");
    const ScopedEnvironment home("HOME", "/home/ann");
    writeFile(installation.site() / "location.map", "$FIRST /site\n$SITE site parts\n");
    define("\xEF\xBB\xBF# ours\r\n  $FIRST   /first  \r\n$FIRST /second\r\n\r\n$REL ..\\shared\\\r\n"
           "$EQ = \"/with blanks\"\r\n$ENV %OV_TEST_PARTS%/v2\r\n$DEEP $ENV/deep\r\n$OUT $SITE\r\n"
           "$A $B/x\r\n$B $A/y\r\n$SELF $SELF\r\n$LOST $NONE/z\r\n$ROOT /\r\n"
           "$DRIVE c:\\..\r\n$HOME ~/lib\r\n$WEB http://parts.example/lib/\r\n$PARTS $WEB/parts\r\n");
    const std::string site = installation.site().string();
    struct Row {
        std::string name, result;
    };
    const std::array rows{
        Row{"$FIRST", "0 /first"},
        Row{"$FIRST\\a\\b c.ini", "0 /first/a/b c.ini"},
        Row{"$REL/x", "0 " + (directory / "shared/x").string()},
        Row{"$EQ/x", "0 /with blanks/x"},
        Row{"$DEEP/x", "0 /net/parts/v2/deep/x"},
        Row{"$OUT", "0 " + site + "/site parts"},
        Row{"$ROOT/x", "0 /x"},
        Row{"$ROOT", "0 /"},
        Row{"$DRIVE/x", "0 c:/x"},
        Row{"$HOME/x", "0 /home/ann/lib/x"},
        Row{"$WEB", "0 http://parts.example/lib"},
        Row{"$PARTS\\x", "0 http://parts.example/lib/parts/x"},
        Row{"$first/x", "1 "},
        Row{"$FIRSTS/x", "1 "},
        Row{"$A/x", "1 "},
        Row{"$SELF", "1 "},
        Row{"$LOST/x", "1 "},
        Row{"$", "1 "},
        Row{"plain/$FIRST", "1 ?"},
        Row{"", "1 ?"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(hardName(row.name), row.result) << row.name;

    InitLocationMap(project.c_str(), 0);
    EXPECT_EQ(hardName("$FIRST"), "0 /first") << "a project's directory serves as well as its file";
    InitLocationMap(nullptr, 0);
    EXPECT_EQ(hardName("$FIRST"), "0 /site");
    EXPECT_TRUE(errors.empty());
}

TEST_F(LocationMap, NeverWritesBeyondTheBuffer) {
    define("$P /p\n$LONG /" + std::string(10'000, 'l') + "\n");
    const std::string fits(kLocationBufferSize - 4, 'x');
    EXPECT_EQ(hardName("$P/" + fits), "0 /p/" + fits);
    EXPECT_EQ(hardName("$P/" + fits + "x"), "1 ?");
    EXPECT_EQ(hardName("$P/" + std::string(10'000, 'x')), "1 ?");
    EXPECT_EQ(hardName("$LONG"), "1 ?");
    EXPECT_EQ(softName("/p/" + fits), "0 $P/" + fits);
    EXPECT_EQ(softName("/p/" + fits + "x"), "1 ?");
    EXPECT_NE(GetHardName(nullptr, nullptr), 0);
}

TEST_F(LocationMap, FindsTheLongestDirectoryAboveAPath) {
    define("$P /p\n$PARTS /p/parts/\n$SAME /p/parts\n$OLD $P/parts/old\n$LOST $NONE\n$WEB http://h/p/\n");
    struct Row {
        const char *path, *result;
    };
    constexpr std::array rows{
        Row{"/p/parts/a.ini", "0 $PARTS/a.ini"},
        Row{"\\p\\parts\\old\\a", "0 $OLD/a"},
        Row{"/p/partsbin/a", "0 $P/partsbin/a"},
        Row{"/p/x/../parts", "0 $PARTS"},
        Row{"http://h/p/a", "0 $WEB/a"},
        Row{"http:/h/p/a", "1 ?"},
        Row{"/P/a", "1 ?"},
        Row{"p/parts", "1 ?"},
        Row{"", "1 ?"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(softName(row.path), row.result) << row.path;
}

TEST_F(LocationMap, PassesOverWhatItCannotReadAndSaysSoOnce) {
    writeFile(installation.site() / "location.map", std::string("$S \0", 4));
    const std::string map = "$GOOD /good\nNAME /x\n$ /x\n$NODIR\n$A/B /x\n$LATE /late\n";
    define(map);
    InitLocationMap(project.c_str(), 0);
    EXPECT_EQ(hardName("$LATE"), "0 /late");
    EXPECT_EQ(hardName("$NODIR"), "1 ");
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_NE(errors[0].find("location.map:2:"), std::string::npos) << errors[0];
}

TEST_F(LocationMap, TheKernelFindsWhatExists) {
    const ScopedEnvironment parts("OV_TEST_PARTS", (directory / "parts").string());
    const ScopedEnvironment unset("OV_TEST_UNSET", std::nullopt);
    fs::create_directory(directory / "parts");
    writeFile(directory / "parts/Main.lmc", "");
    writeFile(project / "demo.prj", "");
    define("$LIB ../parts\n");
    const std::string found = (directory / "parts/Main.lmc").string();
    KernelContext* context = KernelOpenContext((project / "demo.prj").c_str());
    ASSERT_NE(context, nullptr);
    struct Row {
        std::string name;
        bool resolved;
    };
    const std::array rows{
        Row{"$LIB/Main.lmc", true},
        Row{"$lib\\MAIN.lmc", true},
        Row{"$OV_TEST_PARTS/main.lmc", true},
        Row{"%OV_TEST_PARTS%/Main.lmc", true},
        Row{"..\\parts\\Main.lmc", true},
        Row{found, true},
        Row{"$LIB/none.lmc", false},
        Row{"$OV_TEST_UNSET/Main.lmc", false},
        Row{"%OV_TEST_UNSET%/Main.lmc", false},
        Row{"", false},
        Row{std::string(10'000, 'x'), false},
    };
    for (const Row& row : rows) {
        std::array<char, kLocationBufferSize> buffer{'?'};
        EXPECT_EQ(KernelResolveName(row.name.c_str(), buffer.data(), context) != 0, row.resolved) << row.name;
        EXPECT_EQ(buffer.data(), row.resolved ? found : "?") << row.name;
    }
    KernelCloseContext(&context);
    EXPECT_EQ(context, nullptr);
    KernelCloseContext(&context);
    for (const fs::path& none : {project / "none.prj", project, fs::path()})
        EXPECT_EQ(KernelOpenContext(none.c_str()), nullptr) << none;
}

} // namespace
