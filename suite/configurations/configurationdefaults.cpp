// What a configuration does that knows whole groups only: its changes are those of the operations that it
// has.

#include "suite/configuration.h"

#include <algorithm>

namespace Orv {

namespace {

bool isMarked(std::uint8_t flag) {
    return flag != 0;
}

} // namespace

void IOvConfiguration::writeAttribute(const std::string& path, const std::string& typeWord,
                                      const std::string& key, const std::string& name,
                                      const std::string& text) {
    std::map<std::string, std::string> attributes;
    std::map<std::string, int> locks;
    bool groupLocked = false;
    readGroup(path, typeWord, key, attributes, locks, groupLocked);
    attributes[name] = text;
    removeGroup(path, typeWord, key);
    writeGroup(path, typeWord, key, attributes);
}

void IOvConfiguration::withdrawKey(const std::string& path, const std::string& key,
                                   const std::vector<std::string>* ifSays) {
    std::vector<std::string> values;
    std::vector<std::uint8_t> locks;
    if (readList(path, key, values, locks) && std::ranges::none_of(locks, isMarked) &&
        (!ifSays || values == *ifSays))
        removeKey(path, key);
}

void IOvConfiguration::withdrawAttribute(const std::string& path, const std::string& typeWord,
                                         const std::string& key, const std::string& name,
                                         const std::string* ifSays) {
    std::map<std::string, std::string> attributes;
    std::map<std::string, int> locks;
    bool groupLocked = false;
    if (!readGroup(path, typeWord, key, attributes, locks, groupLocked))
        return;
    const auto attribute = attributes.find(name);
    const auto lock = locks.find(name);
    const bool isLocked = groupLocked || (lock != locks.end() && lock->second == 1);
    if (isLocked || attribute == attributes.end() || (ifSays && attribute->second != *ifSays))
        return;
    attributes.erase(attribute);
    removeGroup(path, typeWord, key);
    if (!attributes.empty())
        writeGroup(path, typeWord, key, attributes);
}

LockNote IOvConfiguration::keyLockNote(const std::string&, const std::string&, std::size_t) const {
    return {};
}

LockNote IOvConfiguration::groupLockNote(const std::string&, const std::string&, const std::string&,
                                         const std::string&) const {
    return {};
}

bool IOvConfiguration::readAll(const EntryReader&) const {
    return false;
}

} // namespace Orv
