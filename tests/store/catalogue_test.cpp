#include "tests/store/storetest.h"

#include "store/catalogue.h"
#include "store/kinds.h"

#include <map>

using Orv::iAppConfiguration;

class Catalogue : public StoreTest {};

TEST_F(Catalogue, EveryPropertyHasAsManyFieldsAsItsKindNames) {
    for (const auto& row : Orv::catalogue()) {
        const auto names = iAppConfiguration::fieldNames(row.kind);
        if (!names.empty()) {
            EXPECT_EQ(Orv::cutFields(row.defaultText).size(), names.size()) << row.key;
        }
        EXPECT_EQ(iAppConfiguration::kindOf(row.key), row.kind) << row.key;
    }
}

TEST_F(Catalogue, OnlyTheExactKeyIsFound) {
    for (const char* text : {"", "N", "NE", "NETS", "net", "GRID_H", "GRID_HR ",
                             "GRID_HIGHLIGHT_XXXXX_INTERVAL", "NAV_FUNCTIONBLOCK_FILTER_USE_REGEXQ"})
        EXPECT_EQ(iAppConfiguration::kindOf(text), 0) << text;
}

TEST_F(Catalogue, EveryKeyIsReadAndWrittenWhereAFileHasItsKind) {
    const std::string everyKey = testsupport::readFile(OV_EVERY_KEY);
    testsupport::writeFile(installation.user() / "orvane.xml", everyKey);
    ASSERT_TRUE(store.load());
    std::vector<Property> inFile;
    auto keys = store.keys();
    keys.resize(keys.size() - OV_SPARE_SETTINGS); // the file names what is shipped
    for (const std::string& key : keys) {
        inFile.push_back(read(key));
        EXPECT_EQ(store.valueDirectory(key, 0), installation.user().string()) << key;
    }
    std::filesystem::remove(installation.user() / "orvane.xml");
    ASSERT_TRUE(store.load());
    for (const Property& property : inFile)
        store.setProperty(property);
    ASSERT_TRUE(store.save());
    EXPECT_TRUE(userFile() == everyKey) << userFile();
}

TEST_F(Catalogue, WithoutConfigurationsEveryValueIsItsUnlockedDefault) {
    ASSERT_TRUE(store.load());
    ASSERT_EQ(store.keys().size(), kSettings);
    for (const auto& row : Orv::catalogue()) {
        const auto property = read(std::string(row.key));
        EXPECT_EQ(property.defaults, Orv::cutFields(row.defaultText)) << row.key;
        EXPECT_EQ(property.values.size(), property.defaults.size()) << row.key;
        EXPECT_EQ(property.readonly, std::vector<std::uint8_t>(property.values.size())) << row.key;
    }
    const std::map<std::string, Texts> expected = {
        {"UNIT", {"in"}},
        {"GRID_HR", {"254000"}},
        {"SHEETSIZE", {"1"}},
        {"MRU_PROJECTS", {}},
        {"ICT_HIDDEN_PRPS", {}},
        {"A4_SIZE_HR", {"29699999.02", "20999999.91"}},
        {"NAV_NET_LABEL_FORMAT", {"$(Name)"}},
        {"BUS", {"1", "1", "0xffff00", "1", "0", "10"}},
        {"DRAG_LAYER", {"0x00ff00", "0", "0"}},
        {"ICTGROUP", {"0xa6caf0", "0x000000"}},
    };
    for (const auto& [key, fields] : expected)
        EXPECT_EQ(values(key), fields) << key;
    EXPECT_EQ(values("SCREEN").size() + values("PRINTER").size(), 32U);
}
