#include "benchmarks/floors.h"

#include <fcntl.h>
#include <pugixml.hpp>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace bench {

namespace {

std::string readBare(const char* path) {
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status;
    std::string bytes;
    if (fd >= 0 && fstat(fd, &status) == 0) {
        bytes.resize(static_cast<std::size_t>(status.st_size));
        const ssize_t got = read(fd, bytes.data(), bytes.size());
        bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    }
    if (fd >= 0)
        close(fd);
    return bytes;
}

void check(bool succeeded) {
    if (!succeeded)
        throw std::runtime_error("the floor could not write");
}

} // namespace

Floor bareParse(const std::array<std::filesystem::path, 3>& files, std::optional<double> target) {
    const auto parse = [files] {
        for (const auto& file : files) {
            const std::string bytes = readBare(file.c_str());
            pugi::xml_document document;
            benchmark::DoNotOptimize(document.load_buffer(bytes.data(), bytes.size()));
        }
    };
    return {"three files read and parsed", timed(parse), target};
}

BareWriter::BareWriter(const std::filesystem::path& neighbour, std::string bytes)
    : directory_(neighbour.parent_path()),
      path_(directory_ + "/bare.xml"),
      temporary_(path_ + ".tmp"),
      bytes_(std::move(bytes)) {
}

void BareWriter::write() const {
    const int fd = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    check(fd >= 0);
    check(::write(fd, bytes_.data(), bytes_.size()) == static_cast<ssize_t>(bytes_.size()));
    check(fsync(fd) == 0 && close(fd) == 0);
    check(rename(temporary_.c_str(), path_.c_str()) == 0);
}

void BareWriter::flushDirectory() const {
    const int directory = open(directory_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    check(directory >= 0 && fsync(directory) == 0 && close(directory) == 0);
}

void BareWriter::writeAndFlushDirectory() const {
    write();
    flushDirectory();
}

} // namespace bench
