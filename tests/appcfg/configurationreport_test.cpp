#include "orv/configurationreport.h"
#include "tests/appcfg/storetest.h"

#include <tuple>

using Orv::reportProperty;

class ConfigurationReport : public StoreTest {};

TEST_F(ConfigurationReport, EachLevelSaysWhatItHoldsAndTheWinnerIsNamed) {
    writeLevel(installation.standard(), object("NET", attribute("COLOR", "0x0000FF", true)));
    writeLevel(installation.user(),
               object("NET", attribute("COLOR", "0xff0000") + attribute("VISIBLE", "0")));
    ASSERT_TRUE(store.load());
    const auto report = reportProperty(store, "NET");
    ASSERT_TRUE(report);
    EXPECT_EQ(report->property.kind, Orv::iAppConfiguration::KindObject);
    EXPECT_EQ(report->builtInDefault[2], "0x00ff00");
    ASSERT_EQ(report->levels.size(), 3U);
    const auto& [standard, site, user] = std::tie(report->levels[0], report->levels[1], report->levels[2]);
    EXPECT_EQ(standard.values[2], "0x0000FF");
    EXPECT_TRUE(standard.locks[2]);
    EXPECT_EQ(standard.values[0], std::nullopt);
    EXPECT_TRUE(site.hasConfiguration);
    EXPECT_FALSE(site.present);
    EXPECT_EQ(user.values[2], "0xff0000");
    EXPECT_EQ(report->origins[0].valueDirectory, installation.user());
    EXPECT_EQ(report->origins[2].valueDirectory, installation.standard());
    EXPECT_EQ(report->origins[2].lockDirectory, installation.standard());
    EXPECT_EQ(report->origins[5].valueDirectory, "");
    EXPECT_TRUE(report->changed);

    Orv::setValueAt(store, 0, "NET", "1");
    EXPECT_EQ(reportProperty(store, "NET")->origins[0].valueDirectory, "")
        << "no file says what was set since";
}

TEST_F(ConfigurationReport, AnotherSpellingOfTheDefaultIsNoChange) {
    writeLevel(installation.standard(),
               setting("GRID_HR", "2.54e5") + object("NET", attribute("COLOR", "0X00FF00")));
    std::filesystem::remove(installation.user());
    ASSERT_TRUE(store.load());
    const auto reports = Orv::reportConfiguration(store);
    EXPECT_EQ(reports.size(), 255U);
    for (const auto& report : reports) {
        EXPECT_FALSE(report.changed) << report.property.name;
        EXPECT_FALSE(report.levels.back().hasConfiguration);
    }
    Orv::setValues(store, "MRU_PROJECTS", {"a.prj"});
    EXPECT_TRUE(reportProperty(store, "MRU_PROJECTS")->changed);
    EXPECT_FALSE(reportProperty(store, "NO_SUCH_KEY"));
}
