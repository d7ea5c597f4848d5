#include "tests/store/storetest.h"

#include "suite/configuration.h"

#include <algorithm>

using testsupport::ScopedEnvironment;
namespace fs = std::filesystem;

class Persistence : public StoreTest {
protected:
    std::string pathList(std::initializer_list<fs::path> directories) const {
        std::string joined;
        for (const auto& directory : directories)
            joined += (joined.empty() ? "" : ";") + directory.string();
        return joined;
    }
};

TEST_F(Persistence, UnusableDirectoriesLeaveTheDefaultsAndTheOldCaches) {
    const auto user = installation.user();
    const auto standard = installation.standard();
    const auto home = installation.home().string();
    const struct {
        const char* what;
        std::optional<std::string> home;
        std::optional<std::string> wdir;
    } rows[] = {
        {"no RSR_HOME", std::nullopt, pathList({user, standard})},
        {"empty RSR_HOME", "", pathList({user, standard})},
        {"no WDIR", home, std::nullopt},
        {"one directory", home, standard.string()},
        {"one directory by another name", home, (installation.home() / "./standard").string()},
        {"the last one outside", home, pathList({user, standard, installation.site()})},
    };
    writeLevel(user, setting("GRID_HR", "100"));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ASSERT_TRUE(store.load());
        const ScopedEnvironment rsrHome("RSR_HOME", row.home);
        const ScopedEnvironment wdir("WDIR", row.wdir);
        EXPECT_FALSE(store.load("/some/other.prj"));
        EXPECT_EQ(store.keys().size(), kSettings);
        EXPECT_EQ(read("GRID_HR").defaults, Texts{"254000"});
        EXPECT_EQ(value("UNIT"), "in");
        EXPECT_EQ(store.getNumber("GRID_HR"), 100.0F) << "the caches are those of the load before";
        EXPECT_FALSE(store.save()) << "a list that failed is not used again";
        EXPECT_FALSE(store.load("/some/other.prj"));
        EXPECT_TRUE(store.workingDirectories().empty());
    }
}

TEST_F(Persistence, AnInstallationIsKnownWithCapitalsAndBackslashes) {
    testsupport::TemporaryDirectory root;
    const auto standard = root.path() / "Home" / "standard";
    writeLevel(standard, setting("GRID_HR", "100"));
    auto home = (root / "Home").string();
    std::ranges::replace(home += "//", '/', '\\');
    const ScopedEnvironment rsrHome("RSR_HOME", home);
    const ScopedEnvironment wdir("WDIR", pathList({root / "user", standard}));
    EXPECT_TRUE(store.load()) << home;
    EXPECT_EQ(store.getNumber("GRID_HR"), 100.0F);
}

TEST_F(Persistence, TheDirectoryListIsKeptForTheSameProject) {
    ASSERT_TRUE(store.load("/p.prj"));
    const ScopedEnvironment wdir("WDIR", std::nullopt);
    EXPECT_TRUE(store.save());
    EXPECT_TRUE(store.load("/p.prj"));
    EXPECT_FALSE(store.load());
}

TEST_F(Persistence, MissingAndDamagedLevelsAreSkipped) {
    std::string told;
    auto& manager = Orv::IOvConfigurationManager::Instance();
    manager.SetErrorHandler([&](const std::string& message) { told += message; });
    writeLevel(installation.standard(), setting("GRID_HR", "100"));
    testsupport::writeFile(installation.site() / "orvane.xml", "<configuration><section");
    fs::remove_all(installation.user());
    EXPECT_TRUE(store.load());
    EXPECT_EQ(value("GRID_HR"), "100");
    EXPECT_TRUE(testsupport::contains(told, "site"));
    EXPECT_FALSE(store.save()) << "there is no directory to write to";
    manager.SetErrorHandler({});
}

TEST_F(Persistence, AFileThatCouldNotBeReadLosesNothingWhenItIsRepairedBeforeTheNextSave) {
    writeLevel(installation.user(), setting("GRID_HR", "508000") + "<");
    ASSERT_TRUE(store.load());
    const std::string repaired = setting("GRID_HR", "508000") + setting("NET_LENGTH_HR", "7") +
                                 object("PIN", attribute("VISIBLE", "0")) +
                                 list("Orvane/SETTINGS", "MRU_PROJECTS", {"a.prj"});
    writeLevel(installation.user(), repaired);
    Orv::setValue(store, "MRU_SETTINGS", "Grid");
    for (const char* color : {"0x000001", "0xff00ff"}) {
        Orv::setValueAt(store, 2, "PIN", color);
        Orv::setValueAt(store, 5, "PIN", "3");
        ASSERT_TRUE(store.save());
    }
    ASSERT_TRUE(store.load());
    EXPECT_EQ(value("GRID_HR"), "508000");
    EXPECT_EQ(value("NET_LENGTH_HR"), "7");
    EXPECT_EQ(values("PIN"), (Texts{"0", "1", "0xff00ff", "0", "0", "3"}));
    EXPECT_FALSE(testsupport::contains(userFile(), "COLOR")) << "it is the default again";
    EXPECT_EQ(value("MRU_PROJECTS"), "a.prj");
    EXPECT_EQ(value("MRU_SETTINGS"), "Grid");

    writeLevel(installation.user(), "<");
    ASSERT_TRUE(store.load());
    for (const char* page : {"Grid", "Designs"}) {
        Orv::setValue(store, "MRU_SETTINGS", page);
        ASSERT_TRUE(store.save());
    }
    EXPECT_FALSE(testsupport::contains(userFile(), "MRU_SETTINGS")) << "it is the default again";
}

TEST_F(Persistence, ALoadThatFailedTakesNothingOutOfTheFile) {
    writeLevel(installation.user(), setting("LANGUAGE", "Japanese"));
    ASSERT_TRUE(store.load());
    {
        const testsupport::ScopedEnvironment gone("RSR_HOME", std::nullopt);
        EXPECT_FALSE(store.load("/another.prj"));
    }
    ASSERT_TRUE(store.save());
    ASSERT_TRUE(store.load());
    EXPECT_EQ(value("LANGUAGE"), "Japanese");
}

TEST_F(Persistence, OriginsStayThoseOfTheLoadWhenTheDirectoriesChange) {
    writeLevel(installation.site(), setting("GRID_HR", "508000", true));
    const testsupport::ScopedEnvironment noUser("WDIR", ";" + installation.site().string());
    ASSERT_TRUE(store.load());
    {
        const testsupport::ScopedEnvironment gone("RSR_HOME", std::nullopt);
        EXPECT_FALSE(store.save());
    }
    EXPECT_EQ(store.lockingDirectory("GRID_HR", 0), installation.site().string());
    EXPECT_EQ(store.valueDirectory("GRID_HR", 0), installation.site().string());
}
