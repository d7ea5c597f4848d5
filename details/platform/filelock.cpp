#include "details/platform/filelock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kFirstPause{1};
constexpr std::chrono::milliseconds kLongestPause{20};

// Opened before it is created: in a directory shared with a sticky bit, the system refuses to open another
// user's file with the wish to create it. A lock needs no right to write, except on network file systems.
Descriptor openLockFile(const char* path) {
    constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    for (;;) {
        int fd = ::open(path, O_RDWR | kFlags);
        if (fd < 0 && errno == EACCES)
            fd = ::open(path, O_RDONLY | kFlags);
        if (fd < 0 && errno == ENOENT)
            fd = ::open(path, O_RDWR | O_CREAT | O_EXCL | kFlags, 0666);
        if (fd >= 0 || errno != EEXIST)
            return Descriptor(fd);
    }
}

// False if someone deleted the lock file while it was waited for; a lock on it would then exclude nobody.
bool isStillTheFile(int fd, const char* path) {
    struct stat held;
    struct stat named;
    return fstat(fd, &held) == 0 && stat(path, &named) == 0 && held.st_dev == named.st_dev &&
           held.st_ino == named.st_ino;
}

int lockUntil(int fd, Clock::time_point deadline) {
    auto pause = kFirstPause;
    while (flock(fd, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        if (errno != EWOULDBLOCK)
            return errno;
        if (Clock::now() >= deadline)
            return ETIMEDOUT;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, kLongestPause);
    }
    return 0;
}

} // namespace

std::optional<FileError> FileLock::acquire(const std::string& path, std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        Descriptor file = openLockFile(path.c_str());
        if (!file.valid())
            return FileError{path, "open the lock file", errno};
        if (const int code = lockUntil(file.get(), deadline))
            return FileError{path, "take the lock", code};
        if (isStillTheFile(file.get(), path.c_str())) {
            file_ = std::move(file);
            return std::nullopt;
        }
    }
}

} // namespace platform
