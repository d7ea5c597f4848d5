#include "platform/filestamp.h"

#include <time.h>

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

// The time of the change of its state is the one that no program sets.
FileStamp::FileStamp(const struct stat& status)
    : status_(status), isOfFile_(true), isSettled_(status.st_ctim.tv_sec + kCoarsestClock < time(nullptr)) {
}

FileStamp FileStamp::of(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? FileStamp(status) : FileStamp();
}

FileStamp FileStamp::of(int descriptor) {
    struct stat status;
    return fstat(descriptor, &status) == 0 ? FileStamp(status) : FileStamp();
}

bool operator==(const FileStamp& one, const FileStamp& other) {
    return one.isOfFile_ == other.isOfFile_ && parts(one.status_) == parts(other.status_);
}

} // namespace platform
