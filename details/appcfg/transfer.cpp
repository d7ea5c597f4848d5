#include "details/appcfg/transfer.h"

#include "details/appcfg/kinds.h"

#include <algorithm>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

bool isSet(std::uint8_t flag) {
    return flag != 0;
}

/// The fields of a group that differ from the defaults, by name.
std::map<std::string, std::string> ownAttributes(const Property& property) {
    const auto& names = kindTraits(property.kind).fieldNames;
    std::map<std::string, std::string> attributes;
    for (std::size_t i = 0; i < std::min(names.size(), property.values.size()); ++i) {
        if (i >= property.defaults.size() || property.values[i] != property.defaults[i])
            attributes[names[i]] = property.values[i];
    }
    return attributes;
}

/// A value that is locked is left alone; a list or a group is written although it is locked, and a group
/// loses the marks it had. This is meant.
Standing standingOf(const Property& property) {
    const auto storage = kindTraits(property.kind).storage;
    if (storage == Storage::group)
        return ownAttributes(property).empty() ? Standing::inherited : Standing::own;
    if (property.values.empty() || property.values.front().empty())
        return Standing::silent;
    if (storage == Storage::list)
        return property.values == property.defaults ? Standing::inherited : Standing::own;
    if (isSet(property.readonly.front()))
        return Standing::silent;
    const bool isInherited =
        !property.defaults.empty() && property.values.front() == property.defaults.front();
    return isInherited ? Standing::inherited : Standing::own;
}

void remove(int kind, const std::string& name, IOvConfiguration& configuration) {
    const auto& traits = kindTraits(kind);
    if (traits.storage == Storage::group)
        configuration.removeGroup(traits.path, traits.typeWord, name);
    else
        configuration.removeKey(pathOf(kind, name), name);
}

void write(const Property& property, IOvConfiguration& configuration) {
    const auto& traits = kindTraits(property.kind);
    const auto& path = pathOf(property.kind, property.name);
    switch (traits.storage) {
    case Storage::value:
        configuration.writeValue(path, property.name, property.values.front());
        break;
    case Storage::list:
        configuration.writeList(path, property.name, property.values);
        break;
    case Storage::group:
        configuration.removeGroup(path, traits.typeWord, property.name);
        configuration.writeGroup(path, traits.typeWord, property.name, ownAttributes(property));
        break;
    }
}

/// With the values and the defaults in one spelling.
Property inNormalForm(Property property) {
    normaliseFields(property.kind, property.values);
    normaliseFields(property.kind, property.defaults);
    return property;
}

/// Puts the fields that differ from the defaults into what the configuration says of the group.
void mergeGroup(const Property& property, std::uint8_t& writtenFields, IOvConfiguration& configuration) {
    const auto own = ownAttributes(property);
    if (own.empty() && writtenFields == 0)
        return;
    const auto& traits = kindTraits(property.kind);
    std::map<std::string, std::string> attributes;
    std::map<std::string, int> locks;
    bool isLocked = false;
    configuration.readGroup(traits.path, traits.typeWord, property.name, attributes, locks, isLocked);
    for (std::size_t i = 0; i < traits.fieldNames.size(); ++i) {
        const auto bit = static_cast<std::uint8_t>(1U << i);
        if (const auto field = own.find(traits.fieldNames[i]); field != own.end()) {
            attributes[field->first] = field->second;
            writtenFields |= bit;
        } else if ((writtenFields & bit) != 0) {
            attributes.erase(traits.fieldNames[i]);
        }
    }
    configuration.removeGroup(traits.path, traits.typeWord, property.name);
    if (!attributes.empty())
        configuration.writeGroup(traits.path, traits.typeWord, property.name, attributes);
}

/// Writes into a configuration of which the store has seen nothing, such as a file that was repaired since
/// the load: only what was changed since then is written.
void writeUnseen(const Property& property, Standing standing, std::uint8_t& writtenFields,
                 IOvConfiguration& configuration) {
    if (kindTraits(property.kind).storage == Storage::group) {
        mergeGroup(inNormalForm(property), writtenFields, configuration);
        return;
    }
    if (writtenFields == 0 && standing == Standing::own)
        standing = standingOf(inNormalForm(property));
    if (standing == Standing::own) {
        write(property, configuration);
        writtenFields = 1;
    } else if (standing == Standing::inherited && writtenFields != 0) {
        remove(property.kind, property.name, configuration);
    }
}

} // namespace

ConfigurationReader::ConfigurationReader(iAppConfiguration::Impl& store,
                                         const IOvConfiguration& configuration, std::size_t place)
    : store_(store),
      configuration_(configuration),
      place_(place),
      mostSpecific_(store.currentDirectory == store.writeDirectory) {
}

