#pragma once

#include "orv/appconfiguration.h"
#include "store/appcfg.h"
#include "tests/support/configurationtext.h"
#include "tests/support/testsupport.h"

using Texts = std::vector<std::string>;

// The build that tries whether there is room for more says how many.
#ifndef OV_SPARE_SETTINGS
#define OV_SPARE_SETTINGS 0
#endif
inline constexpr std::size_t kSettings = 255 + OV_SPARE_SETTINGS;

using namespace testsupport;

/// A store over an installation, a site and a user's directory.
class StoreTest : public testing::Test {
protected:
    using Property = Orv::iAppConfiguration::Property;

    std::string userFile() const { return readFile(installation.user() / "orvane.xml"); }

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

    Installation installation;
    Orv::iAppConfiguration store;
};
