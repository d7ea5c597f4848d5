#include "details/platform/atomicfile.h"

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

    EXPECT_FALSE(writeFileAtomically(root / "links/chain", "new"));
    EXPECT_EQ(readFile(root / "real/file"), "new");
    EXPECT_EQ(modeOf(root / "real/file"), 0640u);
    EXPECT_FALSE(writeFileAtomically(root / "links/dangling", "born"));
    EXPECT_EQ(readFile(root / "real/new"), "born");
    EXPECT_EQ(namesIn(root / "links"), (std::set<std::string>{"relative", "chain", "dangling"}));
    EXPECT_TRUE(fs::is_symlink(root / "links/chain") && fs::is_symlink(root / "links/dangling"));
    EXPECT_EQ(namesIn(root / "real"), (std::set<std::string>{"file", "new", ".file.lock", ".new.lock"}));
}

TEST(AtomicFile, HeldLockTimesOutAndAKilledHolderHoldsNothing) {
    const TemporaryDirectory root;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = testsupport::startChild([&] {
        AtomicFile file(root / "file");
        const bool failed = file.lock().has_value();
        const char byte = failed ? '-' : '+';
        if (write(ready[1], &byte, 1) != 1)
            return EXIT_FAILURE;
        pause();
        return EXIT_SUCCESS;
    });
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    ASSERT_EQ(byte, '+');

    const auto failure = writeFileAtomically(root / "file", "new", 5ms);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text(),
              (root / ".file.lock").string() + ": cannot take the lock: another program holds it");
    EXPECT_FALSE(fs::exists(root / "file"));

    kill(holder, SIGKILL);
    EXPECT_EQ(testsupport::endOfChild(holder), -SIGKILL);
    EXPECT_FALSE(writeFileAtomically(root / "file", "new", 0ms));
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
                  const auto failure = writeFileAtomically(root / "file", std::string(5000, 'x'));
                  return failure && failure->code == EFBIG && failure->path == (root / "file") ? EXIT_SUCCESS
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
        std::string aside;
        ASSERT_FALSE(file.lock());
        ASSERT_FALSE(file.moveAside("damaged", aside));
        EXPECT_EQ(readFile(aside), bytes);
        ASSERT_FALSE(file.write("new"));
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
    ASSERT_FALSE(holder.lock());
    patience.note(AtomicFile(root / "file").lock(1ms));
    EXPECT_EQ(patience.timeout(), 0ms);
    patience.note(AtomicFile(root / "other").lock(patience.timeout()));
    EXPECT_EQ(patience.timeout(), kLockTimeout);
}

} // namespace
