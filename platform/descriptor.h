#pragma once

#include <unistd.h>

#include <utility>

namespace platform {

/// Owns a file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~Descriptor() { close(); }

    bool valid() const { return fd_ >= 0; }
    int get() const { return fd_; }
    /// Gives the descriptor to somebody else.
    int release() { return std::exchange(fd_, -1); }
    /// @return what the system's call returns; 0 if there was nothing to close.
    int close() { return valid() ? ::close(std::exchange(fd_, -1)) : 0; }

private:
    int fd_ = -1;
};

} // namespace platform
