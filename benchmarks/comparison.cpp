#include "benchmarks/comparison.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace bench {

namespace {

constexpr const char* kTime = "time";
constexpr const char* kTimeTarget = "time target";
constexpr std::string_view kFloor = "floor ";
constexpr std::string_view kPeer = "peer ";
constexpr std::string_view kRatio = "ratio ";
constexpr std::string_view kTarget = "target ";

double median(std::vector<double> samples) {
    if (samples.empty())
        return 0.0;
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

std::string named(std::string_view prefix, std::string_view name) {
    return std::string(prefix).append(name);
}

std::string timeText(double seconds) {
    struct Unit {
        double size;
        const char* name;
    };
    constexpr Unit kUnits[] = {{1.0, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
    const auto* unit = std::begin(kUnits);
    while (unit + 1 != std::end(kUnits) && seconds < unit->size)
        ++unit;
    char text[32];
    std::snprintf(text, sizeof text, "%.3g %s", seconds / unit->size, unit->name);
    return text;
}

std::string ratioText(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, ratio < 0.1 ? "%.2g" : ratio < 100 ? "%.2f" : "%.0f", ratio);
    return text;
}

void printRow(const std::string& what, const std::string& time, const std::string& floor,
              const std::string& floorTime, const std::string& ratio, const std::string& target) {
    std::printf("| %-42s | %8s | %-42s | %8s | %-20s | %-14s |\n", what.c_str(), time.c_str(), floor.c_str(),
                floorTime.c_str(), ratio.c_str(), target.c_str());
}

std::string verdict(const std::string& target, bool isMet) {
    return target + (isMet ? "" : " MISSED");
}

} // namespace

void compare(benchmark::State& state, const Subject& subject, const std::vector<Floor>& floors) {
    const std::size_t count = floors.size() + 1;
    std::vector<std::vector<double>> samples(count);
    std::size_t first = 0;
    for (auto _ : state) {
        double subjectSeconds = 0.0;
        // Each takes its turn at being first: what one leaves behind, in a cache or on its way to the disk,
        // is there for the next.
        first = (first + 1) % count;
        for (std::size_t turn = 0; turn < count; ++turn) {
            const std::size_t which = (first + turn) % count;
            const double seconds = (which == 0 ? subject.run : floors[which - 1].run)();
            samples[which].push_back(seconds / subject.operations);
            if (which == 0)
                subjectSeconds = seconds;
        }
        state.SetIterationTime(subjectSeconds);
    }
    const double time = median(samples[0]);
    state.counters[kTime] = time;
    if (subject.target)
        state.counters[kTimeTarget] = *subject.target;
    for (std::size_t i = 0; i < floors.size(); ++i) {
        const double floorTime = median(samples[i + 1]);
        state.counters[named(floors[i].isPeer ? kPeer : kFloor, floors[i].name)] = floorTime;
        state.counters[named(kRatio, floors[i].name)] = time / floorTime;
        if (floors[i].target)
            state.counters[named(kTarget, floors[i].name)] = *floors[i].target;
    }
}

bool RatioReporter::ReportContext(const Context&) {
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
            isWhole_ = false;
        }
        if (run.error_occurred || run.run_type != Run::RT_Iteration)
            continue;
        auto row = std::ranges::find(rows_, name, &Row::name);
        if (row == rows_.end())
            row = rows_.insert(row, Row{name, {}});
        row->repetitions.push_back(run.counters);
    }
}

void RatioReporter::Finalize() {
    printRow("what", "median", "floor or peer", "median", "ratio", "at most");
    printRow("---", "---:", "---", "---:", "---", "---");
    std::ranges::sort(rows_, {}, &Row::name);
    for (const Row& row : rows_)
        print(row);
    std::fflush(stdout);
}

void RatioReporter::print(const Row& row) {
    const auto values = [&row](const std::string& counter) {
        std::vector<double> found;
        for (const auto& repetition : row.repetitions) {
            if (const auto value = repetition.find(counter); value != repetition.end())
                found.push_back(value->second.value);
        }
        std::ranges::sort(found);
        return found;
    };
    const double time = median(values(kTime));
    const auto timeTarget = values(kTimeTarget);
    const std::string timeVerdict = timeTarget.empty()
                                        ? std::string()
                                        : verdict(timeText(timeTarget.front()), time <= timeTarget.front());
    std::string what = row.name;
    for (const auto& [counter, value] : row.repetitions.front()) {
        const bool isPeer = counter.starts_with(kPeer);
        if (!isPeer && !counter.starts_with(kFloor))
            continue;
        const std::string floor = counter.substr((isPeer ? kPeer : kFloor).size());
        const auto ratios = values(named(kRatio, floor));
        const auto target = values(named(kTarget, floor));
        const double ratio = median(ratios);
        const std::string peerVerdict = ratio < 1.0 ? "ahead" : "behind";
        printRow(what, timeText(time), floor, timeText(median(values(counter))),
                 ratioText(ratio) + " (" + ratioText(ratios.front()) + "-" + ratioText(ratios.back()) + ")",
                 isPeer           ? peerVerdict
                 : target.empty() ? timeVerdict
                                  : verdict(ratioText(target.front()), ratio <= target.front()));
        what.clear();
    }
    if (!what.empty())
        printRow(what, timeText(time), "", "", "", timeVerdict);
}

} // namespace bench
