#include "suite/locationmap.h"

#include "suite/kernel.h"
#include "tests/support/projecterrors.h"
#include "tests/support/testsupport.h"

#include <array>

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

class LocationMap : public testing::Test, protected ProjectErrors {
protected:
    LocationMap() {
        fs::create_directory(project);
        fs::create_directories(installation.site());
    }

    void define(const std::string& text) {
        writeFile(project / "location.map", text);
        ASSERT_EQ(InitLocationMap((project / "demo.prj").c_str(), 0), 0);
    }

    static std::string answer(int (*look)(const char*, char*), const std::string& name) {
        std::array<char, kLocationBufferSize> buffer{'?'};
        const int result = look(name.c_str(), buffer.data());
        return (result == 0 ? "0 " : "1 ") + std::string(buffer.data());
    }
    static std::string hardName(const std::string& name) { return answer(&GetHardName, name); }
    static std::string softName(const std::string& path) { return answer(&GetSoftName, path); }

    Installation installation;
    TemporaryDirectory directory;
    const fs::path project = directory / "project";
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
    const std::pair<std::string, std::string> rows[] = {
        {"$FIRST", "0 /first"},
        {"$FIRST\\a\\b c.ini", "0 /first/a/b c.ini"},
        {"$REL/x", "0 " + (directory / "shared/x").string()},
        {"$EQ/x", "0 /with blanks/x"},
        {"$DEEP/x", "0 /net/parts/v2/deep/x"},
        {"$OUT", "0 " + site + "/site parts"},
        {"$ROOT/x", "0 /x"},
        {"$ROOT", "0 /"},
        {"$DRIVE/x", "0 c:/x"},
        {"$HOME/x", "0 /home/ann/lib/x"},
        {"$WEB", "0 http://parts.example/lib"},
        {"$PARTS\\x", "0 http://parts.example/lib/parts/x"},
        {"plain/$FIRST", "1 ?"},
        {"", "1 ?"},
    };
    for (const auto& [name, result] : rows)
        EXPECT_EQ(hardName(name), result) << name;
    for (const char* unknown : {"$first/x", "$FIRSTS/x", "$A/x", "$SELF", "$LOST/x", "$"})
        EXPECT_EQ(hardName(unknown), "1 ") << unknown;

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
    const std::pair<const char*, const char*> rows[] = {
        {"/p/parts/a.ini", "0 $PARTS/a.ini"}, {"\\p\\parts\\old\\a", "0 $OLD/a"},
        {"/p/partsbin/a", "0 $P/partsbin/a"}, {"/p/x/../parts", "0 $PARTS"},
        {"http://h/p/a", "0 $WEB/a"},
    };
    for (const auto& [path, result] : rows)
        EXPECT_EQ(softName(path), result) << path;
    for (const char* elsewhere : {"http:/h/p/a", "/P/a", "p/parts", ""})
        EXPECT_EQ(softName(elsewhere), "1 ?") << elsewhere;
}

TEST_F(LocationMap, PassesOverWhatItCannotReadAndSaysSoOnce) {
    writeFile(installation.site() / "location.map", std::string("$S \0", 4));
    const std::string map = "$GOOD /good\nNAME /x\n$ /x\n$NODIR\n$A/B /x\n$LATE /late\n";
    define(map);
    InitLocationMap(project.c_str(), 0);
    EXPECT_EQ(hardName("$LATE"), "0 /late");
    EXPECT_EQ(hardName("$NODIR"), "1 ");
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_TRUE(contains(errors[0], "location.map:2:"));
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
    const auto resolved = [&](const std::string& name) {
        std::array<char, kLocationBufferSize> buffer{'?'};
        const bool known = KernelResolveName(name.c_str(), buffer.data(), context) != 0;
        return std::string(known ? "" : "unknown ") + buffer.data();
    };
    for (const std::string& name :
         {std::string("$LIB/Main.lmc"), std::string("$LIB\\MAIN.lmc"),
          std::string("%OV_TEST_PARTS%/Main.lmc"), std::string("..\\parts\\Main.lmc"), found})
        EXPECT_EQ(resolved(name), found) << name;
    for (const std::string& name :
         {std::string("$LIB/none.lmc"), std::string("$lib/Main.lmc"), std::string("$OV_TEST_PARTS/Main.lmc"),
          std::string("%OV_TEST_UNSET%/Main.lmc"), std::string(), std::string(10'000, 'x')})
        EXPECT_EQ(resolved(name), "unknown ?") << name;
    KernelCloseContext(&context);
    EXPECT_EQ(context, nullptr);
    KernelCloseContext(&context);
    for (const fs::path& none : {project / "none.prj", project, fs::path()})
        EXPECT_EQ(KernelOpenContext(none.c_str()), nullptr) << none;
}

} // namespace
