// What a running program takes over of what others write.

#include "ovsettings/configurationwatcher.h"
#include "tests/store/storetest.h"

#include <QtTest/QSignalSpy>

#include <functional>

namespace {

class Told : public Orv::iAppConfiguration::iEventSink {
public:
    explicit Told(Orv::iAppConfiguration& store) : store_(store) {}
    void propertyChanged(const std::string& key, float value) override {
        told.emplace_back(key, value);
        EXPECT_FALSE(store_.refresh().isDone) << "not inside a notification";
        EXPECT_EQ(store_.getNumber("GRID_HR"), 7.0F) << "all values come before the first notice";
    }
    std::vector<std::pair<std::string, float>> told;

private:
    Orv::iAppConfiguration& store_;
};

} // namespace

class Refresh : public StoreTest {
protected:
    using Field = Orv::RefreshResult::Field;
};

TEST_F(Refresh, TakesOverWhatOthersWroteUnderWhatIsUnsaved) {
    writeLevel(installation.site(), setting("BELL", "0"));
    ASSERT_TRUE(store.load());
    const auto grid = store.handleOf("GRID_HR");
    Orv::setValueAt(store, 2, "NET", "0xff0000");
    Orv::setValue(store, "LANGUAGE", "German");
    Orv::setValues(store, "PRINTER", {"mine"});
    Orv::setValue(store, "MRU_SCHEMA", "mine.ovc");
    Told sink(store);
    store.addSink(&sink);
    writeLevel(installation.site(),
               object("NET", attribute("COLOR", "0x0000ff") + attribute("VISIBLE", "0")) +
                   setting("MRU_SCHEMA", "site.ovc", true));
    writeLevel(installation.user(), setting("GRID_HR", "7") + setting("LANGUAGE", "French") +
                                        list("Orvane/COLORS", "PRINTER", {"theirs"}));
    const auto result = store.refresh();
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(sink.told,
              (decltype(sink.told){{"NET", 0.0F}, {"BELL", 1.0F}, {"GRID_HR", 7.0F}, {"MRU_SCHEMA", 0.0F}}));
    EXPECT_EQ(result.changed, (Texts{"NET", "BELL", "GRID_HR", "MRU_SCHEMA"}));
    EXPECT_EQ(result.dropped, (std::vector<Field>{{"MRU_SCHEMA", 0}}));
    EXPECT_EQ(store.getNumber(grid), 7.0F);
    EXPECT_EQ(values("NET"), (Texts{"0", "1", "0xff0000", "1", "0", "1"}));
    EXPECT_EQ(value("LANGUAGE"), "German");
    EXPECT_EQ(values("PRINTER"), Texts{"mine"});
    EXPECT_EQ(value("MRU_SCHEMA"), "site.ovc");
    EXPECT_EQ(store.lockingDirectory("MRU_SCHEMA", 0), installation.site().string());
    store.removeSink(&sink);

    ASSERT_TRUE(store.save());
    ASSERT_TRUE(store.refresh().changed.empty());
    ASSERT_TRUE(store.load());
    EXPECT_EQ(values("NET"), (Texts{"0", "1", "0xff0000", "1", "0", "1"}));
    EXPECT_EQ(value("LANGUAGE"), "German");
    EXPECT_EQ(value("GRID_HR"), "7");
}

TEST_F(Refresh, TakesOverWhatASaveHasFoundBesideItsOwn) {
    writeLevel(installation.user(), setting("BELL", "1"));
    ASSERT_TRUE(store.load());
    writeLevel(installation.user(), setting("GRID_HR", "508000") + setting("BELL", "0") +
                                        object("NET", attribute("VISIBLE", "0")));
    Orv::setValue(store, "GRID_HR", "254000"); // a page stores what it shows
    Orv::setValueAt(store, 2, "NET", "0xff0000");
    ASSERT_TRUE(store.save());
    EXPECT_EQ(store.refresh().changed, (Texts{"NET", "BELL", "GRID_HR"}));
    EXPECT_EQ(value("GRID_HR"), "508000");
    EXPECT_EQ(value("BELL"), "0");
    EXPECT_EQ(values("NET"), (Texts{"0", "1", "0xff0000", "1", "0", "1"}));
}

