#include "store/transfer.h"

#include "store/kinds.h"

#include <algorithm>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

/// What is to become of a field in the file of the user's level.
enum class Fate {
    left,      ///< as it stands there
    refused,   ///< as it stands there, although it was changed
    written,   ///< says what the store says
    withdrawn, ///< goes, for the store says what is inherited
    dropped,   ///< goes if it still says what it said, which is what is inherited
};

std::vector<std::string> inNormalForm(int kind, std::vector<std::string> values) {
    normaliseFields(kind, values);
    return values;
}

bool isSet(std::uint8_t flag) {
    return flag != 0;
}

bool isLocked(const Record& record, std::size_t field) {
    return field < record.property.readonly.size() && isSet(record.property.readonly[field]);
}

/// By a level behind the user's.
bool isLockedFromAbove(const Record& record, std::size_t field) {
    return isLocked(record, field) && record.origins[field].lock.value_or(0) != 0;
}

/// A record with values, defaults and what was saved in one spelling, and what the user's level said of it.
class RowWriter {
public:
    RowWriter(const Record& record, const Statement* held)
        : record_(record),
          property_(record.property),
          traits_(kindTraits(property_.kind)),
          held_(held),
          values_(inNormalForm(property_.kind, property_.values)),
          defaults_(inNormalForm(property_.kind, property_.defaults)),
          saved_(inNormalForm(property_.kind, record.saved.value_or(property_.values))) {}

    /// @return the fields that were changed and may not be written.
    std::vector<std::size_t> write(IOvConfiguration& configuration) const {
        return traits_.storage == Storage::group ? writeGroup(configuration) : writeKey(configuration);
    }

    bool isUnsaved(std::size_t field) const {
        if (isWithdrawn(field))
            return true;
        if (traits_.storage == Storage::list)
            return values_ != saved_;
        // No text, as in the default of some, and an empty one mean the same.
        return field < values_.size() && values_[field] != (field < saved_.size() ? saved_[field] : "");
    }

    bool isRedundant(std::size_t field) const {
        if (!held_)
            return false;
        if (traits_.storage != Storage::group)
            return !isAllLockedFromAbove() && isKeyRedundant();
        if (isLocked(record_, field))
            return false;
        return field < held_->texts.size() && held_->texts[field] && isInherited(field) &&
               heldInNormalForm()[field] == defaults_[field];
    }

private:
    bool isWithdrawn(std::size_t field) const {
        return (record_.withdrawn & fieldBit(property_.kind, field)) != 0;
    }

    bool isInherited(std::size_t field) const {
        return field < defaults_.size() && values_[field] == defaults_[field];
    }

    std::vector<std::string> heldInNormalForm() const {
        std::vector<std::string> texts;
        for (const auto& text : held_->texts)
            texts.push_back(text.value_or(std::string()));
        normaliseFields(property_.kind, texts);
        return texts;
    }

    /// An empty value or list is neither written nor taken out.
    bool isKeyRedundant() const {
        return !held_->texts.empty() && !held_->texts.front()->empty() &&
               std::ranges::none_of(held_->locks, isSet) && values_ == defaults_ &&
               heldInNormalForm() == defaults_;
    }

    Fate fateOfKey() const {
        if (isWithdrawn(0))
            return Fate::withdrawn;
        if (!isUnsaved(0))
            return isRedundant(0) ? Fate::dropped : Fate::left;
        if (values_.empty() || values_.front().empty() || isAllLockedFromAbove())
            return Fate::refused;
        if (traits_.storage == Storage::value)
            return isLocked(record_, 0) ? Fate::refused : inheritedKey() ? Fate::withdrawn : Fate::written;
        // A list with a mark of its own stays, and says what the store says.
        const bool isMarked = std::ranges::any_of(property_.readonly, isSet);
        return inheritedKey() && !isMarked ? Fate::withdrawn : Fate::written;
    }

    bool isAllLockedFromAbove() const {
        std::size_t locked = 0;
        while (isLockedFromAbove(record_, locked))
            ++locked;
        return locked != 0 && locked == property_.readonly.size();
    }

    bool inheritedKey() const { return !defaults_.empty() && values_ == defaults_; }

    Fate fateOfAttribute(std::size_t field) const {
        if (isLockedFromAbove(record_, field))
            return isUnsaved(field) ? Fate::refused : Fate::left;
        if (isWithdrawn(field))
            return Fate::withdrawn;
        if (!isUnsaved(field))
            return isRedundant(field) ? Fate::dropped : Fate::left;
        return isInherited(field) && !isLocked(record_, field) ? Fate::withdrawn : Fate::written;
    }

