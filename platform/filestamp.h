#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <cstddef>
#include <string>

namespace platform {

/// What the system tells of a file, and what differs once it was changed or replaced.
class FileStamp {
public:
    FileStamp() = default; ///< of no file

    static FileStamp of(const std::string& path);

    bool isOfFile() const { return code_ == 0; }
    /// An `errno` value, why there is no file to tell of; 0 if there is one.
    int code() const { return code_; }
    /// Whether whatever changes the file after this stamp was taken makes another stamp. A file that has only
    /// just been changed can be changed again within the same tick of its file system's clock: who has read
    /// it then has to read it again. So a stamp is taken before the bytes are read that it is to stand for.
    bool isSettled() const { return isSettled_; }

    std::size_t size() const { return static_cast<std::size_t>(status_.st_size); }
    mode_t mode() const { return status_.st_mode; }
    uid_t owner() const { return status_.st_uid; }

    friend bool operator==(const FileStamp& one, const FileStamp& other);

private:
    struct stat status_ = {};
    int code_ = ENOENT;
    bool isSettled_ = false;
};

} // namespace platform