TEST_F(Refresh, AnUnsavedTextWithoutADefaultStays) {
    writeLevel(installation.user(), setting("MRU_SCHEMA", "old.ovc") + setting("PRINTDEVICENAME", "old"));
    ASSERT_TRUE(store.load());
    Orv::setValue(store, "MRU_SCHEMA", "mine.ovc");
    ASSERT_TRUE(store.reset("PRINTDEVICENAME", 0));
    writeLevel(installation.user(), setting("PRINTDEVICENAME", "theirs"));
    EXPECT_TRUE(store.refresh().dropped.empty());
    EXPECT_EQ(value("MRU_SCHEMA"), "mine.ovc");
    EXPECT_EQ(value("PRINTDEVICENAME"), "");
    ASSERT_TRUE(store.save());
    EXPECT_TRUE(testsupport::contains(userFile(), "mine.ovc"));
    EXPECT_FALSE(testsupport::contains(userFile(), "theirs"));
}

TEST_F(Refresh, AListThatIsLockedInPartKeepsItsEditAndTakesWhatIsLocked) {
    writeLevel(installation.site(), list("Orvane/COLORS", "PRINTER", {"a", "b", "c"}, 1));
    ASSERT_TRUE(store.load());
    Orv::setValues(store, "PRINTER", {"x", "y"});
    writeLevel(installation.site(), list("Orvane/COLORS", "PRINTER", {"A", "b", "c"}, 1));
    EXPECT_TRUE(store.refresh().dropped.empty());
    EXPECT_EQ(values("PRINTER"), (Texts{"A", "y"}));
}

TEST_F(Refresh, AResetFollowsWhatIsInherited) {
    writeLevel(installation.user(), setting("GRID_HR", "7") + object("NET", attribute("VISIBLE", "0")));
    ASSERT_TRUE(store.load());
    ASSERT_TRUE(store.reset("GRID_HR", 0));
    ASSERT_TRUE(store.reset("NET", 0));
    writeLevel(installation.site(), setting("GRID_HR", "9"));
    writeLevel(installation.user(), setting("GRID_HR", "8") + object("NET", attribute("VISIBLE", "0")));
    ASSERT_TRUE(store.refresh().isDone);
    EXPECT_EQ(store.getNumber("GRID_HR"), 9.0F);
    EXPECT_EQ(values("NET").front(), "1");
    ASSERT_TRUE(store.save());
    EXPECT_FALSE(testsupport::contains(userFile(), "GRID_HR") ||
                 testsupport::contains(userFile(), "VISIBLE"));
}

TEST_F(Refresh, ALevelThatCannotBeReadKeepsWhatItSaid) {
    const auto file = installation.site() / "orvane.xml";
    const std::function<void()> harms[] = {
        [&] { testsupport::writeFile(file, "<configuration><section"); },
        [&] { std::filesystem::create_directory(file); },
        [&] { std::filesystem::create_symlink(file, file); },
        [&] { std::filesystem::remove_all(installation.site()); },
    };
    for (const auto& harm : harms) {
        writeLevel(installation.site(), setting("GRID_HR", "7", true));
        ASSERT_TRUE(store.load());
        std::filesystem::remove_all(file);
        harm();
        EXPECT_TRUE(store.refresh().changed.empty());
        EXPECT_EQ(store.getNumber("GRID_HR"), 7.0F);
        Orv::setValue(store, "GRID_HR", "8");
        EXPECT_EQ(value("GRID_HR"), "7") << "and its locks";
        std::filesystem::remove_all(file);
        std::filesystem::create_directories(installation.site());
        EXPECT_EQ(store.refresh().changed, Texts{"GRID_HR"}) << "an empty directory says nothing";
    }
}

TEST_F(Refresh, DefaultsThatWereSetStandUntilTheNextLoad) {
    ASSERT_TRUE(store.load());
    store.setPropertyDefaults("UNDO_LEVEL", {"5"});
    writeLevel(installation.user(), setting("UNDO_LEVEL", "9"));
    EXPECT_TRUE(store.refresh().changed.empty());
    EXPECT_EQ(value("UNDO_LEVEL"), "5");
    ASSERT_TRUE(store.load());
    EXPECT_EQ(value("UNDO_LEVEL"), "9");
    EXPECT_FALSE(Orv::iAppConfiguration().refresh().isDone) << "nothing was loaded";
}

TEST_F(Refresh, AWatcherTellsOfALevelThatAnotherProgramWrites) {
    writeLevel(installation.user(), "");
    ASSERT_TRUE(store.load());
    ovsettings::CConfigurationWatcher watcher(store.workingDirectories());
    QSignalSpy told(&watcher, &ovsettings::CConfigurationWatcher::changed);
    Orv::iAppConfiguration other;
    ASSERT_TRUE(other.load());
    Orv::setValue(other, "GRID_HR", "7");
    ASSERT_TRUE(other.save());
    ASSERT_TRUE(told.wait());
    EXPECT_EQ(store.refresh().changed, Texts{"GRID_HR"});
    EXPECT_EQ(told.size(), 1) << "a save is a series of steps";
}
