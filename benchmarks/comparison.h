#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// Does the work once and gives the seconds that count.
using Timed = std::function<double()>;

/// The least that a piece of work can cost.
struct Floor {
    std::string name;
    Timed run;
    std::optional<double> target = std::nullopt; ///< the largest ratio that is accepted
    bool isPeer = false;                         ///< no floor, but another library on the same work
};

/// The seconds that a call takes.
template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Makes a call into one whose whole time counts.
template <typename Work>
Timed timed(Work work) {
    return [work]() mutable {
        return secondsOf(work);
    };
}

/// What the subject is measured as.
struct Subject {
    Timed run;
    double operations = 1.0;                     ///< of one call
    std::optional<double> target = std::nullopt; ///< in seconds an operation
};

/// Runs the subject and its floors in turn for as long as the state wants, so that what else the machine does
/// hits all of them alike, and leaves the medians and their ratios in the state's counters.
void compare(benchmark::State& state, const Subject& subject, const std::vector<Floor>& floors);

/// Prints a table of the medians over all repetitions.
class RatioReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    /// False if a benchmark refused its own result.
    bool isWhole() const { return isWhole_; }

private:
    struct Row {
        std::string name;
        std::vector<benchmark::UserCounters> repetitions;
    };
    void print(const Row& row);

    std::vector<Row> rows_;
    bool isWhole_ = true;
};

} // namespace bench
