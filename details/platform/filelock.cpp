#include "details/platform/filelock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <thread>
#include <utility>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::microseconds kPause{500};
constexpr std::chrono::milliseconds kPrecedence{100};

// Who waits for a lock shows it by a shared lock on the directory, and who comes later lets one of those that
// wait have it first. Otherwise one that saves again and again, and lets go of the lock for a fraction of a
// millisecond, takes it anew each time before the others have looked, and these wait in vain. Nothing but the
// order depends on this: where directories cannot be locked, everybody finds nobody waiting.
class Queue {
public:
    explicit Queue(const std::string& lockPath)
        : directory_(::open(lockPath.substr(0, lockPath.rfind('/') + 1).append(".").c_str(),
                            O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}

    bool isEmpty() const {
        const bool isEmpty = flock(directory_.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
        flock(directory_.get(), LOCK_UN);
        return isEmpty;
    }

    /// Fails while another one looks whether it is empty.
    void join() { isJoined_ = flock(directory_.get(), LOCK_SH | LOCK_NB) == 0 || isJoined_; }

    /// @return the directory, for other uses.
    Descriptor leave() {
        if (isJoined_)
            flock(directory_.get(), LOCK_UN);
        return std::move(directory_);
    }

private:
    Descriptor directory_;
    bool isJoined_ = false;
};

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

int lockUntil(int fd, Queue& queue, Clock::time_point deadline) {
    const auto precedenceEnd = Clock::now() + kPrecedence;
    bool isMyTurn = precedenceEnd >= deadline;
    for (;;) {
        isMyTurn = isMyTurn || queue.isEmpty();
        const bool isFree = flock(fd, LOCK_EX | LOCK_NB) == 0;
        if (!isFree && errno == EINTR)
            continue;
        if (!isFree && errno != EWOULDBLOCK)
            return errno;
        const auto now = Clock::now();
        if (isFree && (isMyTurn || now >= precedenceEnd))
            return 0;
        if (now >= deadline)
            return ETIMEDOUT;
        if (isFree) {
            flock(fd, LOCK_UN);
        } else {
            isMyTurn = true; // from now on as good as the others that wait
            queue.join();
        }
        std::this_thread::sleep_for(kPause);
    }
}

} // namespace

std::optional<FileError> FileLock::acquire(const std::string& path, std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    Queue queue(path);
    for (;;) {
        Descriptor file = openLockFile(path.c_str());
        if (!file.valid())
            return FileError{path, "open the lock file", errno};
        if (const int code = lockUntil(file.get(), queue, deadline))
            return FileError{path, "take the lock", code};
        if (isStillTheFile(file.get(), path.c_str())) {
            file_ = std::move(file);
            directory_ = queue.leave();
            return std::nullopt;
        }
        if (Clock::now() >= deadline)
            return FileError{path, "take the lock", ETIMEDOUT};
    }
}

std::chrono::milliseconds LockPatience::timeout() const {
    return gaveUp_ && Clock::now() - *gaveUp_ < kLockTimeout ? std::chrono::milliseconds(0) : kLockTimeout;
}

void LockPatience::note(const std::optional<FileError>& failure) {
    if (!failure || failure->code != ETIMEDOUT)
        gaveUp_.reset();
    else if (timeout() > std::chrono::milliseconds(0)) // an attempt that did not wait prolongs nothing
        gaveUp_ = Clock::now();
}

} // namespace platform
