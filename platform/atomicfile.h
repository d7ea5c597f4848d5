#pragma once

#include "platform/filelock.h"

#include <sys/types.h>

#include <string_view>

namespace platform {

/// Replaces a file as a whole: every reader, and every later start after a crash, sees the old bytes or the
/// new ones.
///
/// Beside the file NAME stand `.NAME.lock`, which stays, and during a write `.NAME.tmp`; what a killed writer
/// left of that, the next one removes. Where something else has that name and stays, the temporary file is
/// `.NAME.tmp.` with eight digits behind it. Symbolic links are followed, so a link stays a link. The lock
/// serves for more than one write: take it, read, write, and let the object go.
class AtomicFile {
public:
    explicit AtomicFile(std::string path);

    /// The file that is replaced, with its links followed.
    const std::string& path() const { return path_; }

    /// Takes the lock, which is held to the end of the object.
    Result<> lock(std::chrono::milliseconds timeout = kLockTimeout);

    /// Replaces the file by these bytes, under the lock. The new file has the mode of the old one, and its
    /// owner and group as far as the user may give them; it runs as another user or group only if the old one
    /// did so as a file of this user's own. A file that the user may not write to is refused,
    /// whatever its directory allows. After an error the old bytes stand, unless the error is that of the
    /// directory's flush.
    Result<> write(std::string_view bytes);

    /// Renames what stands in the file's place to NAME.suffix, or NAME.suffix.2 and so on if that is taken. A
    /// write that follows still gives the new file the old one's mode.
    /// @return the new path.
    Result<std::string> moveAside(std::string_view suffix);

    /// Undoes moveAside.
    void moveBack(const std::string& newPath) const;

private:
    struct Attributes {
        mode_t mode;
        uid_t owner;
        gid_t group;
    };

    int checkWritable() const;
    int openTemporary();
    void removeOtherTemporaries() const;
    int writeTemporary(std::string_view bytes);
    int adoptAttributes(int fd) const;
    Error error(const std::string& operation, int code) const;

    int unfollowed_ = 0; ///< why the path's links could not be followed
    std::string path_;
    std::string directory_;
    std::string temporary_; ///< by the name that it had in the last write
    FileLock lock_;
    std::optional<Attributes> former_;
};

/// Takes the lock, writes and releases the lock.
Result<> writeFileAtomically(const std::string& path, std::string_view bytes,
                             std::chrono::milliseconds timeout = kLockTimeout);

} // namespace platform