    std::vector<std::size_t> writeKey(IOvConfiguration& configuration) const {
        const auto& path = pathOf(property_.kind, property_.name);
        const Fate fate = fateOfKey();
        if (fate == Fate::written && traits_.storage == Storage::list)
            configuration.writeList(path, property_.name, values_);
        else if (fate == Fate::written)
            configuration.writeValue(path, property_.name, values_.front());
        else if (fate == Fate::withdrawn)
            configuration.withdrawKey(path, property_.name, nullptr);
        else if (fate == Fate::dropped)
            dropKey(path, configuration);
        return fate == Fate::refused ? std::vector<std::size_t>{0} : std::vector<std::size_t>();
    }

    void dropKey(const std::string& path, IOvConfiguration& configuration) const {
        std::vector<std::string> texts;
        for (const auto& text : held_->texts)
            texts.push_back(*text);
        configuration.withdrawKey(path, property_.name, &texts);
    }

    std::vector<std::size_t> writeGroup(IOvConfiguration& configuration) const {
        std::vector<std::size_t> refused;
        const auto& names = traits_.fieldNames;
        for (std::size_t i = 0; i < std::min(names.size(), values_.size()); ++i) {
            const Fate fate = fateOfAttribute(i);
            if (fate == Fate::written)
                configuration.writeAttribute(traits_.path, traits_.typeWord, property_.name, names[i],
                                             values_[i]);
            else if (fate == Fate::withdrawn || fate == Fate::dropped)
                configuration.withdrawAttribute(traits_.path, traits_.typeWord, property_.name, names[i],
                                                fate == Fate::dropped ? &*held_->texts[i] : nullptr);
            else if (fate == Fate::refused)
                refused.push_back(i);
        }
        return refused;
    }

    const Record& record_;
    const Property& property_;
    const KindTraits& traits_;
    const Statement* held_;
    const std::vector<std::string> values_;
    const std::vector<std::string> defaults_;
    const std::vector<std::string> saved_;
};

/// The refused fields stay as unsaved as they were.
void settleGroup(Record& record, const std::vector<std::size_t>& refused) {
    auto saved = record.property.values;
    for (const std::size_t field : refused) {
        if (field < record.saved->size())
            saved[field] = (*record.saved)[field];
    }
    record.saved = std::move(saved);
}

} // namespace

bool isUnsaved(const Record& record, std::size_t field) {
    return (record.saved || record.withdrawn != 0) && RowWriter(record, nullptr).isUnsaved(field);
}

bool isRedundant(const Record& record, const Statement* statement) {
    if (!statement)
        return false;
    const RowWriter writer(record, statement);
    for (std::size_t field = 0; field < record.property.values.size(); ++field) {
        if (writer.isRedundant(field))
            return true;
    }
    return false;
}

std::vector<Transferred> writeChanges(const iAppConfiguration::Impl& store, IOvConfiguration& configuration) {
    std::vector<Transferred> rows;
    const Level* held = store.knowsWrittenLevel() ? &store.levels.front() : nullptr;
    StatementReader reader(configuration);
    for (std::size_t row = 0; row < store.records.size(); ++row) {
        if (!store.pending[row])
            continue;
        const RowWriter writer(store.records[row], held ? held->find(row) : nullptr);
        auto refused = writer.write(configuration);
        rows.push_back({row, reader.read(row), std::move(refused)});
    }
    return rows;
}

void restoreLevel(const Level& level, IOvConfiguration& configuration) {
    for (const auto& statement : level.statements) {
        const auto& row = catalogue()[statement.row];
        const auto& traits = kindTraits(row.kind);
        const std::string key(row.key);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < statement.texts.size(); ++i) {
            if (!statement.texts[i])
                continue;
            texts.push_back(*statement.texts[i]);
            if (traits.storage == Storage::group)
                configuration.writeAttribute(traits.path, traits.typeWord, key, traits.fieldNames[i],
                                             texts.back());
        }
        if (traits.storage == Storage::list)
            configuration.writeList(pathOf(row.kind, key), key, texts);
        else if (traits.storage == Storage::value && !texts.empty())
            configuration.writeValue(pathOf(row.kind, key), key, texts.front());
    }
}

void settle(iAppConfiguration::Impl& store, std::vector<Transferred> rows) {
    for (auto& [row, statement, refused] : rows) {
        auto& record = store.records[row];
        record.withdrawn = 0;
        store.settled.set(row);
        if (store.knowsWrittenLevel())
            store.levels.front().replace(row, std::move(statement));
        if (refused.empty()) {
            record.saved.reset();
            store.pending.reset(row);
        } else if (kindTraits(record.property.kind).storage == Storage::group) {
            settleGroup(record, refused);
        }
    }
}

} // namespace Orv
