#include "store/store.h"

#include "store/graphicsfields.h"
#include "store/kinds.h"
#include "store/numbers.h"
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

void iAppConfiguration::Impl::registerCatalogue() {
    static_assert(kCatalogueSize <= kRowMask);
    invalidateHandles();
    records = defaultRecords();
    levels.clear();
    pending.reset();
    heldIsUnchecked = false;
    settled.reset();
}

void iAppConfiguration::Impl::aboutToChange(std::size_t row) {
    pending.set(row);
    auto& record = records[row];
    if (record.saved)
        return;
    flushCache(row);
    record.saved = record.property.values;
}

bool iAppConfiguration::Impl::knowsWrittenLevel() const {
    return !levels.empty() && levels.front().isKnown && levels.front().directory == writeDirectory;
}

void iAppConfiguration::Impl::notePending(std::size_t row) {
    const auto& record = records[row];
    const auto* held = knowsWrittenLevel() ? levels.front().find(row) : nullptr;
    pending[row] = record.saved || record.withdrawn != 0 || isRedundant(record, held);
}

void iAppConfiguration::Impl::checkHeld() {
    if (!std::exchange(heldIsUnchecked, false) || !knowsWrittenLevel())
        return;
    for (const auto& statement : levels.front().statements)
        notePending(statement.row);
}

std::optional<std::size_t> iAppConfiguration::Impl::find(std::string_view key) const noexcept {
    return records.empty() ? std::nullopt : findRow(key);
}

const Origin* iAppConfiguration::Impl::originOf(std::string_view key, std::size_t field) const noexcept {
    const auto row = find(key);
    return row && field < records[*row].origins.size() ? &records[*row].origins[field] : nullptr;
}

void iAppConfiguration::Impl::refreshCache(std::size_t row) {
    const auto& property = records[row].property;
    records[row].isFlushed = false;
    switch (kindTraits(property.kind).cache) {
    case Cache::none:
        break;
    case Cache::number:
        numbers[row] = property.values.empty() ? 0.0F : floatFromText(property.values.front());
        hasNumber[row] = true;
        break;
    case Cache::graphics:
        graphics[row] = graphicsFromFields(property.kind, property.values);
        hasGraphics[row] = true;
        break;
    }
}

void iAppConfiguration::Impl::flushCache(std::size_t row) {
    if (records[row].isFlushed)
        return;
    records[row].isFlushed = true;
    auto& property = records[row].property;
    if (hasNumber[row] && !property.values.empty())
        property.values.front() = floatToText(numbers[row]);
    else if (hasGraphics[row])
        printGraphics(property.kind, graphics[row], property.values);
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
