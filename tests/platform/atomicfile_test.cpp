#include "platform/atomicfile.h"

#include "tests/support/childprocess.h"
#include "tests/support/testsupport.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <set>

namespace {

namespace fs = std::filesystem;
using namespace platform;
using namespace std::chrono_literals;
using testsupport::readFile;
using testsupport::TemporaryDirectory;
using testsupport::writeFile;

std::set<std::string> namesIn(const fs::path& directory) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.insert(entry.path().filename());
    return names;
}

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

TEST(AtomicFile, KeepsModeFollowsLinksAndLeavesNothingButTheLockFile) {
    const TemporaryDirectory root;
    writeFile(root / "real/file", "old");
    ASSERT_EQ(chmod((root / "real/file").c_str(), 0640), 0);
    writeFile(root / "real/.file.tmp", "left by a killed writer");
    fs::create_directories(root / "links");
    fs::create_symlink("../real/file", root / "links/relative");
    fs::create_symlink(root / "links/relative", root / "links/chain");
    fs::create_symlink("../real/new", root / "links/dangling");

    EXPECT_TRUE(writeFileAtomically(root / "links/chain", "new"));
    EXPECT_EQ(readFile(root / "real/file"), "new");
    EXPECT_EQ(modeOf(root / "real/file"), 0640u);
    EXPECT_TRUE(writeFileAtomically(root / "links/dangling", "born"));
    EXPECT_EQ(readFile(root / "real/new"), "born");
    EXPECT_EQ(namesIn(root / "links"), (std::set<std::string>{"relative", "chain", "dangling"}));
    EXPECT_TRUE(fs::is_symlink(root / "links/chain") && fs::is_symlink(root / "links/dangling"));
    EXPECT_EQ(namesIn(root / "real"), (std::set<std::string>{"file", "new", ".file.lock", ".new.lock"}));
}

/// With a mask of new files of its own, until the end of the scope.
class ScopedMask {
public:
    explicit ScopedMask(mode_t mask) : before_(umask(mask)) {}
    ~ScopedMask() { umask(before_); }

private:
    mode_t before_;
};

TEST(AtomicFile, ALockIsOpenToWhoMayWriteTheFileAndToNobodyElse) {
    constexpr mode_t kNone = 010000;
    const struct {
        mode_t file, mask, former, lock;
    } rows[] = {
        {0644, 022, kNone, 0600},  {0664, 022, kNone, 0660}, {0666, 077, kNone, 0666},
        {0646, 022, kNone, 0606},  {0644, 022, 0644, 0600},  {0600, 0, 0666, 0600},
        {0664, 022, 0644, 0660},   {0755, 022, 0644, 0600},  {kNone, 022, kNone, 0600},
        {kNone, 002, kNone, 0660}, {kNone, 0, kNone, 0666},  {kNone, 022, 0644, 0600},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << std::oct << row.file << ", mask " << row.mask << ", lock " << row.former);
        const TemporaryDirectory root;
        const ScopedMask mask(row.mask);
        if (row.file != kNone) {
            writeFile(root / "file", "old");
            ASSERT_EQ(chmod((root / "file").c_str(), row.file), 0);
        }
        if (row.former != kNone) {
            writeFile(root / ".file.lock", "");
            ASSERT_EQ(chmod((root / ".file.lock").c_str(), row.former), 0);
        }
        AtomicFile file(root / "file");
        ASSERT_TRUE(file.lock());
        EXPECT_EQ(modeOf(root / ".file.lock"), row.lock);
        ASSERT_TRUE(file.write("new"));
        EXPECT_EQ(modeOf(root / "file"), row.file == kNone ? 0666 & ~row.mask : row.file);
    }
}

TEST(AtomicFile, AnotherUserIsNotBlockedAndBlocksNobody) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root has another user's files to give";
    const TemporaryDirectory root;
    fs::permissions(root.path(), fs::perms::all);
    const auto write = [&](const char* bytes) {
        return writeFileAtomically(root / "file", bytes);
    };
    const auto failureOfAnother = [&] {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        EXPECT_EQ(testsupport::runUnprivileged([&] {
                      const std::string text = write("another").errorText();
                      return ::write(ends[1], text.data(), text.size()) < 0;
                  }),
                  0);
        close(ends[1]);
        char text[4096];
        const ssize_t length = read(ends[0], text, sizeof text);
        close(ends[0]);
        return std::string(text, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    };
    writeFile(root / "file", "old");
    EXPECT_EQ(failureOfAnother(), (root / "file").string() + ": cannot write: Permission denied");
    EXPECT_EQ(namesIn(root.path()), std::set<std::string>{"file"})
        << "a lock of his could not be had by others";
    ASSERT_TRUE(write("own"));
    fs::permissions(root / "file", fs::perms(0666));
    EXPECT_EQ(failureOfAnother(),
              (root / ".file.lock").string() + ": cannot open the lock file: Permission denied");
    ASSERT_TRUE(write("own"));
    EXPECT_EQ(failureOfAnother(), "");
    EXPECT_EQ(readFile(root / "file"), "another");

    // What root locks, the file's owner and its group can lock.
    for (const mode_t mode : {mode_t{06644}, mode_t{0664}}) {
        fs::remove(root / ".file.lock");
        writeFile(root / "file", "old");
        ASSERT_TRUE(testsupport::giveToUnprivileged((root / "file").c_str()));
        ASSERT_EQ(chmod((root / "file").c_str(), mode), 0);
        ASSERT_TRUE(write("root"));
        EXPECT_EQ(modeOf(root / "file"), mode & 0777) << "no program of root's making runs as another user";
        EXPECT_EQ(failureOfAnother(), "");
    }
}

