#include "orv/configurationreport.h"
#include "tests/store/storetest.h"

using Orv::reportProperty;

class ConfigurationReport : public StoreTest {};

TEST_F(ConfigurationReport, NoFileIsTheOriginOfWhatWasSetSinceTheLoad) {
    writeLevel(installation.user(), object("NET", attribute("VISIBLE", "0")) + setting("GRID_HR", "2540000"));
    ASSERT_TRUE(store.load());
    EXPECT_EQ(reportProperty(store, "NET")->origins[0].valueDirectory, installation.user());
    Orv::setValueAt(store, 0, "NET", "1");
    EXPECT_EQ(reportProperty(store, "NET")->origins[0].valueDirectory, "");
    Orv::setValue(store, "GRID_HR", "2540000");
    EXPECT_EQ(store.valueDirectory("GRID_HR", 0), installation.user()) << "it was read back as 2.54e+06";
}

TEST_F(ConfigurationReport, AnotherSpellingOfTheDefaultIsNoChange) {
    writeLevel(installation.standard(),
               setting("GRID_HR", "2.54e5") + object("NET", attribute("COLOR", "0X00FF00")));
    std::filesystem::remove(installation.user());
    ASSERT_TRUE(store.load());
    const auto reports = Orv::reportConfiguration(store);
    EXPECT_EQ(reports.size(), kSettings);
    for (const auto& report : reports) {
        EXPECT_FALSE(report.changed) << report.property.name;
        EXPECT_FALSE(report.levels.back().hasConfiguration);
    }
    Orv::setValues(store, "MRU_PROJECTS", {"a.prj"});
    EXPECT_TRUE(reportProperty(store, "MRU_PROJECTS")->changed);
    EXPECT_FALSE(reportProperty(store, "NO_SUCH_KEY"));
}