void ConfigurationReader::readAll() {
    for (auto& record : store_.records) {
        if (kindTraits(record.property.kind).storage == Storage::group)
            readGroup(record);
        else
            readList(record);
    }
}

void ConfigurationReader::readList(Record& record) {
    const auto& property = record.property;
    if (!configuration_.readList(pathOf(property.kind, property.name), property.name, values_, locks_))
        return;
    locks_.resize(values_.size());
    if (mostSpecific_) {
        if (!readUserList(record))
            return;
    } else {
        readInheritedList(record);
    }
    mergeLocks(record);
    noteLocks(record);
}

/// @return false if the list is dropped, its locks included: one of another length would move locked fields.
bool ConfigurationReader::readUserList(Record& record) const {
    auto& property = record.property;
    if (property.values.empty()) {
        takeList(record);
    } else if (property.values.size() == values_.size()) {
        for (std::size_t i = 0; i < values_.size(); ++i) {
            if (!isSet(property.readonly[i]))
                take(record, i, values_[i]);
        }
    } else if (std::ranges::any_of(property.readonly, isSet)) {
        return false;
    } else {
        takeList(record);
        property.readonly = locks_;
    }
    return true;
}

void ConfigurationReader::readInheritedList(Record& record) const {
    auto& property = record.property;
    if (property.defaults.empty()) {
        property.defaults = values_;
        takeList(record);
        property.readonly.resize(values_.size());
        return;
    }
    property.values.resize(values_.size());
    property.readonly.resize(values_.size());
    property.defaults.resize(values_.size());
    record.origins.resize(values_.size());
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (isSet(property.readonly[i]))
            continue;
        property.defaults[i] = values_[i];
        take(record, i, values_[i]);
    }
}

/// A lock once set stays.
void ConfigurationReader::mergeLocks(Record& record) const {
    auto& flags = record.property.readonly;
    if (flags.empty())
        flags = locks_;
    for (std::size_t i = 0; i < std::min(flags.size(), locks_.size()); ++i) {
        if (!isSet(flags[i]))
            flags[i] = locks_[i];
    }
}

void ConfigurationReader::readGroup(Record& record) {
    auto& property = record.property;
    const auto& traits = kindTraits(property.kind);
    bool groupLocked = false;
    if (!configuration_.readGroup(traits.path, traits.typeWord, property.name, attributes_, attributeLocks_,
                                  groupLocked)) {
        property.values = property.defaults;
        return;
    }
    for (std::size_t i = 0; i < std::min(traits.fieldNames.size(), property.values.size()); ++i) {
        // The value comes before the lock: a configuration may set a field and lock it in one place.
        if (const auto text = attributes_.find(traits.fieldNames[i]); text != attributes_.end()) {
            if (!isSet(property.readonly[i]))
                take(record, i, text->second);
            if (!mostSpecific_)
                property.defaults = property.values;
        }
        if (groupLocked)
            continue;
        const auto lock = attributeLocks_.find(traits.fieldNames[i]);
        if (lock != attributeLocks_.end() && lock->second == 1)
            property.readonly[i] = 1;
    }
    if (groupLocked)
        std::ranges::fill(property.readonly, std::uint8_t{1});
    noteLocks(record);
}

void ConfigurationReader::take(Record& record, std::size_t field, const std::string& text) const {
    record.property.values[field] = text;
    record.origins[field].value = place_;
}

void ConfigurationReader::takeList(Record& record) const {
    record.property.values = values_;
    record.origins.assign(values_.size(), Origin{place_, std::nullopt});
}

/// The directory that locks a field first is the one to name.
void ConfigurationReader::noteLocks(Record& record) const {
    for (std::size_t i = 0; i < record.origins.size(); ++i) {
        if (isSet(record.property.readonly[i]) && !record.origins[i].lock)
            record.origins[i].lock = place_;
    }
}

void writeAll(iAppConfiguration::Impl& store, IOvConfiguration& configuration) {
    const bool isSettled = configuration.revision() != 0 && configuration.revision() == store.settledRevision;
    for (std::size_t row = 0; row < store.records.size(); ++row) {
        const auto& property = store.records[row].property;
        auto& standing = store.standings[row];
        if (standing == Standing::unknown)
            standing = standingOf(property);
        else if (isSettled)
            continue;
        if (!store.knowsWrittenLevel)
            writeUnseen(property, standing, store.writtenFields[row], configuration);
        else if (standing == Standing::own)
            write(property, configuration);
        else if (standing == Standing::inherited)
            remove(catalogue()[row].kind, property.name, configuration);
    }
    store.settledRevision = configuration.revision();
}

} // namespace Orv
