#include "suite/zec.h"

#include "tests/support/childprocess.h"
#include "tests/urlaccess/httpserver.h"

namespace fs = std::filesystem;

namespace {

using namespace testsupport;

TEST(Zec, ALibraryNameIsALetterThenLettersDigitsAndUnderscores) {
    for (const char* name : {"a", "Parts_2"})
        EXPECT_TRUE(ZECIsValidAlias(name)) << name;
    EXPECT_TRUE(ZECIsValidAlias(std::string(65, 'a')));
    for (const char* name :
         {"", "a b", "2a", "_a", " a", "a-b", "a.b", "\xc3\xa4", "a\xc3\xa4", "a\n", "a\tb"})
        EXPECT_FALSE(ZECIsValidAlias(name)) << name;
}

struct Verdict {
    std::string mark; ///< what the location holds; a directory ends in "/"
    bool library, libraryBesideMegafile, megafile;
};

const Verdict kVerdicts[] = {
    {"nothing", false, false, false}, {"sym/", true, true, false},     {"sch/", true, true, false},
    {"sym.lib", true, false, true},   {"sch.lib", true, false, false},
};

void expectVerdict(const std::string& path, const Verdict& verdict) {
    EXPECT_EQ(ZECIsValidLibrary(path, 1) != 0, verdict.library) << path << ' ' << verdict.mark;
    EXPECT_EQ(ZECIsValidLibrary(path, 0) != 0, verdict.libraryBesideMegafile) << path << ' ' << verdict.mark;
    EXPECT_EQ(ZECCheckMegafile(path) != 0, verdict.megafile) << path << ' ' << verdict.mark;
}

TEST(Zec, ALibraryIsKnownByWhatItHolds) {
    for (const Verdict& verdict : kVerdicts) {
        const TemporaryDirectory directory;
        if (verdict.mark.ends_with('/'))
            fs::create_directory(directory / verdict.mark);
        else
            writeFile(directory / verdict.mark, "");
        expectVerdict(directory.path().string(), verdict);
    }
    const TemporaryDirectory swapped;
    writeFile(swapped / "sym", "");
    fs::create_directory(swapped / "sym.lib");
    expectVerdict(swapped.path().string(), {"the wrong kinds", false, false, false});
    expectVerdict("", {"an empty path", false, false, false});
    expectVerdict((swapped / "missing").string(), {"a missing directory", false, false, false});
}

TEST(Zec, ARemoteLibraryIsKnownByWhatItsServerHas) {
    HttpServer server;
    for (const Verdict& verdict : kVerdicts) {
        const std::string path = "/" + verdict.mark.substr(0, verdict.mark.find('/')) + ".d";
        server.serve(path + "/" + verdict.mark, "x");
        if (verdict.mark.ends_with('/'))
            server.redirect(path + "/" + verdict.mark.substr(0, 3), path + "/" + verdict.mark);
        expectVerdict(server.url(path), verdict);
    }
    server.serve("/plain/lib.cfg", "alias plain");
    expectVerdict(server.url("/plain"), {"lib.cfg", true, true, false});

    server.answer("/mute/lib.cfg", HttpServer::Answer::closesAtOnce);
    const int before = server.requests();
    EXPECT_FALSE(ZECIsValidLibrary(server.url("/mute"), 1));
    EXPECT_EQ(server.requests(), before + 1) << "a server that gives no answer was asked again";
}

TEST(Zec, ASlowServerIsNotAskedForEverything) {
    struct Row {
        std::chrono::milliseconds each;
        int requests; ///< of five marks, at most
    };
    using namespace std::chrono_literals;
    const Row rows[] = {
        {2200ms, 1},
        {1100ms, 4},
    };
    for (const Row& row : rows) {
        HttpServer server;
        for (const char* mark : {"lib.cfg", "sym", "sch", "sym.lib", "sch.lib"})
            server.missLate(std::string("/lib/") + mark, row.each);
        EXPECT_FALSE(ZECIsValidLibrary(server.url("/lib"), 1));
        EXPECT_LE(server.requests(), row.requests) << row.each.count();
    }
}

TEST(Zec, TheEnvironmentNamesLocations) {
    const TemporaryDirectory directory;
    const std::string root = directory.path().string();
    fs::create_directory(directory / "parts");
    fs::create_directory_symlink(directory / "parts", directory / "link");
    const ScopedEnvironment where("OV_TEST_ROOT", root);
    const ScopedEnvironment aliases("OV_LIBRARY_ALIASES",
                                    ";noise;=x;2bad=" + root +
                                        "/parts; parts = %OV_TEST_ROOT%/parts/ ;again=" + root +
                                        "/parts;net=http://host/lib;gone=" + root + "/gone");
    EXPECT_EQ(ZECFindAlias(root + "\\parts\\"), "parts");
    EXPECT_EQ(ZECFindAlias(root + "/link"), "parts");
    EXPECT_EQ(ZECFindAlias(root + "/gone"), "gone");
    EXPECT_EQ(ZECFindAlias("http:\\\\host\\lib"), "net");
    EXPECT_EQ(ZECFindAlias("\"http://host/lib/\""), "net");
    EXPECT_EQ(ZECFindAlias("http://host/other"), "");
    EXPECT_EQ(ZECFindAlias(""), "");
}

TEST(Zec, WhatPermissionsForbidIsReadOnlyAndCannotBeMade) {
    const TemporaryDirectory directory;
    const std::string root = directory.path().string();
    fs::permissions(directory.path(), fs::perms::all);
    fs::create_directory(directory / "fixed");
    fs::permissions(directory / "fixed", fs::perms::owner_read | fs::perms::others_read |
                                             fs::perms::others_exec | fs::perms::owner_exec);
    fs::create_directory(directory / "open");
    fs::permissions(directory / "open", fs::perms::all);
    writeFile(directory / "file", "");
    fs::permissions(directory / "file", fs::perms::all);
    struct Row {
        std::string path;
        int readOnly, made;
    };
    const Row rows[] = {
        {root + "/open", 0, 1},
        {root + "\\OPEN\\new\\deep\\", 0, 1},
        {root + "/fixed", 1, 1},
        {root + "/fixed/new/deep", 1, 0},
        {root + "/file", 0, 0},
        {root + "/file/below", 1, 0},
        {"/proc/new", 1, 0},
        {"http://host/lib", 1, 0},
        {"C:\\lib", 1, 0},
        {"", 1, 0},
        {root + "/open" + std::string(5000, '/'), 1, 0},
    };
    for (const Row& row : rows) {
        const auto verdict = [&] {
            return 2 * ZECIsReadOnlyFileSystem(row.path) + ZECMakePath(row.path);
        };
        EXPECT_EQ(runUnprivileged(verdict), 2 * row.readOnly + row.made) << row.path;
    }
    EXPECT_TRUE(fs::is_directory(directory / "open/new/deep"));
}

TEST(Zec, PathsLoseAndKeepWhatTheyShould) {
    struct Row {
        std::function<void(std::string&)> change;
        std::string given, result;
    };
    const Row rows[] = {
        {ZECRemoveLastSlash, "/a//", "/a/"},
        {ZECRemoveLastSlash, "a\\", "a"},
        {ZECRemoveLastSlash, "/", "/"},
        {ZECRemoveLastSlash, "C:\\", "C:\\"},
        {ZECRemoveLastSlash, "", ""},
        {ZECPathRemoveTmpMnt, "/tmp_mnt/net/a", "/net/a"},
        {ZECPathRemoveTmpMnt, "\\tmp_mnt\\a", "\\a"},
        {ZECPathRemoveTmpMnt, "/tmp_mnt", "/tmp_mnt"},
        {ZECPathRemoveTmpMnt, "/tmp_mnts/a", "/tmp_mnts/a"},
    };
    for (const Row& row : rows) {
        std::string path = row.given;
        row.change(path);
        EXPECT_EQ(path, row.result) << row.given;
    }
}

} // namespace
