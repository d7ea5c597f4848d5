// One change on its way to the disk, and the save that has nothing to do.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/floors.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <optional>
#include <string>

namespace bench {

namespace {

constexpr const char* kKey = "GRID_HR";
constexpr double kTarget = 1.2;

void saveOneChange(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    configuration.load();
    bool other = false;
    const auto change = [&] {
        other = !other;
        configuration.setNumber(kKey, other ? 508000.0F : 254000.0F);
        configuration.save();
    };
    change();
    const std::string before = readText(levels.userFile());
    change();
    if (readText(levels.userFile()) == before)
        return state.SkipWithError("a save does not reach the file");
    const BareWriter writer(levels.userFile(), before);
    // What it leaves to be flushed would be paid for by whoever flushes next, in the same directory.
    const auto withoutDirectory = [&] {
        const double seconds = secondsOf([&] { writer.write(); });
        writer.flushDirectory();
        return seconds;
    };
    compare(state, {timed(change)},
            {{"write, fsync, rename, fsync directory", timed([&] { writer.writeAndFlushDirectory(); }),
              size == 1 ? std::optional(kTarget) : std::nullopt},
             {"write, fsync, rename", withoutDirectory}});
}

/// What the system says this process has read and written so far, in bytes.
class TransferCount {
public:
    TransferCount() : fd_(open("/proc/self/io", O_RDONLY | O_CLOEXEC)) {}
    ~TransferCount() { close(fd_); }
    TransferCount(const TransferCount&) = delete;
    TransferCount& operator=(const TransferCount&) = delete;

    bool isKnown() { return now().has_value(); }

    struct Bytes {
        unsigned long long read;
        unsigned long long written;
    };

    template <typename Work>
    Bytes of(Work work) {
        const auto before = now();
        // The account is itself a file that is read.
        const auto own = accountSize_;
        work();
        const auto after = now();
        return {after->read - before->read - own, after->written - before->written};
    }

private:
    std::optional<Bytes> now() {
        std::array<char, 512> text{};
        const ssize_t size = pread(fd_, text.data(), text.size() - 1, 0);
        Bytes bytes{};
        if (size <= 0 ||
            std::sscanf(text.data(), "rchar: %llu wchar: %llu", &bytes.read, &bytes.written) != 2)
            return std::nullopt;
        accountSize_ = static_cast<unsigned long long>(size);
        return bytes;
    }

    int fd_;
    unsigned long long accountSize_ = 0;
};

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_ino == other.st_ino && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec && one.st_ctim.tv_nsec == other.st_ctim.tv_nsec;
}

void saveNothing(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    configuration.load();
    configuration.save(); // writes what the caches spell in another way
    const auto save = [&] {
        configuration.save();
    };

    struct stat before;
    struct stat after;
    const auto path = levels.userFile();
    stat(path.c_str(), &before);
    TransferCount count;
    const auto fileSize = static_cast<unsigned long long>(before.st_size);
    if (count.isKnown()) {
        const auto bytes = count.of(save);
        if (bytes.read != fileSize)
            return state.SkipWithError("a save of nothing does not read the file exactly once");
        if (bytes.written != 0)
            return state.SkipWithError("a save of nothing writes");
    }
    const BareWriter writer(path, readText(path));
    compare(state, {timed(save)},
            {{"write, fsync, rename, fsync directory", timed([&] { writer.writeAndFlushDirectory(); })}});
    stat(path.c_str(), &after);
    if (!isSameFile(before, after))
        state.SkipWithError("a save of nothing touches the file");
}

} // namespace

void registerSaves() {
    for (const int size : kGrowth) {
        benchmark::RegisterBenchmark(atSize("c1 save one change", size).c_str(), saveOneChange, size)
            ->UseManualTime();
        benchmark::RegisterBenchmark(atSize("c2 save nothing", size).c_str(), saveNothing, size)
            ->UseManualTime();
    }
}

} // namespace bench
