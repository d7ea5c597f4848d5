#include "store/overlay.h"

#include "store/catalogue.h"
#include "store/kinds.h"

#include <algorithm>
#include <bitset>
#include <cstdint>

namespace Orv {

namespace {

bool isSet(std::uint8_t flag) {
    return flag != 0;
}

/// The directory that locks a field first is the one to name.
void noteLocks(Record& record, std::size_t place) {
    for (std::size_t i = 0; i < record.origins.size(); ++i) {
        if (isSet(record.property.readonly[i]) && !record.origins[i].lock)
            record.origins[i].lock = place;
    }
}

class ListOverlay {
public:
    ListOverlay(Record& record, const Statement& statement, std::size_t place)
        : record_(record), property_(record.property), statement_(statement), place_(place) {}

    void lay() {
        if (place_ != 0)
            layInherited();
        else if (!layUser())
            return;
        mergeLocks();
        noteLocks(record_, place_);
    }

private:
    /// @return false if the list is dropped, its locks included: one of another length would move locked
    /// fields.
    bool layUser() {
        if (property_.values.empty()) {
            takeAll();
        } else if (property_.values.size() == statement_.fields.size()) {
            for (std::size_t i = 0; i < statement_.fields.size(); ++i) {
                if (!isSet(property_.readonly[i]))
                    take(i);
            }
        } else if (std::ranges::any_of(property_.readonly, isSet)) {
            return false;
        } else {
            takeAll();
            property_.readonly = locks();
        }
        return true;
    }

    void layInherited() {
        const auto count = statement_.fields.size();
        if (property_.defaults.empty()) {
            takeAll();
            property_.defaults = property_.values;
            property_.readonly.resize(count);
            return;
        }
        property_.values.resize(count);
        property_.readonly.resize(count);
        property_.defaults.resize(count);
        record_.origins.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            if (isSet(property_.readonly[i]))
                continue;
            property_.defaults[i] = *statement_.fields[i].text;
            take(i);
        }
    }

    /// A lock once set stays.
    void mergeLocks() {
        auto& flags = property_.readonly;
        if (flags.empty())
            flags = locks();
        for (std::size_t i = 0; i < std::min(flags.size(), statement_.fields.size()); ++i) {
            if (statement_.fields[i].isLocked)
                flags[i] = 1;
        }
    }

    std::vector<std::uint8_t> locks() const {
        std::vector<std::uint8_t> flags;
        for (const auto& field : statement_.fields)
            flags.push_back(field.isLocked);
        return flags;
    }

    void take(std::size_t field) {
        property_.values[field] = *statement_.fields[field].text;
        record_.origins[field].value = place_;
    }

    void takeAll() {
        property_.values.resize(statement_.fields.size());
        record_.origins.assign(statement_.fields.size(), Origin{});
        for (std::size_t i = 0; i < statement_.fields.size(); ++i)
            take(i);
    }

    Record& record_;
    iAppConfiguration::Property& property_;
    const Statement& statement_;
    const std::size_t place_;
};

void overlayGroup(Record& record, const Statement& statement, std::size_t place) {
    auto& property = record.property;
    for (std::size_t i = 0; i < std::min(statement.fields.size(), property.values.size()); ++i) {
        // The value comes before the lock: a configuration may set a field and lock it in one place.
        if (statement.fields[i].text) {
            if (!isSet(property.readonly[i])) {
                property.values[i] = *statement.fields[i].text;
                record.origins[i].value = place;
            }
            if (place != 0)
                property.defaults = property.values;
        }
        if (statement.fields[i].isLocked)
            property.readonly[i] = 1;
    }
    noteLocks(record, place);
}

} // namespace

void overlay(Record& record, const Statement& statement, std::size_t place) {
    if (kindTraits(record.property.kind).storage == Storage::group)
        overlayGroup(record, statement, place);
    else
        ListOverlay(record, statement, place).lay();
}

void layRecord(std::size_t row, const std::vector<Level>& levels, std::size_t lowest, Record& record) {
    assignDefault(row, record);
    for (std::size_t place = levels.size(); place-- > lowest;) {
        if (const auto* statement = levels[place].find(row))
            overlay(record, *statement, place);
    }
}

Record recordOf(std::size_t row, const std::vector<Level>& levels, std::size_t lowest) {
    Record record;
    layRecord(row, levels, lowest, record);
    return record;
}

bool layValues(std::size_t row, const std::vector<Level>& levels, std::vector<std::string_view>& fields) {
    constexpr std::size_t kMostFields = 8;
    cutFields(catalogue()[row].defaultText, fields);
    std::bitset<kMostFields> locked;
    if (fields.empty() || fields.size() > kMostFields)
        return false;
    for (std::size_t place = levels.size(); place-- > 0;) {
        const auto* statement = levels[place].find(row);
        if (!statement)
            continue;
        if (statement->fields.size() != fields.size())
            return false;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const auto& [text, isLocked] = statement->fields[i];
            if (text && !locked[i])
                fields[i] = *text;
            locked[i] = locked[i] || isLocked;
        }
    }
    return true;
}

void inherit(Record& record, std::size_t field, const std::vector<Level>& levels) {
    auto& property = record.property;
    const auto row = findRow(property.name);
    // Defaults that were set since the load come from no level.
    Record inherited = record.hasOwnDefaults || !row ? Record{} : recordOf(*row, levels, 1);
    inherited.origins.resize(property.defaults.size());
    if (kindTraits(property.kind).storage == Storage::group) {
        property.values[field] = field < property.defaults.size() ? property.defaults[field] : std::string();
        record.origins[field].value =
            field < inherited.origins.size() ? inherited.origins[field].value : std::nullopt;
    } else {
        property.values = property.defaults;
        property.readonly.resize(property.values.size());
        record.origins.resize(property.values.size());
        for (std::size_t i = 0; i < record.origins.size(); ++i)
            record.origins[i].value = inherited.origins[i].value;
    }
    record.isFlushed = false;
}

} // namespace Orv
