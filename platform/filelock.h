#pragma once

#include "platform/descriptor.h"
#include "platform/result.h"

#include <chrono>
#include <optional>
#include <string>

namespace platform {

constexpr std::chrono::milliseconds kLockTimeout{5000};

/// A kernel lock on a file that exists for that purpose alone and stays. The lock goes with the process that
/// holds it, so a killed one blocks nobody.
///
/// Whoever can open the lock file, be it for reading, can hold the lock for ever. So it is open to those who
/// may write the file that it is for, and to nobody else.
class FileLock {
public:
    /// Waits until the lock is had. The lock file is made where it is missing, and one of this user's own
    /// gets the rights that it should have.
    /// @param target the file that the lock is for, which need not exist. Who may not write it makes no lock
    ///               file for it: those who may could not open that one.
    /// @return the error; the code is ETIMEDOUT if someone held the lock all the time.
    Result<> acquire(const std::string& path, const std::string& target,
                     std::chrono::milliseconds timeout = kLockTimeout);
    /// The directory of the lock file, open while the lock is held; invalid where it could not be opened.
    const Descriptor& directory() const { return directory_; }

private:
    Descriptor file_;
    Descriptor directory_;
};

/// For one file that is changed again and again: once someone was waited for in vain, the changes that follow
/// at once do not wait again, each for its own.
class LockPatience {
public:
    explicit LockPatience(std::chrono::milliseconds longest = kLockTimeout) : longest_(longest) {}

    /// How long to wait for the lock.
    std::chrono::milliseconds timeout() const;
    /// Takes note of how the attempt ended.
    void note(const Result<>& locked);

private:
    std::chrono::milliseconds longest_;
    std::optional<std::chrono::steady_clock::time_point> gaveUp_;
};

} // namespace platform
