// One value by key or by handle, as drawing code reads it.

#include "benchmarks/allocations.h"
#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/levels.h"
#include "orv/appconfiguration.h"

#include <array>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>

namespace bench {

namespace {

using Orv::iAppConfiguration;

// Long enough that no branch predictor learns the order.
constexpr std::size_t kReads = 1 << 14;
constexpr double kTarget = 1.2;
constexpr double kHandleTarget = 2e-9; // seconds

struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
};

template <typename Value>
using Table = std::unordered_map<std::string, Value, Hash, std::equal_to<>>;

using Fields = std::array<int, 6>;

bool read(const iAppConfiguration& configuration, std::string_view key, float& value) {
    value = configuration.getNumber(key);
    const int kind = iAppConfiguration::kindOf(key);
    return kind == iAppConfiguration::KindFlag || kind == iAppConfiguration::KindNumber;
}

bool read(const iAppConfiguration& configuration, std::string_view key, Fields& fields) {
    return configuration.getGraphics(key, fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
}

float sumOf(const iAppConfiguration& configuration, const std::vector<std::string_view>& order, float) {
    float sum = 0;
    for (const auto key : order)
        sum += configuration.getNumber(key);
    return sum;
}

float sumOf(const Table<float>& table, const std::vector<std::string_view>& order) {
    float sum = 0;
    for (const auto key : order) {
        const auto found = table.find(key);
        sum += found == table.end() ? 0.0F : found->second;
    }
    return sum;
}

unsigned mixed(const Fields& fields) {
    unsigned sum = 0;
    for (const int field : fields)
        sum += static_cast<unsigned>(field);
    return sum;
}

unsigned sumOf(const iAppConfiguration& configuration, const std::vector<std::string_view>& order, Fields) {
    unsigned sum = 0;
    for (const auto key : order) {
        Fields fields{};
        read(configuration, key, fields);
        sum += mixed(fields);
    }
    return sum;
}

unsigned sumOf(const Table<Fields>& table, const std::vector<std::string_view>& order) {
    unsigned sum = 0;
    for (const auto key : order) {
        const auto found = table.find(key);
        sum += found == table.end() ? 0U : mixed(found->second);
    }
    return sum;
}

/// All keys of the kind and their values.
template <typename Value>
Table<Value> tableOf(const iAppConfiguration& configuration) {
    Table<Value> table;
    for (const auto& key : configuration.keys()) {
        Value value{};
        if (read(configuration, key, value))
            table.emplace(key, value);
    }
    return table;
}

/// The keys in random order, as texts that neither side has seen.
std::vector<std::string_view> randomOrder(const std::vector<std::string>& keys) {
    std::mt19937 random(20);
    std::uniform_int_distribution<std::size_t> any(0, keys.size() - 1);
    std::vector<std::string_view> order(kReads);
    for (auto& key : order)
        key = keys[any(random)];
    return order;
}

template <typename Work>
std::size_t allocationsOf(Work work) {
    const auto before = allocations();
    work();
    return allocations() - before;
}

float sumByHandle(const iAppConfiguration& configuration, const std::vector<iAppConfiguration::Handle>& order,
                  float) {
    float sum = 0;
    for (const auto handle : order)
        sum += configuration.getNumber(handle);
    return sum;
}

unsigned sumByHandle(const iAppConfiguration& configuration,
                     const std::vector<iAppConfiguration::Handle>& order, Fields) {
    unsigned sum = 0;
    for (const auto handle : order) {
        Orv::Graphics read;
        configuration.getGraphics(handle, read);
        sum += mixed(
            {read.visible, read.selectable, read.colour, read.fillStyle, read.lineStyle, read.lineThickness});
    }
    return sum;
}

float sumOf(const std::vector<float>& values, const std::vector<std::size_t>& order) {
    float sum = 0;
    for (const auto index : order)
        sum += values[index];
    return sum;
}

unsigned sumOf(const std::vector<Fields>& values, const std::vector<std::size_t>& order) {
    unsigned sum = 0;
    for (const auto index : order)
        sum += mixed(values[index]);
    return sum;
}

template <typename Value>
void readByHandle(benchmark::State& state) {
    const Levels levels;
    iAppConfiguration configuration;
    configuration.load();
    std::vector<Value> values;
    std::vector<iAppConfiguration::Handle> handlesOfValues;
    for (const auto& [key, value] : tableOf<Value>(configuration)) {
        values.push_back(value);
        handlesOfValues.push_back(configuration.handleOf(key));
    }
    std::mt19937 random(20);
    std::uniform_int_distribution<std::size_t> any(0, values.size() - 1);
    std::vector<std::size_t> order(kReads);
    std::vector<iAppConfiguration::Handle> handles(kReads);
    for (std::size_t i = 0; i < kReads; ++i) {
        order[i] = any(random);
        handles[i] = handlesOfValues[order[i]];
    }
    const auto store = [&] {
        benchmark::DoNotOptimize(sumByHandle(configuration, handles, Value{}));
    };
    const auto floor = [&] {
        benchmark::DoNotOptimize(sumOf(values, order));
    };
    if (allocationsOf(store) != 0)
        return state.SkipWithError("a read allocates");
    if (sumByHandle(configuration, handles, Value{}) != sumOf(values, order))
        return state.SkipWithError("the store and the floor read different values");
    compare(state, {timed(store), static_cast<double>(kReads), kHandleTarget},
            {{"std::vector of values, by index", timed(floor)}});
}

template <typename Value>
void readByKey(benchmark::State& state) {
    const Levels levels;
    iAppConfiguration configuration;
    configuration.load();
    const auto table = tableOf<Value>(configuration);
    std::vector<std::string> keys;
    for (const auto& [key, value] : table)
        keys.push_back(key);
    const auto order = randomOrder(keys);
    const auto store = [&] {
        benchmark::DoNotOptimize(sumOf(configuration, order, Value{}));
    };
    const auto floor = [&] {
        benchmark::DoNotOptimize(sumOf(table, order));
    };

    iAppConfiguration::Property counted(keys.front());
    if (allocationsOf([&] { configuration.getProperty(counted); }) == 0)
        return state.SkipWithError("allocations inside the library are not counted");
    if (allocationsOf(store) != 0)
        return state.SkipWithError("a read allocates");
    if (sumOf(configuration, order, Value{}) != sumOf(table, order))
        return state.SkipWithError("the store and the floor read different values");
    compare(state, {timed(store), static_cast<double>(order.size())},
            {{"std::unordered_map, same keys", timed(floor), kTarget}});
}

} // namespace

void registerReads() {
    benchmark::RegisterBenchmark("a1 getNumber", readByKey<float>)->UseManualTime();
    benchmark::RegisterBenchmark("a2 getGraphics", readByKey<Fields>)->UseManualTime();
    benchmark::RegisterBenchmark("a3 getNumber by handle", readByHandle<float>)->UseManualTime();
    benchmark::RegisterBenchmark("a4 getGraphics by handle", readByHandle<Fields>)->UseManualTime();
}

} // namespace bench
