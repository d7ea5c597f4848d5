#include "store/refresh.h"

#include "store/kinds.h"
#include "store/numbers.h"
#include "store/overlay.h"
#include "store/rowwriter.h"
#include "store/transfer.h"

#include <algorithm>
#include <utility>

namespace Orv {

namespace {

using Impl = iAppConfiguration::Impl;
using Rows = std::bitset<kCatalogueSize>;

/// The rows of which two readings of a level say different things.
void noteDifferences(const Level& before, const Level& now, Rows& rows) {
    const auto noteMissing = [&rows](const Level& one, const Level& other) {
        for (const auto& statement : one.statements) {
            const auto* same = other.find(statement.row);
            if (!same || *same != statement)
                rows.set(statement.row);
        }
    };
    noteMissing(before, now);
    noteMissing(now, before);
}

/// Reads all levels anew. One that cannot be read keeps what it said.
std::vector<Level> rereadLevels(const std::vector<Level>& levels) {
    std::vector<Level> now;
    for (const auto& level : levels)
        now.push_back(readLevel(level.directory).value_or(level));
    return now;
}

bool isGroup(const Record& record) {
    return kindTraits(record.property.kind).storage == Storage::group;
}

bool isLocked(const Record& record, std::size_t field) {
    return field < record.property.readonly.size() && record.property.readonly[field] != 0;
}

/// Whether a lock came over a field. A value or list is changed as a whole.
bool becameLocked(const Record& former, const Record& now, std::size_t field) {
    const auto isNewlyLocked = [&](std::size_t i) {
        return isLocked(now, i) && !isLocked(former, i);
    };
    if (isGroup(now))
        return isNewlyLocked(field);
    for (std::size_t i = 0; i < now.property.readonly.size(); ++i) {
        if (isNewlyLocked(i))
            return true;
    }
    return false;
}

/// What is locked in a list has the value that the levels give it by now.
void carryList(const Record& unsaved, Record& now) {
    const auto read = now.property.values;
    const auto count = unsaved.property.values.size();
    now.property.values = unsaved.property.values;
    now.property.readonly.resize(count);
    now.origins.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (isLocked(now, i))
            now.property.values[i] = read[i];
        else
            now.origins[i].value.reset();
    }
}

/// Lays a field that is unsaved over what the levels say by now.
void carryOver(const Record& unsaved, Record& now, std::size_t field, const std::vector<Level>& levels) {
    const auto bit = fieldBit(now.property.kind, field);
    if ((unsaved.withdrawn & bit) != 0) {
        now.withdrawn |= bit;
        inherit(now, field, levels); // which may be another value by now
    } else if (isGroup(now)) {
        now.property.values[field] = unsaved.property.values[field];
        now.origins[field].value.reset();
    } else {
        carryList(unsaved, now);
    }
}

std::vector<std::string> inNormalForm(const Record& record) {
    auto values = record.property.values;
    normaliseFields(record.property.kind, values);
    return values;
}

/// What becomes of one row when its levels were read anew.
class RowRefresh {
public:
    /// @param former the levels before; the store has the new ones.
    RowRefresh(Impl& store, std::size_t row, const std::vector<Level>& former)
        : store_(store), row_(row), former_(recordOf(row, former)) {}

    /// @return whether the values in force are others than before.
    bool run(RefreshResult& result) {
        store_.flushCache(row_);
        auto& record = store_.records[row_];
        const auto valuesBefore = inNormalForm(record);
        const auto locksBefore = record.property.readonly;
        record = merged(record, result);
        const bool isChanged = inNormalForm(record) != valuesBefore;
        if (isChanged || record.property.readonly != locksBefore)
            result.changed.push_back(record.property.name);
        store_.refreshCache(row_);
        store_.notePending(row_);
        return isChanged;
    }

private:
    Record merged(const Record& before, RefreshResult& result) const {
        Record now = recordOf(row_, store_.levels);
        const Record read = now;
        const std::size_t fields =
            isGroup(now) ? std::min(before.property.values.size(), now.property.values.size()) : 1;
        for (std::size_t field = 0; field < fields; ++field) {
            if (!isUnsaved(before, field))
                continue;
            if (becameLocked(former_, now, field)) {
                result.dropped.push_back({now.property.name, field});
                continue;
            }
            carryOver(before, now, field, store_.levels);
            now.saved = read.property.values;
        }
        return now;
    }

    Impl& store_;
    const std::size_t row_;
    const Record former_;
};

} // namespace

RefreshResult refreshStore(Impl& store) {
    RefreshResult result;
    if (store.isNotifying() || store.levels.empty())
        return result;
    result.isDone = true;
    store.checkHeld();
    const auto former = std::exchange(store.levels, rereadLevels(store.levels));
    // What others wrote beside a save stands in the level since then, and in no record.
    Rows rows = std::exchange(store.settled, Rows());
    for (std::size_t place = 0; place < former.size(); ++place)
        noteDifferences(former[place], store.levels[place], rows);
    Rows changed;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row] && !store.records[row].hasOwnDefaults)
            changed[row] = RowRefresh(store, row, former).run(result);
    }
    // By the row's number: a sink may load again.
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const auto& property = store.records[row].property;
        if (changed[row])
            store.notify(property.name,
                         property.values.empty() ? 0.0F : floatFromText(property.values.front()));
    }
    return result;
}

} // namespace Orv
