// The reading of scheme files at growing lengths, against a look at each of their bytes.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/colorscheme.h"
#include "platform/readfile.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {

namespace {

constexpr int kLines = 1000;
constexpr int kLinesOfScheme = 40;
constexpr int kTurns = 5;

std::string schemeNumber(int number) {
    std::string text = "SCHEME number " + std::to_string(number) + "\n\n";
    for (const char* keyword : {"SCREEN_COLOR ", "PRINT_COLOR "}) {
        for (int entry = 0; entry < 16; ++entry)
            text += keyword + std::to_string(entry) + ' ' + std::to_string(1118481 * entry) + '\n';
    }
    text += "\nANNO_LAYER 4 0 0\nVALUE_LAYER 7 0 0\nHIGHLIGHT 9 0 0\n";
    return text + "\nEND SCHEME\n\n";
}

/// A file of that many lines, and the two ways to look at it.
class SchemeFile {
public:
    explicit SchemeFile(int lines)
        : schemes_(static_cast<std::size_t>(lines / kLinesOfScheme)),
          path_((levels_.userFile().parent_path() / "many.scm").string()) {
        std::ofstream file(path_, std::ios::binary);
        for (std::size_t number = 0; number < schemes_; ++number)
            file << schemeNumber(static_cast<int>(number));
    }

    double megabytes() const { return static_cast<double>(std::filesystem::file_size(path_)) / 1e6; }

    void read() const {
        if (Orv::readColorSchemes(path_).schemes.size() != schemes_)
            throw std::runtime_error("the scheme file is not whole");
    }

    void scan() const {
        const auto bytes = platform::readFile(path_);
        if (!bytes)
            throw std::runtime_error("the scheme file cannot be read");
        std::size_t lines = 0;
        const char* at = bytes->data();
        const char* const end = at + bytes->size();
        while (const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
            at = static_cast<const char*>(found) + 1;
            ++lines;
        }
        benchmark::DoNotOptimize(lines);
    }

private:
    Levels levels_;
    std::size_t schemes_;
    std::string path_;
};

void readSchemes(benchmark::State& state, int times) {
    const SchemeFile file(times * kLines);
    compare(state, {timed([&] { file.read(); }), file.megabytes()},
            {{"its lines alone", timed([&] { file.scan(); })}});
}

} // namespace

void registerSchemeFile() {
    for (const int times : {1, 10, 100, 1000}) {
        benchmark::RegisterBenchmark(atSize("h read a megabyte of 1,000 lines", times).c_str(), readSchemes,
                                     times)
            ->UseManualTime()
            ->Iterations(kTurns);
    }
}

} // namespace bench
