#include "suite/locationmap.h"

#include "suite/kernel.h"
#include "suite/projectfile.h"
#include "tests/support/projecterrors.h"
#include "tests/support/testsupport.h"

#include <array>
#include <functional>

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

TEST_F(LocationMap, NoValueOfTheEnvironmentGetsIntoALocationOnAServer) {
    const ScopedEnvironment secret("OV_TEST_SECRET", "hush");
    const ScopedEnvironment server("OV_TEST_SERVER", "https://parts.example/lib");
    const ScopedEnvironment soft("OV_TEST_SOFT", "$ROOM/x");
    const ScopedEnvironment scheme("OV_TEST_SCHEME", "ht");
    writeFile(project / "demo.prj", "");
    define("$WEB http://h/%OV_TEST_SECRET%\n$ROOM ftp://h/r\n$VIA $ROOM/%OV_TEST_SECRET%\n"
           "$SERVER %OV_TEST_SERVER%\n$SOFT %OV_TEST_SOFT%\n$SPLIT %OV_TEST_SCHEME%tp://h\n"
           "$HERE /%OV_TEST_SECRET%\n");
    const std::pair<std::string, std::string> rows[] = {
        {"$WEB/a", "0 http://h/%OV_TEST_SECRET%/a"},
        {"$VIA/a", "0 ftp://h/r/%OV_TEST_SECRET%/a"},
        {"$SERVER/a", "1 "},
        {"$SOFT/a", "1 "},
        {"$SPLIT/a", "1 "},
        {"$HERE/a", "0 /hush/a"},
    };
    for (const auto& [name, result] : rows)
        EXPECT_EQ(hardName(name), result) << name;
    EXPECT_EQ(softName("http://h/%OV_TEST_SECRET%/a"), "0 $WEB/a");
    EXPECT_EQ(errors.size(), 3u);
    for (const std::string& error : errors)
        EXPECT_TRUE(contains(error, " is not resolved: the environment must not make it a location"));

    const std::pair<std::string, std::string> paths[] = {
        {"https://h/%OV_TEST_SECRET%", "https://h/%OV_TEST_SECRET%"},
        {"$ROOM/%OV_TEST_SECRET%", "ftp://h/r/%OV_TEST_SECRET%"},
        {"%OV_TEST_SOFT%/a", "%OV_TEST_SOFT%/a"},
        {"%OV_TEST_SERVER%/a", "%OV_TEST_SERVER%/a"},
        {"%OV_TEST_SCHEME%tp://h", "%OV_TEST_SCHEME%tp://h"},
        {"$HERE/%OV_TEST_SECRET%", "/hush/hush"},
    };
    NProjectTools::CProjectFile file;
    for (const auto& [text, full] : paths) {
        writeFile(project / "demo.prj", "[DesignInfo]\nDatabase=" + text + "\n");
        ASSERT_TRUE(file.openProjectFile((project / "demo.prj").string()));
        EXPECT_EQ(file.GetDatabasePath(1), full);
    }
}

TEST_F(LocationMap, WhatOutgrowsItsLimitIsToldAndNotResolved) {
    const ScopedEnvironment variable("OV_TEST_LONG", std::string(1000, 'v'));
    writeFile(installation.site() / "location.map", "$S /site\n");
    fs::resize_file(installation.site() / "location.map", (8u << 20) + 1);
    std::string repeated;
    for (int i = 0; i < 500'000; ++i)
        repeated += "%OV_TEST_LONG%";
    define("$L " + repeated + "\n$GROWN $LONG" + std::string(30'000, 'x') + "\n$LONG" +
           std::string(30'000, 'x') + " /" + std::string(65'536, 'y') + "\n$OK /ok\n");
    EXPECT_EQ(hardName("$S"), "1 ");
    EXPECT_EQ(hardName("$OK"), "0 /ok");
    EXPECT_EQ(hardName("$L/x"), "1 ");
    EXPECT_EQ(hardName("$GROWN"), "1 ");
    ASSERT_EQ(errors.size(), 3u);
    EXPECT_TRUE(errors[0].ends_with("cannot read: File too large (the limit is 8 MiB)")) << errors[0];
    EXPECT_TRUE(contains(errors[1], "location.map: $L is not resolved: it is longer than 64 KiB"));
    EXPECT_TRUE(contains(errors[2], "location.map: $GROWN is not resolved: it is longer than 64 KiB"));

    errors.clear();
    const std::string longPath(5000, '/');
    writeFile(project / "demo.prj", "[DesignInfo]\nDatabase=" + longPath + "\nBorderSymbols=" + repeated);
    NProjectTools::CProjectFile file;
    ASSERT_TRUE(file.openProjectFile((project / "demo.prj").string()));
    EXPECT_EQ(file.GetDatabasePath(1), longPath);
    EXPECT_EQ(file.GetBorderSymbolsPath(1), repeated);
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_TRUE(contains(errors[0], "a path of the project is not resolved: it is longer than 4095 bytes"));
    EXPECT_TRUE(contains(errors[1], "a path of the project is not resolved: it is longer than 64 KiB"));
}

TEST_F(LocationMap, AFileIsReadAnewWhenItChangedAndNotForEachName) {
    define("$P /one\n");
    EXPECT_EQ(hardName("$P"), "0 /one");
    define("$P /two\n"); // as long, and in the same moment
    EXPECT_EQ(hardName("$P"), "0 /two");
    // One that has been there for a while.
    const fs::path sample = fs::path(OV_SAMPLES) / "motorcontroller";
    ASSERT_TRUE(fs::exists(sample / "location.map"));
    const auto readCallsOf = [](const std::function<void()>& work) {
        const auto calls = [] {
            const std::string counts = readFile("/proc/self/io");
            return std::stol(counts.substr(counts.find("syscr: ") + 7));
        };
        const long before = calls();
        work();
        return calls() - before;
    };
    const long ownCalls = readCallsOf([] {});
    const auto prepare = [&] {
        InitLocationMap(sample.c_str(), 0);
    };
    EXPECT_GT(readCallsOf(prepare), ownCalls);
    EXPECT_EQ(readCallsOf(prepare), ownCalls);
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
