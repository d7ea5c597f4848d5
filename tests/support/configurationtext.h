#pragma once

#include "tests/support/testsupport.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace testsupport {

// The texts of configuration files, in parts that stand behind one another.

/// Why a section's locks are there, and whom to ask.
struct LockNotes {
    std::string reason;
    std::string contact;
};

/// One `<section>` of a configuration file.
inline std::string section(const std::string& path, const std::string& content,
                           const std::optional<LockNotes>& notes = std::nullopt) {
    const std::string marks =
        notes ? " reason=\"" + notes->reason + "\" contact=\"" + notes->contact + "\"" : "";
    return "<section path=\"" + path + "\"" + marks + ">" + content + "</section>";
}

inline std::string lockMark(bool locked) {
    return locked ? " locked=\"yes\"" : "";
}

/// One `<value>` of a section.
inline std::string settingValue(const std::string& key, const std::string& text, bool locked = false) {
    return "<value name=\"" + key + "\"" + lockMark(locked) + ">" + text + "</value>";
}

inline std::string setting(const std::string& key, const std::string& text, bool locked = false) {
    return section("Orvane/SETTINGS", settingValue(key, text, locked));
}

/// @param lockedItems how many of the items, from the first, are locked.
inline std::string list(const std::string& path, const std::string& key,
                        const std::vector<std::string>& items, std::size_t lockedItems = 0) {
    std::string content;
    for (std::size_t i = 0; i < items.size(); ++i)
        content += "<item" + lockMark(i < lockedItems) + ">" + items[i] + "</item>";
    return section(path, "<list name=\"" + key + "\">" + content + "</list>");
}

inline std::string attribute(const std::string& name, const std::string& text, bool locked = false) {
    return "<attribute name=\"" + name + "\"" + lockMark(locked) + ">" + text + "</attribute>";
}

/// The group of an object.
inline std::string object(const std::string& key, const std::string& attributes, bool locked = false,
                          const std::optional<LockNotes>& notes = std::nullopt) {
    return section("Orvane/OBJECTS",
                   "<group type=\"object\" name=\"" + key + "\"" + lockMark(locked) + ">" + attributes +
                       "</group>",
                   notes);
}

/// The file of a level, with these sections.
inline std::string configurationText(const std::string& sections) {
    return "<configuration>" + sections + "</configuration>";
}
inline void writeLevel(const std::filesystem::path& level, const std::string& sections) {
    writeFile(level / "orvane.xml", configurationText(sections));
}

} // namespace testsupport
