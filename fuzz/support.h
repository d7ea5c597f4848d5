#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace fuzz {

inline void require(bool holds) {
    if (!holds)
        std::abort();
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// A file for readers that open one, alone in a directory of its own: in memory where the system has such a
/// place. Both are gone at the end.
class File {
public:
    explicit File(const std::string& name) : path_(directory_ + '/' + name) {
        descriptor_ = ::open(path_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
        require(descriptor_ >= 0);
    }
    ~File() {
        ::close(descriptor_);
        std::filesystem::remove_all(directory_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const std::string& directory() const { return directory_; }
    const std::string& path() const { return path_; }

    void write(std::string_view text) const {
        require(::pwrite(descriptor_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
        require(::ftruncate(descriptor_, static_cast<off_t>(text.size())) == 0);
    }

private:
    static std::string makeDirectory() {
        std::string pattern = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
        pattern += "/ovfuzz.XXXXXX";
        require(mkdtemp(pattern.data()) != nullptr);
        return pattern;
    }

    std::string directory_ = makeDirectory();
    std::string path_;
    int descriptor_ = -1;
};

} // namespace fuzz
