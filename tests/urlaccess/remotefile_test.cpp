#include "platform/remotefile.h"

#include "platform/paths.h"
#include "suite/zec.h"
#include "tests/support/childprocess.h"
#include "tests/urlaccess/httpserver.h"

#include <sys/stat.h>

#include <algorithm>
#include <future>
#include <utility>

namespace fs = std::filesystem;

namespace {

using namespace testsupport;

constexpr std::size_t kMoreThanIsRead = 3u << 20;
/// A silent server costs four seconds at most; the rest is for a busy machine.
constexpr std::chrono::seconds kPatience{20};

std::string readAll(const std::string& path) {
    platform::RemoteStream* stream = platform::RemoteOpen(path, "r");
    if (!stream)
        return "(none)";
    std::string all;
    char buffer[4096];
    while (platform::RemoteGets(buffer, sizeof buffer, stream))
        all += buffer;
    platform::RemoteClose(stream);
    return all;
}

TEST(RemoteFile, ALocationIsRemoteByItsExactBeginning) {
    for (const char* path :
         {"http:", "ftp://host/lib", "https://host", "\"http://host/my lib\"", "http:\\\\host\\lib"})
        EXPECT_TRUE(platform::IsRemotePath(path)) << path;
    for (const char* path : {"", "\"", "HTTP://host", "httpss://host", "\"\"http://host", "/http:", "ftp"})
        EXPECT_FALSE(platform::IsRemotePath(path)) << path;
}

TEST(RemoteFile, PathsAreJoinedAndTested) {
    const TemporaryDirectory directory;
    writeFile(directory / "Sym.lib", "x");
    fs::create_directory(directory / "SCH");
    const std::string root = directory.path().string();
    using platform::PathKind;
    EXPECT_EQ(platform::TestPathKind(platform::MakeFilePath(root + "\\", "sym", "lib"), PathKind::file), 0);
    EXPECT_NE(platform::TestPathKind(root + "/sym.lib", PathKind::directory), 0);
    EXPECT_EQ(platform::TestPathKind(root + "\\sch", PathKind::directory), 0);
    EXPECT_NE(platform::TestPathKind(root + "/s?h", PathKind::directory), 0);
    EXPECT_NE(platform::TestPathKind("", PathKind::directory), 0);
}

TEST(LibCfg, TheFirstLineThatBeginsWithAliasGivesTheName) {
    const TemporaryDirectory directory;
    const std::string filler(255, '#');
    const std::pair<std::string, std::string> rows[] = {
        {"# our alias parts\n\talias parts \r\nalias other\n", "parts"},
        {"alias two words", "two words"},
        {"Alias a\naliases\nalias\nalias \nan alias b\nalias\tc\n", ""},
        {filler + "alias rest\n", "rest"},
        {filler.substr(1) + "\nalias next\n", "next"},
        {std::string("\0\xff\0alias a\nalias b", 18), "b"},
        {"alias " + std::string(300, 'a'), std::string(249, 'a')},
        {"", ""},
    };
    for (const auto& [text, alias] : rows) {
        writeFile(directory / "lib.cfg", text);
        EXPECT_EQ(ZECReadAlias(directory.path().string()), alias) << text;
    }
}

TEST(LibCfg, WhatIsNoReadableFileGivesNoNameAndNoWait) {
    const TemporaryDirectory directory;
    const fs::path file = directory / "lib.cfg";
    const auto alias = [&] {
        return ZECReadAlias(directory.path().string());
    };
    fs::create_directory(file);
    EXPECT_EQ(alias(), "");
    fs::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(alias(), "");
    fs::remove(file);
    writeFile(file, "");
    fs::resize_file(file, 1u << 30);
    EXPECT_EQ(alias(), "");
    writeFile(file, "alias secret\n");
    fs::permissions(directory.path(), fs::perms::all);
    fs::permissions(file, fs::perms::none);
    EXPECT_EQ(runUnprivileged([&] { return alias().empty() ? 0 : 1; }), 0);
}

TEST(UrlAccess, ARemoteLibrarysFileIsReadLikeALocalOne) {
    HttpServer server;
    server.serve("/my%20parts%23%3F/lib.cfg", "# Parts\n alias parts \n");
    server.serve("/empty", "");
    server.redirect("/moved", "/my%20parts%23%3F/lib.cfg");
    std::string path = server.url("/my parts#?");
    std::ranges::replace(path, '/', '\\');
    EXPECT_EQ(ZECReadAlias(path), "parts");
    EXPECT_EQ(ZECReadAlias('"' + path + '"'), "parts");
    EXPECT_EQ(readAll(server.url("/moved")), "# Parts\n alias parts \n");
    EXPECT_EQ(readAll(server.url("/empty")), "");
    EXPECT_EQ(readAll(server.url("/missing")), "(none)");
    EXPECT_EQ(platform::RemoteOpen(server.url("/empty"), "w"), nullptr);
    EXPECT_EQ(platform::RemoteOpen(server.url("/empty"), "r+"), nullptr);
}

TEST(UrlAccess, OnlyWhatAnswersInFullCanBeReached) {
    HttpServer server;
    server.serve("/file", "x");
    server.serve("/large", std::string(kMoreThanIsRead, '#'));
    server.answer("/listed/", HttpServer::Answer::longList);
    server.redirect("/listed", "/listed/");
    server.redirect("/secure", "https://127.0.0.1/");
    server.redirect("/disk", "file:///etc/passwd");
    server.answer("/unlisted/", HttpServer::Answer::forbidden);
    server.answer("/secret", HttpServer::Answer::forbidden);
    server.answer("/loop", HttpServer::Answer::redirectLoop);
    server.answer("/early", HttpServer::Answer::closesEarly);
    server.answer("/once", HttpServer::Answer::closesAtOnce);
    server.answer("/endless", HttpServer::Answer::endlessBody);
    server.answer("/huge", HttpServer::Answer::hugeBody);
    server.answer("/headers", HttpServer::Answer::endlessHeaders);
    struct Row {
        std::string path;
        int kind;
    };
    const Row rows[] = {
        {server.url("/file"), 3},
        {server.url("/listed"), 2},
        {server.url("/unlisted/"), 2},
        {server.url("/large"), 3},
        {server.url("/endless"), platform::kRemoteUnreachable},
        {server.url("/huge"), platform::kRemoteUnreachable},
        {server.url("/secret"), platform::kRemoteUnreachable},
        {server.url("/missing"), platform::kRemoteUnreachable},
    };
    for (const Row& row : rows) {
        const platform::RemoteAnswer answer = platform::askRemote(row.path);
        EXPECT_EQ(answer.kind, row.kind) << row.path;
        EXPECT_TRUE(answer.answered) << row.path;
    }
    for (const std::string& path :
         {server.url("/loop"), server.url("/early"), server.url("/once"), server.url("/headers"),
          server.url("/secure"), server.url("/disk"), std::string("http://127.0.0.1:1/refused"),
          std::string("ftp://127.0.0.1:1/refused"), std::string("http:"), std::string("http://host\n/"),
          std::string("/local")}) {
        const platform::RemoteAnswer answer = platform::askRemote(path);
        EXPECT_EQ(answer.kind, platform::kRemoteUnreachable) << path;
        EXPECT_FALSE(answer.answered) << path;
    }
    for (const char* path : {"/early", "/endless", "/huge", "/large"})
        EXPECT_EQ(readAll(server.url(path)), "(none)") << path;
}

TEST(UrlAccess, AServerSendsNobodyToAnotherHostOrToAPlainerScheme) {
    HttpServer encrypted(HttpServer::Kind::encrypted);
    HttpServer server;
    server.serve("/file", "x");
    // One machine under two names: it is the name that counts.
    std::string elsewhere = server.url("/file");
    elsewhere.replace(elsewhere.find("127.0.0.1"), 9, "localhost");
    const std::string authority = elsewhere.substr(std::string("http://localhost").size());
    struct Row {
        const char* path;
        std::string target;
        bool followed;
        int requests = followed ? 2 : 1;
    };
    const Row rows[] = {
        {"/relative", "file", true},
        {"/here", server.url("/file"), true},
        {"/twice", "/relative", true, 3},
        {"/shouted", "HTTP" + server.url("/file").substr(4), true},
        {"/other", elsewhere, false},
        {"/hop", "/other", false, 2},
        {"/noscheme", elsewhere.substr(5), false},
        {"/user", "http://127.0.0.1@localhost" + authority, false},
        {"/ftp", "ftp://127.0.0.1:1/file", false},
        {"/disk", "file:///etc/passwd", false},
        {"/nothing", "http://", false},
    };
    for (const Row& row : rows)
        server.redirect(row.path, row.target);
    for (const Row& row : rows) {
        const int before = server.requests();
        const std::string path = server.url(row.path);
        EXPECT_EQ(platform::ProbeRemote(path), row.followed ? 3 : platform::kRemoteUnreachable) << row.path;
        EXPECT_EQ(readAll(path), row.followed ? "x" : "(none)") << row.path;
        EXPECT_EQ(server.requests() - before, 2 * row.requests) << row.path;
    }
    server.redirect("/upgrade", encrypted.url("/file"));
    EXPECT_EQ(readAll(server.url("/upgrade")), "(none)") << "nobody answers for its certificate";
    EXPECT_EQ(encrypted.handshakes(), 1);
}

TEST(UrlAccess, AnEncryptedServerHasToProveWhoItIs) {
    HttpServer server(HttpServer::Kind::encrypted);
    server.serve("/file", "x");
    EXPECT_EQ(platform::ProbeRemote(server.url("/file")), platform::kRemoteUnreachable);
    EXPECT_EQ(server.handshakes(), 1);
    EXPECT_EQ(server.requests(), 0);
}

TEST(UrlAccess, ASlowServerIsGivenUpByEveryThreadThatAsks) {
    HttpServer server;
    server.answer("/silence", HttpServer::Answer::silence);
    server.answer("/drip", HttpServer::Answer::drip);
    const auto begin = std::chrono::steady_clock::now();
    std::vector<std::future<int>> kinds;
    for (const char* path : {"/silence", "/drip", "/silence", "/drip"})
        kinds.push_back(
            std::async(std::launch::async, [url = server.url(path)] { return platform::ProbeRemote(url); }));
    for (auto& kind : kinds)
        EXPECT_EQ(kind.get(), platform::kRemoteUnreachable);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kPatience);
}

} // namespace
