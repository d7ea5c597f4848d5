#include "platform/filestamp.h"

#include <algorithm>
#include <ctime>
#include <tuple>

namespace platform {

namespace {

/// In seconds. File systems tell no two changes apart that are closer together than this.
constexpr time_t kCoarsestClock = 2;

auto parts(const struct stat& status) {
    return std::tuple(status.st_dev, status.st_ino, status.st_mode, status.st_size, status.st_mtim.tv_sec,
                      status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
}

} // namespace

FileStamp FileStamp::of(const std::string& path) {
    FileStamp stamp;
    stamp.code_ = stat(path.c_str(), &stamp.status_) == 0 ? 0 : errno;
    // The time of the change of its state is the one that no program sets; but some file systems have another
    // time in its place.
    const time_t latest = std::max(stamp.status_.st_ctim.tv_sec, stamp.status_.st_mtim.tv_sec);
    stamp.isSettled_ = stamp.isOfFile() && latest + kCoarsestClock < time(nullptr);
    return stamp;
}

bool operator==(const FileStamp& one, const FileStamp& other) {
    return one.isOfFile() == other.isOfFile() && parts(one.status_) == parts(other.status_);
}

} // namespace platform
