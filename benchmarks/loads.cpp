// The whole configuration: loading it, and telling where each value comes from.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/floors.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/configurationreport.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace bench {

namespace {

constexpr double kLoadTarget = 4.0;

/// Each load finds files that it has not met for so long that nothing of them is kept.
void load(benchmark::State& state, int size) {
    constexpr std::size_t kPlaces = 3;
    std::vector<std::unique_ptr<Levels>> places;
    std::array<Orv::iAppConfiguration, kPlaces> configurations;
    for (auto& configuration : configurations) {
        places.push_back(std::make_unique<Levels>(size));
        if (!configuration.load())
            return state.SkipWithError("the configuration does not load");
    }
    std::size_t place = 0;
    const auto loadNext = [&] {
        place = (place + 1) % kPlaces;
        configurations[place].load();
    };
    compare(state, {timed(loadNext)}, {bareParse(places.front()->files(), kLoadTarget)});
}

void loadAgain(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    if (!configuration.load())
        return state.SkipWithError("the configuration does not load");
    compare(state, {timed([&] { configuration.load(); })}, {bareParse(levels.files(), kLoadTarget)});
}

void report(benchmark::State& state, int size) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    configuration.load();
    const auto everything = [&] {
        benchmark::DoNotOptimize(Orv::reportConfiguration(configuration));
    };
    compare(state, {timed(everything)}, {bareParse(levels.files(), std::nullopt)});
}

} // namespace

void registerLoads() {
    for (const int size : kGrowth) {
        benchmark::RegisterBenchmark(atSize("b1 load", size).c_str(), load, size)->UseManualTime();
        benchmark::RegisterBenchmark(atSize("b2 load the same files again", size).c_str(), loadAgain, size)
            ->UseManualTime();
        benchmark::RegisterBenchmark(atSize("d list with origins", size).c_str(), report, size)
            ->UseManualTime();
    }
}

} // namespace bench
