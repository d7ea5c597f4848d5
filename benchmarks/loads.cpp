// The whole configuration: loading it, and telling where each value comes from.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/configurationreport.h"

#include <fcntl.h>
#include <libxml/parser.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace bench {

namespace {

constexpr double kLoadTarget = 4.0;

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

/// Reads and parses the same files and looks at nothing in them.
Floor bareParse(const Levels& levels, std::optional<double> target) {
    const auto parse = [files = levels.files()] {
        for (const auto& file : files) {
            const std::string bytes = readBare(file.c_str());
            xmlDoc* document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                             XML_PARSE_NONET);
            benchmark::DoNotOptimize(document);
            xmlFreeDoc(document);
        }
    };
    return {"three files read and parsed", timed(parse), target};
}

void load(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    if (!configuration.load())
        return state.SkipWithError("the configuration does not load");
    compare(state, {timed([&] { configuration.load(); })}, {bareParse(levels, kLoadTarget)});
}

void report(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    configuration.load();
    const auto everything = [&] {
        benchmark::DoNotOptimize(Orv::reportConfiguration(configuration));
    };
    compare(state, {timed(everything)}, {bareParse(levels, std::nullopt)});
}

} // namespace

void registerLoads() {
    for (const int size : kGrowth) {
        benchmark::RegisterBenchmark(atSize("b load", size).c_str(), load, size)->UseManualTime();
        benchmark::RegisterBenchmark(atSize("d list with origins", size).c_str(), report, size)
            ->UseManualTime();
    }
}

} // namespace bench
