#include "store/refresh.h"

#include "store/kinds.h"
#include "store/numbers.h"
#include "store/overlay.h"
#include "store/rowwriter.h"
#include "store/transfer.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace Orv {

namespace {

using Impl = iAppConfiguration::Impl;
using Rows = std::vector<bool>;

/// The rows of which two readings of a level say different things.
void noteDifferences(const Level& before, const Level& now, Rows& rows) {
    const auto noteMissing = [&rows](const Level& one, const Level& other) {
        for (const auto& statement : one.statements()) {
            const auto* same = other.find(statement.row);
            if (!same || *same != statement)
                rows[statement.row] = true;
        }
    };
    noteMissing(before, now);
    noteMissing(now, before);
}

/// Reads all levels anew. One that cannot be read keeps what it said.
std::vector<Level> rereadLevels(const std::vector<Level>& levels) {
    std::vector<Level> now;
    now.reserve(levels.size());
    for (const auto& level : levels) {
        if (readLevel(level.directory(), &level, now.emplace_back()) != &now.back())
            now.back() = level;
    }
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
/// @param wasReset the field is to say what is inherited.
void carryOver(const Record& unsaved, bool wasReset, Record& now, std::size_t field,
               const std::vector<Level>& levels) {
    if (wasReset) {
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
        : store_(store),
          row_(row),
          former_(recordOf(row, former)),
          before_(store.records.isOwn(row) ? store.lookAtPrinted(row) : former_),
          now_(recordOf(row, store.records.levels())) {}

    /// @return whether the values in force are others than before.
    bool run(RefreshResult& result) {
        auto rest = carryUnsaved(result);
        const bool isChanged = inNormalForm(now_) != inNormalForm(before_);
        if (isChanged || now_.property.readonly != before_.property.readonly)
            result.changed.push_back(now_.property.name);
        store_.records.disown(row_);
        store_.changes.drop(row_);
        if (rest) {
            store_.records.own(row_) = now_;
            store_.changes.set(row_, std::move(*rest));
        }
        store_.refreshCache(row_);
        store_.noteRedundant(row_);
        return isChanged;
    }

private:
    /// @return what stays unsaved, if anything does.
    std::optional<Change> carryUnsaved(RefreshResult& result) {
        const auto* change = store_.changes.find(row_);
        if (!change)
            return std::nullopt;
        std::optional<Change> rest;
        const RowWriter writer(before_, change, nullptr);
        const auto read = now_.property.values;
        const std::size_t fields = isGroup(now_) ? std::min(before_.property.values.size(), read.size()) : 1;
        for (std::size_t field = 0; field < fields; ++field) {
            if (!writer.isUnsaved(field))
                continue;
            if (becameLocked(former_, now_, field)) {
                result.dropped.push_back({now_.property.name, field});
                continue;
            }
            const auto reset =
                static_cast<std::uint8_t>(change->withdrawn & fieldBit(now_.property.kind, field));
            carryOver(before_, reset != 0, now_, field, store_.records.levels());
            if (!rest)
                rest = Change{read};
            rest->withdrawn |= reset;
        }
        return rest;
    }

    Impl& store_;
    const std::size_t row_;
    const Record former_;
    const Record before_;
    Record now_;
};

} // namespace

RefreshResult refreshStore(Impl& store) {
    RefreshResult result;
    if (store.isNotifying() || store.records.levels().empty())
        return result;
    result.isDone = true;
    store.searchRedundant();
    const auto former = store.records.exchangeLevels(rereadLevels(store.records.levels()));
    // What others wrote beside a save stands in the level since then, and in no record.
    Rows rows = store.changes.takeSettled();
    for (std::size_t place = 0; place < former.size(); ++place)
        noteDifferences(former[place], store.records.levels()[place], rows);
    Rows changed(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row] && !store.records.hasOwnDefaults(row))
            changed[row] = RowRefresh(store, row, former).run(result);
    }
    // By the row's number: a sink may load again.
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (!changed[row])
            continue;
        const auto& property = store.records.look(row).property;
        store.notify(property.name, property.values.empty() ? 0.0F : floatFromText(property.values.front()));
    }
    return result;
}

} // namespace Orv
