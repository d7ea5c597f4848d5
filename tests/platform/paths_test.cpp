#include "platform/paths.h"

#include "platform/environmentreferences.h"
#include "platform/readfile.h"
#include "tests/support/testsupport.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>

namespace {

using namespace platform;

TEST(Paths, SplitAtTheLastSeparatorOfEitherKind) {
    struct Row {
        const char *text, *directory, *name;
        bool bare;
        const char* directoryOf;
    };
    constexpr Row kRows[] = {
        {"name.prj", "", "name.prj", true, ""}, {"a/b\\c", "a/b", "c", false, "a/b"},
        {"a\\b/c", "a\\b", "c", false, "a\\b"}, {"\\c", "", "c", false, "/"},
        {"a\\", "a", "", false, "a"},           {"", "", "", true, ""},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(splitPath(row.text).directory, row.directory) << row.text;
        EXPECT_EQ(splitPath(row.text).name, row.name) << row.text;
        EXPECT_EQ(isBareName(row.text), row.bare) << row.text;
        EXPECT_EQ(directoryOf(row.text), row.directoryOf) << row.text;
    }
}

TEST(Paths, LieBelowADirectoryByWholeNames) {
    struct Row {
        const char *path, *directory;
        std::optional<std::string_view> rest;
    };
    const Row kRows[] = {
        {"/boards/v12/a", "/boards/v1", std::nullopt},
        {"/boards/v1/a", "/boards\\v1\\/", "/a"},
        {"/boards/v1", "/boards/v1", ""},
        {"/a", "\\", "/a"},
        {"/a", "", "/a"},
        {"a", "", std::nullopt},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(restBehind(row.path, asDirectoryEntry(row.directory)), row.rest) << row.path;
    EXPECT_EQ(MakeFilePath("/", "a", "b"), "/a.b");
    EXPECT_EQ(MakeFilePath("", "a"), "a");
}

TEST(Paths, AreFoundInTheirOwnSpellingFirstAndThenWithoutRegardToCase) {
    const testsupport::TemporaryDirectory root;
    for (const char* name : {"Libs/Parts.lib", "Libs/PARTS.LIB", "Other/x", "other/only"})
        testsupport::writeFile(root.path() / name, name);
    struct Row {
        const char *asked, *found;
    };
    constexpr Row kRows[] = {
        {"Libs/Parts.lib", "Libs/Parts.lib"},
        {"libs\\parts.lib", "Libs/PARTS.LIB"},
        {"LIBS/PARTS.LIB", "Libs/PARTS.LIB"},
        {"other\\ONLY", "other/only"},
        {"Other/only", nullptr},
        {"LIBS\\", "Libs/"},
        {"libs/\\//parts.lib", "Libs/PARTS.LIB"},
        {"/Libs//Parts.lib", "Libs/Parts.lib"},
        {"libs/../OTHER/X", "Libs/../Other/x"},
        {"nothing/x", nullptr},
    };
    for (const Row& row : kRows) {
        const auto found = resolveExisting(root.path().string() + "\\" + row.asked);
        EXPECT_EQ(found.value_or("none"), row.found ? (root.path() / row.found).string() : "none")
            << row.asked;
    }
    EXPECT_EQ(resolveExisting(""), std::nullopt);
}

TEST(Paths, FullPathBeginsAtTheRootAndIsSpelledAsOnDisk) {
    const testsupport::TemporaryDirectory root;
    testsupport::writeFile(root / "Forms/a.frm", "");
    testsupport::writeFile(root / "far/away/b.frm", "");
    std::filesystem::create_directory_symlink("far/away", root / "link");
    const std::string here = std::filesystem::current_path().string();
    const std::string directory = root.path().string();
    const std::array<std::pair<std::string, std::string>, 9> rows{{
        {directory + "/link/../away/b.frm", directory + "/far/away/b.frm"},
        {directory + "/link/../new", directory + "/far/new"},
        {directory + "/Forms/../link/b.frm", directory + "/link/b.frm"},
        {directory + "/Forms/../FORMS\\A.FRM", directory + "/Forms/a.frm"},
        {directory + "/./x/../missing", directory + "/missing"},
        {"missing\\x", here + "/missing/x"},
        {"\\missing", "/missing"},
        {"C:\\forms\\a.frm", "C:\\forms\\a.frm"},
        {"\\\\server\\a.frm", "\\\\server\\a.frm"},
    }};
    for (const auto& [path, full] : rows)
        EXPECT_EQ(platform::fullPath(path), full) << path;
}

TEST(Paths, WhatNoSystemTakesIsNoPathAndStaysAsItIs) {
    const testsupport::TemporaryDirectory root;
    const std::string directory = root.path().string();
    const std::string slashes(1'000'000, '/');
    std::string names = directory;
    for (int i = 0; i < 500'000; ++i)
        names += "/a\\..";
    for (const std::string& path : {slashes, directory + slashes, slashes + directory, names}) {
        EXPECT_FALSE(resolveExisting(path));
        EXPECT_EQ(platform::fullPath(path), path);
        EXPECT_EQ(withoutDots(path), path);
        EXPECT_TRUE(Place(path) == Place(path));
        EXPECT_FALSE(Place(path) == Place(directory));
    }
    const std::string longest = directory + std::string(kLongestPath - directory.size(), '/');
    EXPECT_EQ(resolveExisting(longest), directory + '/');
    EXPECT_FALSE(resolveExisting(longest + '/'));
}

TEST(Environment, ReferencesAreExpandedUpToALimit) {
    const testsupport::ScopedEnvironment variable("OV_TEST_LONG", std::string(1000, 'v'));
    const testsupport::ScopedEnvironment unset("OV_TEST_UNSET", std::nullopt);
    const testsupport::ScopedEnvironment scheme("OV_TEST_SCHEME", "ht");
    const testsupport::ScopedEnvironment server("OV_TEST_SERVER", "https://parts.example");
    const auto repeated = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "%OV_TEST_LONG%";
        return text;
    };
    EXPECT_EQ(expandEnvironmentReferences(repeated(65)), std::string(65'000, 'v'));
    const std::string unknown = "100 %%OV_TEST_UNSET%";
    EXPECT_EQ(expandEnvironmentReferences(unknown + "%OV_TEST_SCHEME%"), unknown + "ht");
    // What is on a server, and what would be, stays as it is.
    for (const std::string& text :
         {repeated(66), repeated(500'000), std::string("http://host/%OV_TEST_SCHEME%"),
          std::string("\"https://host/%OV_TEST_SCHEME%"), std::string("%OV_TEST_SERVER%/parts"),
          std::string("%OV_TEST_SCHEME%tp://host/%OV_TEST_SCHEME%")})
        EXPECT_EQ(expandEnvironmentReferences(text), text) << text.substr(0, 60);
}

TEST(ReadFile, WhatIsTooLargeIsToldWithTheLimit) {
    const testsupport::TemporaryDirectory root;
    const std::string file = root / "file";
    testsupport::writeFile(file, "");
    for (const auto& [limit, words] :
         {std::pair(kLargestDocument, "8 MiB"), std::pair(kLargestFile, "64 MiB"),
          std::pair(std::size_t{1000}, "1000 bytes")}) {
        std::filesystem::resize_file(file, limit);
        EXPECT_TRUE(readFile(file, limit));
        std::filesystem::resize_file(file, limit + 1);
        EXPECT_EQ(readFile(file, limit).errorText(),
                  file + ": cannot read: File too large (the limit is " + words + ")");
    }
}

TEST(ReadFile, TakesRegularFilesOnlyAndNamesTheCause) {
    const testsupport::TemporaryDirectory root;
    const std::string text(100'000, 'x');
    testsupport::writeFile(root / "file", text);
    ASSERT_EQ(mkfifo((root / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(*readFile(root / "file"), text);
    const std::pair<const char*, int> kRows[] = {{"", EISDIR}, {"pipe", EINVAL}, {"missing", ENOENT}};
    for (const auto& [name, code] : kRows) {
        const auto read = readFile(root / name);
        EXPECT_EQ(read.code(), code) << name;
        EXPECT_TRUE(testsupport::contains(read.errorText(), (root / name).string() + ": cannot read: "));
    }
}

} // namespace
