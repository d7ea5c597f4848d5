#include "platform/editfile.h"

#include "tests/support/testsupport.h"

#include <cerrno>

namespace {

using namespace platform;

TEST(EditFile, WhatIsWrittenMeanwhileIsEditedAndAFileThatSaysTheSameIsLeftAlone) {
    const testsupport::TemporaryDirectory root;
    const std::string path = root / "file";
    struct Row {
        const char* before;    ///< null for a file that is missing
        const char* meanwhile; ///< what somebody writes after the first look
        std::optional<std::string> after;
        bool isWritten;
        int edits;
    };
    const auto append = [](const std::string& text) {
        return text.ends_with('!') ? text : text + '!';
    };
    for (const Row& row : {Row{"a", nullptr, "a!", true, 1}, Row{"a", "b", "b!", true, 2},
                           Row{"a", "b!", "b!", false, 2}, Row{"a!", nullptr, "a!", false, 1},
                           Row{nullptr, nullptr, "!", true, 1}, Row{nullptr, "b", "b!", true, 2}}) {
        std::filesystem::remove(path);
        if (row.before)
            testsupport::writeFile(path, row.before);
        int edits = 0;
        LockPatience patience;
        const auto edited =
            editFile(path, patience, {}, [&](const Result<std::string>& found) -> Result<Edited> {
                if (edits++ == 0 && row.meanwhile)
                    testsupport::writeFile(path, row.meanwhile);
                EXPECT_TRUE(found || found.code() == ENOENT);
                return Edited{append(found ? *found : std::string())};
            });
        ASSERT_TRUE(edited);
        EXPECT_EQ(edited->isWritten, row.isWritten) << *row.after;
        EXPECT_EQ(edited->bytes, *row.after);
        EXPECT_EQ(testsupport::readFile(path), *row.after);
        EXPECT_EQ(edits, row.edits);
    }
}

TEST(EditFile, WhatIsNoSuchFileIsKeptBesideUnlessTheEditFails) {
    const testsupport::TemporaryDirectory root;
    const std::string path = root / "file";
    const std::string former = path + ".damaged";
    testsupport::writeFile(path, "bad");
    LockPatience patience;
    const auto write = [&](Result<Edited> made) {
        return editFile(path, patience, {.limit = 10, .looksFirst = false},
                        [&](const auto&) { return made; });
    };
    EXPECT_EQ(write(Error{path, "out of luck"}).errorText(), path + ": out of luck");
    EXPECT_EQ(write(Edited{std::string(11, 'x'), "damaged"}).code(), EFBIG);
    EXPECT_EQ(testsupport::readFile(path), "bad");
    EXPECT_FALSE(std::filesystem::exists(former));
    const auto edited = write(Edited{"good", "damaged"});
    ASSERT_TRUE(edited);
    EXPECT_EQ(edited->former, former);
    EXPECT_EQ(testsupport::readFile(former), "bad");
    EXPECT_EQ(testsupport::readFile(path), "good");
}

} // namespace
