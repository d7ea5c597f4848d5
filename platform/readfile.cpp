#include "platform/readfile.h"

#include "platform/descriptor.h"
#include "platform/paths.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

namespace platform {

namespace {

constexpr const char* kRead = "read";

/// @param stamp taken of the open file, unless there is one.
int checkReadable(int fd, std::size_t limit, FileStamp& stamp) {
    if (!stamp.isOfFile())
        stamp = FileStamp::of(fd);
    if (!stamp.isOfFile())
        return errno;
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
int openForReading(const std::string& path) {
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int fd = ::open(path.c_str(), kFlags | O_NOATIME);
    return fd < 0 && errno == EPERM ? ::open(path.c_str(), kFlags) : fd;
}

} // namespace

Result<std::string> readFile(const std::string& path, std::size_t limit) {
    FileStamp stamp;
    return readFile(path, limit, stamp);
}

Result<std::string> readFile(const std::string& path, std::size_t limit, FileStamp& stamp) {
    const Descriptor file(openForReading(path));
    if (!file.valid())
        return systemError(path, kRead, errno);
    std::string bytes;
    int code = checkReadable(file.get(), limit, stamp);
    if (code == 0)
        code = readAll(file.get(), stamp.size(), limit, bytes);
    if (code != 0)
        return systemError(path, kRead, code, limit);
    return bytes;
}

bool opensForReading(const std::string& path) {
    const auto existing = resolveExisting(path);
    if (!existing)
        return false;
    const Descriptor file(openForReading(*existing));
    FileStamp stamp;
    const int code = file.valid() ? checkReadable(file.get(), kLargestFile, stamp) : errno;
    return code == 0 || code == EFBIG;
}

} // namespace platform
