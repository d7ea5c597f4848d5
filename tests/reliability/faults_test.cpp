// Saves in which an operation of the system fails, each operation in turn: the file is the old one and the
// user is told which file and why, or it is the new one; nothing stays beside it, and the next attempt works.

#include "tests/reliability/savers.h"
#include "tests/support/childprocess.h"
#include "tests/support/syscalltracer.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <set>
#include <system_error>

namespace {

using namespace saves;
using testsupport::SyscallTracer;

constexpr int kErrors[] = {ENOSPC, EIO, EACCES, EROFS, EMFILE, ENFILE};
constexpr int kSkipped = 77;

std::string causeOf(int code) {
    return std::generic_category().message(code);
}

/// Calls that concern no file: memory, time, signals, the process itself.
bool concernsAFile(std::uint64_t number) {
    static const std::set<std::uint64_t> kOthers{
        SYS_brk,    SYS_mmap,    SYS_munmap,        SYS_mremap,         SYS_mprotect,        SYS_madvise,
        SYS_futex,  SYS_getpid,  SYS_gettid,        SYS_tgkill,         SYS_rt_sigprocmask,  SYS_rt_sigaction,
        SYS_getuid, SYS_geteuid, SYS_clock_gettime, SYS_getrandom,      SYS_clock_nanosleep, SYS_sched_yield,
        SYS_getgid, SYS_getegid, SYS_exit_group,    SYS_restart_syscall};
    return !kOthers.contains(number);
}

bool isRename(std::uint64_t number) {
#ifdef SYS_rename
    if (number == SYS_rename)
        return true;
#endif
    return number == SYS_renameat || number == SYS_renameat2;
}

class Faults : public SavedFile {
protected:
    /// Saves with an error at one operation, counted from 0. @return false if the save has fewer operations.
    bool saveWithFault(int operation, int code) {
        reset(0);
        int report[2];
        EXPECT_EQ(pipe(report), 0);
        SyscallTracer process([&] {
            const auto saver = loaded();
            SyscallTracer::mark();
            const std::string told = save(*saver, 1).told;
            SyscallTracer::mark();
            if (write(report[1], told.data(), told.size()) != static_cast<ssize_t>(told.size()))
                return EXIT_FAILURE;
            const Outcome again = save(*saver, 2);
            std::cerr << again.told;
            return again.saved ? EXIT_SUCCESS : EXIT_FAILURE;
        });
        bool renamed = false;
        bool injected = false;
        while (const auto call = process.next()) {
            renamed |= !injected && isRename(call->number) && !call->entered && !call->failed;
            if (!injected && call->entered && concernsAFile(call->number) && operation-- == 0) {
                number_ = call->number;
                process.fail(code);
                injected = true;
            }
        }
        SCOPED_TRACE("system call " + std::to_string(number_) + ", " + causeOf(code));
        expectEither(0, 1);
        expectNothingBeside();
        const bool isNew = testsupport::readFile(path()) == bytes(1);
        EXPECT_EQ(process.finish(), EXIT_SUCCESS) << "the next attempt failed";
        expectEither(2, 2);
        expectNothingBeside();

        close(report[1]);
        char text[4096];
        const ssize_t length = read(report[0], text, sizeof text);
        close(report[0]);
        const std::string told(text, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
        judge(isNew, renamed || !injected, told, code);
        return injected;
    }

    void print() const {
        std::cout << GetParam().name << ": " << faults_ << " faults, " << told_ << " told, " << late_
                  << " of them with the new file in place, " << harmless_ << " harmless\n";
    }

private:
    void judge(bool isNew, bool renamed, const std::string& told, int code) {
        if (isNew && told.empty()) {
            ++harmless_;
        } else {
            EXPECT_TRUE(told.find(GetParam().fileName) != std::string::npos &&
                        told.find(causeOf(code)) != std::string::npos)
                << "told: " << told;
            // A file that cannot be read at first is complained about at once, and saved if it can be by
            // then.
            EXPECT_TRUE(!isNew || renamed || told.find(": cannot read: ") != std::string::npos) << told;
            ++told_;
            late_ += isNew;
        }
        ++faults_;
    }

    std::uint64_t number_ = 0;
    int faults_ = 0;
    int told_ = 0;
    int late_ = 0;
    int harmless_ = 0;
};

TEST_P(Faults, AtEachOperationOfASave) {
    if (!SyscallTracer::isAvailable())
        GTEST_SKIP() << "this system lets no process trace another one";
    bool reached = true;
    for (int operation = 0; reached; ++operation) {
        for (std::size_t i = 0; i < std::size(kErrors) && reached; ++i) {
            if (isLongRun() || static_cast<std::size_t>(operation) % std::size(kErrors) == i)
                reached = saveWithFault(operation, kErrors[i]);
        }
    }
    print();
}

// A file system of the test's own, in a name space of mounts of its own: no room for bytes, or for one more
// file.
TEST_P(Faults, OnAFullFileSystem) {
    for (const char* options : {"size=256k", "size=4m,nr_inodes=2"}) {
        const int result = testsupport::runInChild([&] {
            const char* place = directory_.path().c_str();
            if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
                mount("full", place, "tmpfs", 0, options) != 0)
                return kSkipped;
            reset(0);
            // The one file that may stand there takes all the room, if it can be made at all.
            std::ofstream(lockPath()) << std::string(1 << 20, 'f') << std::flush;
            const auto saver = loaded();
            const Outcome outcome = save(*saver, 1);
            EXPECT_FALSE(outcome.saved);
            EXPECT_TRUE(testsupport::contains(outcome.told, causeOf(ENOSPC)));
            expectEither(0, 0);
            expectNothingBeside();
            EXPECT_EQ(mount("full", place, "tmpfs", MS_REMOUNT, "size=4m,nr_inodes=100"), 0);
            EXPECT_TRUE(save(*saver, 2).saved);
            expectNothingBeside();
            return HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS;
        });
        if (result == kSkipped)
            GTEST_SKIP() << "this system lets this user mount nothing";
        EXPECT_EQ(result, EXIT_SUCCESS) << options;
    }
}

INSTANTIATE_TEST_SUITE_P(Saves, Faults, testing::ValuesIn(kKinds), nameOf);

} // namespace
