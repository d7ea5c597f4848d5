#include "details/appcfg/refresh.h"

#include "details/appcfg/kinds.h"
#include "details/appcfg/numbers.h"
#include "details/appcfg/overlay.h"
#include "details/appcfg/transfer.h"

#include <algorithm>

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

/// Reads all levels anew. @return the rows that may be affected.
Rows rereadLevels(Impl& store) {
    Rows rows;
    for (auto& level : store.levels) {
        auto now = readLevel(level.directory);
        if (!now)
            continue;
        noteDifferences(level, *now, rows);
        level = std::move(*now);
    }
    return rows;
}

bool isList(const Record& record) {
    return kindTraits(record.property.kind).storage == Storage::list;
}

/// Whether a lock came over a field since it was changed. A list is changed as a whole.
bool becameLocked(const Record& before, const Record& now, std::size_t field) {
    const auto isNewlyLocked = [&](std::size_t i) {
        const auto& flags = before.property.readonly;
        return now.property.readonly[i] != 0 && (i >= flags.size() || flags[i] == 0);
    };
    if (!isList(now))
        return isNewlyLocked(field);
    for (std::size_t i = 0; i < now.property.readonly.size(); ++i) {
        if (isNewlyLocked(i))
            return true;
    }
    return false;
}

void carryList(const Record& before, Record& now) {
    const auto count = before.property.values.size();
    now.property.values = before.property.values;
    now.property.readonly.resize(count);
    now.origins.resize(count);
    for (auto& origin : now.origins)
        origin.value.reset();
}

/// Lays a field that is unsaved over what the levels say by now.
void carryOver(const Record& before, Record& now, std::size_t field, const std::vector<Level>& levels) {
    const auto bit = fieldBit(now.property.kind, field);
    if ((before.withdrawn & bit) != 0) {
        now.withdrawn |= bit;
        inherit(now, field, levels); // which may be another value by now
    } else if (isList(now)) {
        carryList(before, now);
    } else {
        now.property.values[field] = before.property.values[field];
        now.origins[field].value.reset();
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
    RowRefresh(Impl& store, std::size_t row) : store_(store), row_(row) {}

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
            isList(now) ? 1 : std::min(before.property.values.size(), now.property.values.size());
        for (std::size_t field = 0; field < fields; ++field) {
            if (!isUnsaved(before, field))
                continue;
            if (becameLocked(before, now, field)) {
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
};

} // namespace

RefreshResult refreshStore(Impl& store) {
    RefreshResult result;
    if (store.isNotifying() || store.levels.empty())
        return result;
    result.isDone = true;
    const Rows rows = rereadLevels(store);
    Rows changed;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row] && !store.records[row].hasOwnDefaults)
            changed[row] = RowRefresh(store, row).run(result);
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