TEST(AtomicFile, WhatHasTheTemporaryFilesNameIsLeftAloneAndBlocksNoSave) {
    const struct {
        const char* name;
        std::function<void(const fs::path& place)> make;
    } rows[] = {
        {"directory",
         [](const fs::path& place) {
             fs::create_directory(place);
         }},
        {"full directory",
         [](const fs::path& place) {
             writeFile(place / "theirs", "theirs");
         }},
        {"link",
         [](const fs::path& place) {
             fs::create_symlink("theirs", place);
         }},
        {"pipe",
         [](const fs::path& place) {
             EXPECT_EQ(mkfifo(place.c_str(), 0600), 0);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const TemporaryDirectory root;
        row.make(root / ".file.tmp");
        fs::create_directory(root / ".file.tmp.0000ffff");
        writeFile(root / ".file.tmp.0123abcd", "left by a killed writer");
        writeFile(root / ".file.tmp.readme", "theirs");
        const auto theirs = fs::symlink_status(root / ".file.tmp").type();
        for (const char* bytes : {"born", "new"}) {
            EXPECT_EQ(writeFileAtomically(root / "file", bytes).errorText(), "");
            EXPECT_EQ(readFile(root / "file"), bytes);
        }
        EXPECT_EQ(fs::symlink_status(root / ".file.tmp").type(), theirs);
        EXPECT_EQ(namesIn(root.path()), (std::set<std::string>{"file", ".file.lock", ".file.tmp",
                                                               ".file.tmp.0000ffff", ".file.tmp.readme"}));
    }
}

TEST(AtomicFile, HeldLockTimesOutAndAKilledHolderHoldsNothing) {
    const TemporaryDirectory root;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = testsupport::startChild([&] {
        AtomicFile file(root / "file");
        const bool failed = !file.lock();
        const char byte = failed ? '-' : '+';
        if (write(ready[1], &byte, 1) != 1)
            return EXIT_FAILURE;
        pause();
        return EXIT_SUCCESS;
    });
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    ASSERT_EQ(byte, '+');

    EXPECT_EQ(writeFileAtomically(root / "file", "new", 5ms).errorText(),
              (root / ".file.lock").string() + ": cannot take the lock: another program holds it");
    EXPECT_FALSE(fs::exists(root / "file"));

    kill(holder, SIGKILL);
    EXPECT_EQ(testsupport::endOfChild(holder), -SIGKILL);
    EXPECT_TRUE(writeFileAtomically(root / "file", "new", 0ms));
    close(ready[0]);
    close(ready[1]);
}

// A full disk as the process sees it: the system takes part of the bytes and refuses the rest.
TEST(AtomicFile, FullDiskLeavesTheOldBytesAndNoTemporaryFile) {
    const TemporaryDirectory root;
    writeFile(root / "file", "old");
    EXPECT_EQ(testsupport::runInChild([&] {
                  signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{1000, 1000};
                  if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
                      return EXIT_FAILURE;
                  const auto written = writeFileAtomically(root / "file", std::string(5000, 'x'));
                  return written.code() == EFBIG && written.error().path == (root / "file") ? EXIT_SUCCESS
                                                                                            : EXIT_FAILURE;
              }),
              EXIT_SUCCESS);
    EXPECT_EQ(readFile(root / "file"), "old");
    EXPECT_EQ(namesIn(root.path()), (std::set<std::string>{"file", ".file.lock"}));
}

TEST(AtomicFile, MovedAsideFilesNeverTakeEachOthersPlace) {
    const TemporaryDirectory root;
    for (const char* bytes : {"first", "second", "third"}) {
        writeFile(root / "file", bytes);
        chmod((root / "file").c_str(), 0600);
        AtomicFile file(root / "file");
        ASSERT_TRUE(file.lock());
        const auto aside = file.moveAside("damaged");
        ASSERT_TRUE(aside);
        EXPECT_EQ(readFile(*aside), bytes);
        ASSERT_TRUE(file.write("new"));
        EXPECT_EQ(modeOf(root / "file"), 0600u);
    }
    EXPECT_EQ(namesIn(root.path()), (std::set<std::string>{"file", ".file.lock", "file.damaged",
                                                           "file.damaged.2", "file.damaged.3"}));
}

TEST(LockPatience, IsOverAfterAWaitInVainAndThereAgainOnceTheLockIsHad) {
    const TemporaryDirectory root;
    LockPatience patience;
    EXPECT_EQ(patience.timeout(), kLockTimeout);
    AtomicFile holder(root / "file");
    ASSERT_TRUE(holder.lock());
    patience.note(AtomicFile(root / "file").lock(1ms));
    EXPECT_EQ(patience.timeout(), 0ms);
    patience.note(AtomicFile(root / "other").lock(patience.timeout()));
    EXPECT_EQ(patience.timeout(), kLockTimeout);
}

} // namespace
