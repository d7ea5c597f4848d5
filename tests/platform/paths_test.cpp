#include "details/platform/paths.h"

#include "details/platform/readfile.h"
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
    };
    constexpr Row kRows[] = {
        {"name.prj", "", "name.prj", true},
        {"a/b\\c", "a/b", "c", false},
        {"a\\b/c", "a\\b", "c", false},
        {"\\c", "", "c", false},
        {"a\\", "a", "", false},
        {"", "", "", true},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(splitPath(row.text).directory, row.directory) << row.text;
        EXPECT_EQ(splitPath(row.text).name, row.name) << row.text;
        EXPECT_EQ(isBareName(row.text), row.bare) << row.text;
    }
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

TEST(ReadFile, TakesRegularFilesOnlyAndNamesTheCause) {
    const testsupport::TemporaryDirectory root;
    const std::string text(100'000, 'x');
    testsupport::writeFile(root / "file", text);
    ASSERT_EQ(mkfifo((root / "pipe").c_str(), 0600), 0);
    std::string bytes;
    EXPECT_FALSE(readFile(root / "file", bytes));
    EXPECT_EQ(bytes, text);
    const std::pair<const char*, int> kRows[] = {{"", EISDIR}, {"pipe", EINVAL}, {"missing", ENOENT}};
    for (const auto& [name, code] : kRows) {
        const auto failure = readFile(root / name, bytes);
        ASSERT_TRUE(failure) << name;
        EXPECT_EQ(failure->code, code) << failure->text();
        EXPECT_TRUE(bytes.empty());
        EXPECT_TRUE(testsupport::contains(failure->text(), (root / name).string() + ": cannot read: "));
    }
}

} // namespace
