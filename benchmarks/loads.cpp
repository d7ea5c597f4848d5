// The whole configuration: loading it, and telling where each value comes from.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/floors.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"
#include "orv/configurationreport.h"

#include <optional>

namespace bench {

namespace {

constexpr double kLoadTarget = 4.0;

enum class Files { renewed, asBefore };

void load(benchmark::State& state, int size, Files files) {
    const Levels levels(size);
    Orv::iAppConfiguration configuration;
    if (!configuration.load())
        return state.SkipWithError("the configuration does not load");
    const auto subject = [&] {
        if (files == Files::renewed)
            levels.renew();
        return secondsOf([&] { configuration.load(); });
    };
    compare(state, {subject}, {bareParse(levels.files(), kLoadTarget)});
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
        benchmark::RegisterBenchmark(atSize("b1 load", size).c_str(), load, size, Files::renewed)
            ->UseManualTime();
        benchmark::RegisterBenchmark(atSize("b2 load the same files again", size).c_str(), load, size,
                                     Files::asBefore)
            ->UseManualTime();
        benchmark::RegisterBenchmark(atSize("d list with origins", size).c_str(), report, size)
            ->UseManualTime();
    }
}

} // namespace bench
