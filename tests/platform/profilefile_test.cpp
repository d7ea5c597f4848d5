#include "platform/profilefile.h"

#include "platform/atomicfile.h"
#include "tests/support/childprocess.h"
#include "tests/support/testsupport.h"

#include <sys/stat.h>

#include <cerrno>

using platform::ProfileFile;

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

constexpr std::optional<std::string_view> kNone;

class ProfileFiles : public testing::Test {
protected:
    fs::path path() const { return directory / "scripts.ini"; }

    ProfileFile loaded(const std::string& text, std::size_t limit = 1024) const {
        writeFile(path(), text);
        ProfileFile file(path().string(), limit);
        EXPECT_TRUE(file.load());
        return file;
    }

    TemporaryDirectory directory;
};

TEST_F(ProfileFiles, ReadsNamesWithoutCaseAndValuesTrimmedAndUnquoted) {
    const ProfileFile file = loaded("stray=before all sections\n"
                                    "[Tools]\n"
                                    "  Plain =  a b ; c = d \t\r\n"
                                    "double=\"  kept  \"\n"
                                    "single='x'\n"
                                    "twice=\"\"x\"\"\n"
                                    "uneven=\"x'\n"
                                    "one=\"\n"
                                    "empty=\n"
                                    ";comment=no\n"
                                    "no equals sign\n"
                                    "PLAIN=second\n"
                                    " [ other ] ; of [these]\n"
                                    "x=1\n"
                                    "[TOOLS]\n"
                                    "late=no\n"
                                    "[unclosed\n"
                                    "last=y");
    struct Row {
        const char *section, *key, *value;
    };
    constexpr Row rows[] = {
        {"tools", "plain", "a b ; c = d"},
        {"Tools", "DOUBLE", "  kept  "},
        {"Tools", "single", "x"},
        {"Tools", "twice", "\"x\""},
        {"Tools", "uneven", "\"x'"},
        {"Tools", "one", "\""},
        {"Tools", "empty", ""},
        {"Other", "x", "1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(file.get(row.section, row.key, "missing"), row.value) << row.section << ' ' << row.key;
    for (const char* key : {";comment", "no equals sign", "late", "last"})
        EXPECT_EQ(file.get("Tools", key, "missing"), "missing") << key;
    EXPECT_EQ(file.get("", "stray", "missing") + file.get("Absent", "x", "missing"), "missingmissing");
    EXPECT_EQ(file.sectionNames(), (std::vector<std::string>{"Tools", "other"}));
    EXPECT_EQ(file.keys("tools"),
              (std::vector<std::string>{"Plain", "double", "single", "twice", "uneven", "one", "empty"}));
}

TEST_F(ProfileFiles, ChangesOnlyTheLineOfTheEntry) {
    struct Row {
        const char* what;
        std::string before;
        const char *section, *key;
        std::optional<std::string_view> value;
        std::string after;
    };
    const std::string frame =
        "\xEF\xBB\xBF; mine\r\n\r\n [ A ] ; note\r\n  K =  old  \r\n\r\n; next\r\n[B]\r\nk=b\r\n";
    const std::string head = "\xEF\xBB\xBF; mine\r\n\r\n [ A ] ; note\r\n";
    const std::string tail = "\r\n; next\r\n[B]\r\nk=b\r\n";
    const Row rows[] = {
        {"replaced where it stands", frame, "a", "k", "new", head + "  K =  new\r\n" + tail},
        {"same value, same spelling", frame, "a", "k", "old", frame},
        {"added behind the last entry", frame, "a", "n", "1", head + "  K =  old  \r\nn=1\r\n" + tail},
        {"deleted with its line", frame, "a", "k", kNone, head + tail},
        {"nothing to delete", frame, "a", "n", kNone, frame},
        {"nothing to delete from", frame, "c", "n", kNone, frame},
        {"new section at the end", frame, "C", "n", "1", frame + "[C]\r\nn=1\r\n"},
        {"last line without an end", "[A]\nk=1", "A", "n", "2", "[A]\nk=1\nn=2\n"},
        {"header without an end", "[A]", "A", "n", "2", "[A]\nn=2\n"},
        {"section behind a line without an end", "; x", "A", "n", "2", "; x\n[A]\nn=2\n"},
        {"end of the last line is left out still", "[A]\nk = 1", "A", "k", "2", "[A]\nk = 2"},
        {"first of several", "[A]\nk=1\nk=2\n[a]\nk=3\n", "A", "k", "9", "[A]\nk=9\nk=2\n[a]\nk=3\n"},
        {"all of several", "[A]\nk=1\nK=2\n[a]\nk=3\n", "A", "k", kNone, "[A]\n[a]\nk=3\n"},
        {"empty value", "[A]\nk=1\n", "A", "k", "", "[A]\nk=\n"},
        {"quotes where blanks need them", "", "A", "k", " x ", "[A]\nk=\" x \"\n"},
        {"quotes around quotes", "", "A", "k", "'x'", "[A]\nk=\"'x'\"\n"},
        {"bytes that are no text", std::string("\0\x01[\xFF\n[A]\nk=\0\n", 14), "A", "n", "1",
         std::string("\0\x01[\xFF\n[A]\nk=\0\nn=1\n", 18)},
    };
    for (const Row& row : rows) {
        ProfileFile file = loaded(row.before);
        const std::string before = file.get(row.section, row.key, "none");
        EXPECT_TRUE(file.set(row.section, row.key, row.value)) << row.what;
        EXPECT_TRUE(file.save()) << row.what;
        EXPECT_EQ(readFile(path()), row.after) << row.what;
        EXPECT_EQ(file.get(row.section, row.key, "none"), row.value.value_or("none")) << row.what;
    }
}

TEST_F(ProfileFiles, RefusesWhatSuchATextCannotHold) {
    ProfileFile file = loaded("[A]\nk=1\n");
    struct Row {
        const char *section, *key;
        std::string_view value;
    };
    constexpr Row rows[] = {
        {"A", "k", "x\n[B]"}, {"A", "k", "x\ry"}, {"A", "k", std::string_view("\0", 1)},
        {"A", "k=", "x"},     {"A", ";k", "x"},   {"A", "[k", "x"},
        {"A", "  ", "x"},     {"", "k", "x"},     {"A]", "k", "x"},
    };
    for (const Row& row : rows)
        EXPECT_FALSE(file.set(row.section, row.key, row.value)) << row.section << ' ' << row.key;
    EXPECT_TRUE(file.save());
    EXPECT_EQ(readFile(path()), "[A]\nk=1\n");
}

TEST_F(ProfileFiles, LongValueIsCutBetweenCharactersAndWritingItBackLosesNothing) {
    const std::string text = "[A]\nk=" + std::string(1023, 'x') + "\xC3\xA4 and more\n";
    ProfileFile file = loaded(text);
    EXPECT_EQ(file.get("A", "k"), std::string(1023, 'x'));
    EXPECT_TRUE(file.set("A", "k", file.get("A", "k")));
    EXPECT_TRUE(file.save());
    EXPECT_EQ(readFile(path()), text);
}

TEST_F(ProfileFiles, KeepsWhatAnotherProgramWroteMeanwhile) {
    ProfileFile file = loaded("[A]\nmine=1\ntheirs=1\n");
    EXPECT_TRUE(file.set("A", "mine", "2"));
    EXPECT_TRUE(file.set("A", "gone", kNone));
    writeFile(path(), "; hello\n[A]\ntheirs=2\ngone=1\n");
    EXPECT_TRUE(file.save());
    EXPECT_EQ(readFile(path()), "; hello\n[A]\ntheirs=2\nmine=2\n");
    EXPECT_EQ(file.get("A", "theirs"), "2");
}

TEST_F(ProfileFiles, FindsTheFileInAnotherCaseAndThroughBackslashes) {
    writeFile(directory / "User/Scripts.INI", "[A]\nk=1\n");
    ProfileFile file((directory / "user\\SCRIPTS.ini").string());
    ASSERT_TRUE(file.load());
    EXPECT_TRUE(file.set("A", "k", "2"));
    EXPECT_TRUE(file.save());
    EXPECT_EQ(readFile(directory / "User/Scripts.INI"), "[A]\nk=2\n");

    ProfileFile fresh((directory / "USER\\new.ini").string());
    ASSERT_TRUE(fresh.load());
    EXPECT_TRUE(fresh.set("A", "k", "1"));
    EXPECT_TRUE(fresh.save());
    EXPECT_EQ(readFile(directory / "User/new.ini"), "[A]\nk=1\n");
}

TEST_F(ProfileFiles, WaitsForALockNoLongerThanItIsTold) {
    ProfileFile file = loaded("[A]\nk=1\n");
    EXPECT_TRUE(file.set("A", "k", "2"));
    platform::AtomicFile held(path().string());
    ASSERT_TRUE(held.lock());
    EXPECT_EQ(file.save(std::chrono::milliseconds::zero()).code(), ETIMEDOUT);
}

TEST_F(ProfileFiles, WhatCannotBeReadIsNeverWritten) {
    const std::string utf16("\xFF\xFE[\0A\0]\0", 8);
    writeFile(path(), utf16);
    fs::create_directories(directory / "directory.ini");
    for (const auto& [place, code] : {std::pair{path(), EILSEQ}, {directory / "directory.ini", EISDIR}}) {
        ProfileFile file(place.string());
        EXPECT_EQ(file.load().code(), code);
        EXPECT_TRUE(file.set("A", "k", "1"));
        EXPECT_FALSE(file.save());
    }
    EXPECT_EQ(readFile(path()), utf16);
}

TEST_F(ProfileFiles, ProtectedFileFailsOnlyWhereItWouldChange) {
    ASSERT_TRUE(giveToUnprivileged(directory.path().c_str()));
    writeFile(path(), "[A]\nk=1\n");
    ASSERT_EQ(chmod(path().c_str(), 0444), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0555), 0);
    const int failures = runUnprivileged([&] {
        ProfileFile file(path().string());
        int wrong = file.load() ? 0 : 1;
        wrong += file.set("A", "k", "1") && file.save() ? 0 : 2;
        wrong += file.set("A", "k", "2") && !file.save() ? 0 : 4;
        return wrong;
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(readFile(path()), "[A]\nk=1\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(directory.path()), {}), 1) << "a lock file was left";
}

TEST_F(ProfileFiles, HundredThousandLinesComeBackWhole) {
    std::string text = "[A]\n";
    for (int i = 0; i < 100000; ++i)
        text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    ProfileFile file = loaded(text + "\n[B]\n");
    for (int i = 0; i < 100000; i += 2)
        file.set("A", "key" + std::to_string(i), kNone);
    for (int i = 0; i < 100000; i += 2)
        file.set("A", "new" + std::to_string(i), "x");
    EXPECT_TRUE(file.save());
    EXPECT_EQ(file.keys("A").size(), 100000u);
    EXPECT_TRUE(readFile(path()).ends_with("new99998=x\n\n[B]\n"));
}

} // namespace
