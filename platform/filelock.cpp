#include "platform/filelock.h"

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
int openExisting(const std::string& path) {
    constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int fd = ::open(path.c_str(), O_RDWR | kFlags);
    return fd < 0 && errno == EACCES ? ::open(path.c_str(), O_RDONLY | kFlags) : fd;
}

// Where the target is yet to be made, the mask of new files says who is going to write it. Nobody else may
// read the lock file meanwhile: an open file outlives the rights by which it was opened.
int create(const std::string& path, bool hasTarget) {
    return ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, hasTarget ? 0600 : 0622);
}

Result<Descriptor> openLockFile(const std::string& path, const std::string& target) {
    for (;;) {
        int fd = openExisting(path);
        if (fd < 0 && errno == ENOENT) {
            const bool hasTarget = faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0;
            if (!hasTarget && errno != ENOENT)
                return systemError(target, "write", errno);
            fd = create(path, hasTarget);
        }
        if (fd >= 0)
            return Descriptor(fd);
        if (errno != EEXIST)
            return systemError(path, "open the lock file", errno);
    }
}

mode_t rightsOfWriters(mode_t mode) {
    return static_cast<mode_t>(0600 | ((mode & 020) ? 060 : 0) | ((mode & 02) ? 06 : 0));
}

// Only the owner of a lock file can do that, and who owns it need not own the target. What fails leaves the
// lock with fewer users, which is told to those by the system.
void admitWriters(int fd, const std::string& target) {
    struct stat lock;
    if (fstat(fd, &lock) != 0 || !S_ISREG(lock.st_mode) || lock.st_nlink != 1 || lock.st_uid != geteuid())
        return;
    struct stat file;
    mode_t rights = rightsOfWriters(lock.st_mode);
    if (stat(target.c_str(), &file) == 0) {
        rights = S_ISREG(file.st_mode) ? rightsOfWriters(file.st_mode) : 0600;
        bool isGroups = lock.st_gid == file.st_gid;
        if (lock.st_uid != file.st_uid)
            isGroups = fchown(fd, file.st_uid, file.st_gid) == 0 || isGroups;
        if (!isGroups && fchown(fd, static_cast<uid_t>(-1), file.st_gid) != 0)
            rights = static_cast<mode_t>((rights & ~060u) | (rights & 06u) << 3);
    }
    if ((lock.st_mode & 07777) != rights)
        static_cast<void>(fchmod(fd, rights));
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

Result<> FileLock::acquire(const std::string& path, const std::string& target,
                           std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    Queue queue(path);
    for (;;) {
        auto file = openLockFile(path, target);
        if (!file)
            return file.error();
        admitWriters(file->get(), target);
        if (const int code = lockUntil(file->get(), queue, deadline))
            return systemError(path, "take the lock", code);
        if (isStillTheFile(file->get(), path.c_str())) {
            file_ = std::move(*file);
            directory_ = queue.leave();
            return {};
        }
        if (Clock::now() >= deadline)
            return systemError(path, "take the lock", ETIMEDOUT);
    }
}

std::chrono::milliseconds LockPatience::timeout() const {
    return gaveUp_ && Clock::now() - *gaveUp_ < kLockTimeout ? std::chrono::milliseconds(0) : longest_;
}

void LockPatience::note(const Result<>& locked) {
    if (locked.code() != ETIMEDOUT)
        gaveUp_.reset();
    else if (timeout() > std::chrono::milliseconds(0)) // an attempt that did not wait prolongs nothing
        gaveUp_ = Clock::now();
}

} // namespace platform
