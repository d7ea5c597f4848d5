#pragma once

#include "orv/appconfiguration.h"
#include "store/appcfg.h"
#include "tests/support/testsupport.h"

using Texts = std::vector<std::string>;

/// One `<section>` of a configuration file.
inline std::string section(const std::string& path, const std::string& content) {
    return "<section path=\"" + path + "\">" + content + "</section>";
}

inline std::string lockMark(bool locked) {
    return locked ? " locked=\"yes\"" : "";
}

inline std::string setting(const std::string& key, const std::string& text, bool locked = false) {
    return section("Orvane/SETTINGS",
                   "<value name=\"" + key + "\"" + lockMark(locked) + ">" + text + "</value>");
}

/// @param lockedItems how many of the items, from the first, are locked.
inline std::string list(const std::string& path, const std::string& key, const Texts& items,
                        std::size_t lockedItems = 0) {
    std::string content;
    for (std::size_t i = 0; i < items.size(); ++i)
        content += "<item" + lockMark(i < lockedItems) + ">" + items[i] + "</item>";
    return section(path, "<list name=\"" + key + "\">" + content + "</list>");
}

inline std::string attribute(const std::string& name, const std::string& text, bool locked = false) {
    return "<attribute name=\"" + name + "\"" + lockMark(locked) + ">" + text + "</attribute>";
}

/// The group of an object.
inline std::string object(const std::string& key, const std::string& attributes, bool locked = false) {
    return section("Orvane/OBJECTS", "<group type=\"object\" name=\"" + key + "\"" + lockMark(locked) + ">" +
                                         attributes + "</group>");
}

/// A store over an installation, a site and a user's directory.
class StoreTest : public testing::Test {
protected:
    using Property = Orv::iAppConfiguration::Property;

    void writeLevel(const std::filesystem::path& level, const std::string& sections) {
        testsupport::writeFile(level / "orvane.xml", "<configuration>" + sections + "</configuration>");
    }
    std::string userFile() const { return testsupport::readFile(installation.user() / "orvane.xml"); }

    Property read(const std::string& key) const {
        Property property(key);
        EXPECT_TRUE(store.getProperty(property)) << key;
        return property;
    }
    Texts values(const std::string& key) const { return read(key).values; }
    std::string value(const std::string& key) const {
        std::string text;
        Orv::getValue(store, key, text);
        return text;
    }
    std::vector<std::uint8_t> locks(const std::string& key) const { return read(key).readonly; }

    testsupport::Installation installation;
    Orv::iAppConfiguration store;
};
