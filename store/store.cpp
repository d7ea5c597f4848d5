#include "store/store.h"

#include "store/rowwriter.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace Orv {

namespace {

/// Counts itself as long as it lives: a sink may throw.
class Counted {
public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

} // namespace

// No other load of any store in this process has the same number.
void iAppConfiguration::Impl::invalidateHandles() {
    static std::atomic<std::uint64_t> loads = 0;
    typed.load = ++loads;
}

std::vector<Level> iAppConfiguration::Impl::registerCatalogue() {
    invalidateHandles();
    auto former = records.exchangeLevels({});
    records.restart();
    changes.restart(records.size());
    return former;
}

Record& iAppConfiguration::Impl::aboutToChange(std::size_t row) {
    auto& record = records.own(row);
    if (!changes.find(row))
        changes.begin(row, lookAtPrinted(row).property.values);
    return record;
}

bool iAppConfiguration::Impl::knowsWrittenLevel() const {
    const auto& levels = records.levels();
    return !levels.empty() && levels.front().isKnown() && levels.front().directory() == writeDirectory;
}

const Statement* iAppConfiguration::Impl::heldStatement(std::size_t row) const {
    return knowsWrittenLevel() ? records.levels().front().find(row) : nullptr;
}

void iAppConfiguration::Impl::noteRedundant(std::size_t row) {
    const auto* held = heldStatement(row);
    changes.noteRedundant(row,
                          held && RowWriter(records.look(row), changes.find(row), held).isAnyRedundant());
}

void iAppConfiguration::Impl::searchRedundant() {
    if (!changes.isToBeSearched() || !knowsWrittenLevel())
        return;
    for (const auto& statement : records.levels().front().statements())
        noteRedundant(statement.row);
}

std::optional<std::size_t> iAppConfiguration::Impl::find(std::string_view key) const noexcept {
    return records.isEmpty() ? std::nullopt : findRow(key);
}

const Origin* iAppConfiguration::Impl::originOf(std::string_view key, std::size_t field) {
    const auto row = find(key);
    if (!row)
        return nullptr;
    const auto& origins = records.look(*row).origins;
    return field < origins.size() ? &origins[field] : nullptr;
}

void iAppConfiguration::Impl::refreshCache(std::size_t row) {
    auto& record = records.look(row);
    record.isFlushed = false;
    cache.refresh(row, record.property.values);
}

const Record& iAppConfiguration::Impl::lookAtPrinted(std::size_t row) {
    auto& record = records.look(row);
    if (!record.isFlushed) {
        record.isFlushed = true;
        cache.print(row, record.property);
    }
    return record;
}

void iAppConfiguration::Impl::notify(std::string_view key, float value) {
    if (sinks.empty())
        return;
    const std::string name(key);
    const auto told = sinks;
    const Counted here(notifications);
    for (auto* sink : told) {
        // One that an earlier sink took off the list may be gone.
        if (std::ranges::find(sinks, sink) != sinks.end())
            sink->propertyChanged(name, value);
    }
}

} // namespace Orv
