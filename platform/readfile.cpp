#include "platform/readfile.h"

#include "platform/descriptor.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <sys/auxv.h>

#include <algorithm>
#include <cerrno>

namespace platform {

namespace {

constexpr const char* kRead = "read";

int checkReadable(const FileStamp& stamp, std::size_t limit) {
    if (!stamp.isOfFile())
        return stamp.code();
    if (S_ISDIR(stamp.mode()))
        return EISDIR;
    if (!S_ISREG(stamp.mode()))
        return EINVAL;
    return stamp.size() > limit ? EFBIG : 0;
}

int readAll(int fd, std::size_t expected, std::size_t limit, std::string& bytes) {
    std::size_t used = 0;
    for (;;) {
        // One byte more than expected, so that the end is met without growing.
        if (used == bytes.size())
            bytes.resize(std::max(expected + 1, used * 2));
        const ssize_t got = ::read(fd, bytes.data() + used, bytes.size() - used);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        used += static_cast<std::size_t>(got);
        if (used > limit)
            return EFBIG;
        // Where the system said it would be, a read that gets less than it asks for has met the end.
        if (got == 0 || (used == expected && used < bytes.size()))
            break;
    }
    bytes.resize(used);
    return 0;
}

/// Without a mark of the reading in the file's times, which the next flush would have to carry to the disk.
/// Only the owner may leave that out.
Descriptor openForReading(const std::string& path, const FileStamp& stamp) {
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    // As the program began: to ask who it runs as by now takes a call, too.
    const bool isOwn = stamp.owner() == getauxval(AT_EUID);
    const int fd = ::open(path.c_str(), isOwn ? kFlags | O_NOATIME : kFlags);
    return Descriptor(fd < 0 && errno == EPERM && isOwn ? ::open(path.c_str(), kFlags) : fd);
}

} // namespace

Result<std::string> readFile(const std::string& path, std::size_t limit) {
    return readFile(path, limit, FileStamp::of(path));
}

Result<std::string> readFile(const std::string& path, std::size_t limit, const FileStamp& stamp) {
    if (const int code = checkReadable(stamp, limit))
        return systemError(path, kRead, code, limit);
    const Descriptor file = openForReading(path, stamp);
    std::string bytes;
    if (const int code = file.valid() ? readAll(file.get(), stamp.size(), limit, bytes) : errno)
        return systemError(path, kRead, code, limit);
    return bytes;
}

bool opensForReading(const std::string& path) {
    const auto existing = resolveExisting(path);
    if (!existing)
        return false;
    const auto stamp = FileStamp::of(*existing);
    const int code = checkReadable(stamp, kLargestFile);
    return (code == 0 || code == EFBIG) && openForReading(*existing, stamp).valid();
}

} // namespace platform
