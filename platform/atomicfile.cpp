#include "platform/atomicfile.h"

#include "platform/paths.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <random>

namespace platform {

namespace {

constexpr int kMostLinks = 40; // as many as the kernel follows

/// Of a name on disk, in which a "\" is no separator; the current directory for a bare name.
std::string parentOf(const std::string& path) {
    const auto separator = path.rfind('/');
    if (separator == std::string::npos)
        return ".";
    return separator == 0 ? "/" : path.substr(0, separator);
}

// Other than realpath(3) this gives the place of a file that is yet to be written.
// @param code receives why a link could not be followed: writing in its place would lose it.
std::string followLinks(std::string path, int& code) {
    for (int link = 0; link < kMostLinks; ++link) {
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length <= 0) {
            code = length == 0 || errno == EINVAL || errno == ENOENT ? 0 : errno;
            return path;
        }
        const std::string_view next(target, static_cast<std::size_t>(length));
        path = next.front() == '/' ? std::string(next) : parentOf(path) + "/" + std::string(next);
    }
    code = ELOOP;
    return path;
}

std::string neighbour(const std::string& path, std::string_view suffix) {
    return parentOf(path) + "/." + std::string(splitPath(path).name) + std::string(suffix);
}

int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

constexpr std::string_view kTemporary = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kNumberOfDigits = 8;

// Nobody can take all such names in advance.
std::string randomDigits() {
    std::random_device random;
    std::string digits;
    while (digits.size() < kNumberOfDigits)
        digits += kDigits[random() % kDigits.size()];
    return digits;
}

// Under the lock, a file by the name of the temporary one is what a killed writer left. Whatever else has the
// name is somebody's, or a trap.
bool removeLeftover(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && unlink(path.c_str()) == 0;
}

int resultOf(int status) {
    return status == 0 ? 0 : errno;
}

// Not every file system flushes directories; where one cannot, its rename is as safe as it gets.
int flushDirectory(const Descriptor& directory) {
    const int code = directory.valid() ? resultOf(fsync(directory.get())) : errno;
    return code == EINVAL || code == ENOTSUP || code == EACCES ? 0 : code;
}

int flushDirectory(const std::string& directory) {
    return flushDirectory(Descriptor(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

} // namespace

AtomicFile::AtomicFile(std::string path)
    : path_(followLinks(std::move(path), unfollowed_)),
      directory_(parentOf(path_)),
      temporary_(neighbour(path_, kTemporary)) {
}

Error AtomicFile::error(const std::string& operation, int code) const {
    return systemError(path_, operation, code);
}

Result<> AtomicFile::lock(std::chrono::milliseconds timeout) {
    if (unfollowed_ != 0)
        return error("follow the link", unfollowed_);
    if (auto locked = lock_.acquire(neighbour(path_, ".lock"), path_, timeout); !locked)
        return locked;
    struct stat status;
    if (stat(path_.c_str(), &status) != 0) {
        // Without them the new file would be open to whom the old one was not.
        if (errno != ENOENT)
            return error("read the attributes", errno);
    } else if (S_ISREG(status.st_mode)) {
        former_ = Attributes{status.st_mode & 07777, status.st_uid, status.st_gid};
    }
    return {};
}

Result<> AtomicFile::write(std::string_view bytes) {
    if (const int code = checkWritable())
        return error("write", code);
    if (const int code = writeTemporary(bytes))
        return error("write", code);
    if (const int code = resultOf(rename(temporary_.c_str(), path_.c_str()))) {
        unlink(temporary_.c_str());
        return error("put the new file in place", code);
    }
    const Descriptor& open = lock_.directory();
    if (const int code = open.valid() ? flushDirectory(open) : flushDirectory(directory_))
        return error("flush the directory", code);
    return {};
}

int AtomicFile::checkWritable() const {
    struct stat status;
    // Under the lock, what was a file is one still, or is gone.
    if (!former_ && stat(path_.c_str(), &status) != 0)
        return errno == ENOENT ? 0 : errno;
    if (!former_ && S_ISDIR(status.st_mode))
        return EISDIR;
    if (!former_ && !S_ISREG(status.st_mode))
        return EINVAL;
    const int code = resultOf(faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS));
    return code == ENOENT ? 0 : code;
}

int AtomicFile::openTemporary() {
    const auto create = [this] {
        return ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, former_ ? 0600 : 0666);
    };
    temporary_ = neighbour(path_, kTemporary);
    int fd = create();
    if (fd < 0 && errno == EEXIST && removeLeftover(temporary_))
        fd = create();
    else if (fd < 0 && errno == EEXIST)
        removeOtherTemporaries();
    while (fd < 0 && errno == EEXIST) {
        temporary_ = neighbour(path_, kTemporary) + '.' + randomDigits();
        fd = create();
    }
    return fd;
}

void AtomicFile::removeOtherTemporaries() const {
    const std::string start = neighbour(path_, kTemporary) + '.';
    std::error_code unreadable;
    for (std::filesystem::directory_iterator entry(directory_, unreadable), end; !unreadable && entry != end;
         entry.increment(unreadable)) {
        const std::string path = directory_ + '/' + entry->path().filename().string();
        if (path.starts_with(start) && path.size() == start.size() + kNumberOfDigits &&
            path.find_first_not_of(kDigits, start.size()) == std::string::npos)
            removeLeftover(path);
    }
}

int AtomicFile::writeTemporary(std::string_view bytes) {
    Descriptor file(openTemporary());
    if (!file.valid())
        return errno;
    int code = former_ ? adoptAttributes(file.get()) : 0;
    if (code == 0)
        code = writeAll(file.get(), bytes);
    if (code == 0)
        code = resultOf(fsync(file.get()));
    const int closed = resultOf(file.close());
    if (code == 0)
        code = closed;
    if (code != 0)
        unlink(temporary_.c_str());
    return code;
}

int AtomicFile::adoptAttributes(int fd) const {
    struct stat status;
    if (fstat(fd, &status) != 0)
        return errno;
    bool groupKept = status.st_gid == former_->group;
    if (status.st_uid != former_->owner)
        groupKept = fchown(fd, former_->owner, former_->group) == 0 || groupKept;
    if (!groupKept)
        groupKept = fchown(fd, static_cast<uid_t>(-1), former_->group) == 0;
    // Nobody may have another user's file run as that one with bytes of his own making.
    const bool isOwn = status.st_uid == former_->owner;
    const mode_t former = isOwn ? former_->mode : former_->mode & ~static_cast<mode_t>(S_ISUID | S_ISGID);
    // The rights of a group are for that group; another one gets no more than everybody.
    const mode_t everybody = former & 07u;
    const mode_t mode = groupKept ? former : (former & ~07070u) | everybody << 3;
    return resultOf(fchmod(fd, mode));
}

Result<std::string> AtomicFile::moveAside(std::string_view suffix) {
    const int code = checkWritable();
    if (code != 0 && code != EISDIR)
        return error("move aside", code);
    const std::string plain = path_ + "." + std::string(suffix);
    std::string candidate = plain;
    struct stat status;
    for (int number = 2; lstat(candidate.c_str(), &status) == 0; ++number)
        candidate = plain + "." + std::to_string(number);
    if (rename(path_.c_str(), candidate.c_str()) != 0)
        return error("move aside", errno);
    return candidate;
}

void AtomicFile::moveBack(const std::string& newPath) const {
    struct stat status;
    if (lstat(path_.c_str(), &status) != 0)
        static_cast<void>(rename(newPath.c_str(), path_.c_str()));
}

Result<> writeFileAtomically(const std::string& path, std::string_view bytes,
                             std::chrono::milliseconds timeout) {
    AtomicFile file(path);
    if (auto locked = file.lock(timeout); !locked)
        return locked;
    return file.write(bytes);
}

} // namespace platform
