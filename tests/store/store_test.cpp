#include "tests/store/storetest.h"

#include <utility>

using Orv::iAppConfiguration;

namespace {

/// Notes what it is told and then does what the test asks.
class Sink : public iAppConfiguration::iEventSink {
public:
    explicit Sink(std::function<void(const std::string&)> reaction = {}) : reaction_(std::move(reaction)) {}
    void propertyChanged(const std::string& key, float value) override {
        told.emplace_back(key, value);
        if (reaction_)
            reaction_(key);
    }
    std::vector<std::pair<std::string, float>> told;

private:
    std::function<void(const std::string&)> reaction_;
};

} // namespace

class Store : public StoreTest {
protected:
    /// The numbers of a graphics entry in the order of getGraphics.
    std::vector<int> graphics(const std::string& key) const {
        std::vector<int> all(6, -1);
        EXPECT_TRUE(store.getGraphics(key, all[0], all[1], all[2], all[3], all[4], all[5])) << key;
        return all;
    }
};

TEST_F(Store, ANewStoreAnswersNothing) {
    Property property("GRID_HR");
    property.values = {"untouched"};
    EXPECT_FALSE(store.getProperty(property));
    EXPECT_EQ(property.values, Texts{"untouched"});
    EXPECT_FALSE(store.setProperty(property));
    EXPECT_FALSE(store.setPropertyDefaults("GRID_HR", {"1"}));
    EXPECT_EQ(store.getNumber("GRID_HR"), 0.0F);
    EXPECT_FALSE(store.setNumber("GRID_HR", 1.0F));
    EXPECT_TRUE(store.keys().empty());
}

TEST_F(Store, AnUnknownKeyIsASilentNoOp) {
    store.load();
    std::string text = "before";
    bool readonly = true;
    Orv::getValue(store, "NO_SUCH_KEY", text, readonly);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(readonly);
    Orv::setValue(store, "NO_SUCH_KEY", "1");
    int unused = 7;
    EXPECT_FALSE(store.getGraphics("GRID_HR", unused, unused, unused, unused, unused, unused));
    EXPECT_FALSE(store.getIctColors("NOTHING", unused, unused));
    EXPECT_EQ(unused, 7);
    EXPECT_EQ(store.getNumber("NET"), 0.0F);
}

TEST_F(Store, LockedFieldKeepsItsValueAndSinksStillFire) {
    writeLevel(installation.standard(), setting("GRID_HR", "100", true));
    store.load();
    Sink sink;
    store.addSink(&sink);
    Orv::setValue(store, "GRID_HR", "200");
    EXPECT_EQ(value("GRID_HR"), "100");
    EXPECT_EQ(store.getNumber("GRID_HR"), 100.0F);
    EXPECT_EQ(sink.told, (decltype(sink.told){{"GRID_HR", 200.0F}}));
    store.setNumber("GRID_HR", 150.0F);
    Orv::setValue(store, "GRID_HR", "200");
    EXPECT_EQ(store.getNumber("GRID_HR"), 150.0F);
}

TEST_F(Store, ASinkSeesTheOldValueAndANumberTheNew) {
    store.load();
    std::string seen;
    Sink sink([&](const std::string& key) { seen = value(key); });
    store.addSink(&sink);
    Orv::setValue(store, "UNDO_LEVEL", "5");
    EXPECT_EQ(seen, "1024");
    store.setNumber("UNDO_LEVEL", 6.0F);
    EXPECT_EQ(seen, "6");
    store.setPropertyDefaults("UNDO_LEVEL", {"7"});
    store.setPropertyDefaults("MRU_SCHEMA", {""});
    store.setGraphics("NET", 3, 1, 0, 0, 0, 0);
    Orv::setValues(store, "MRU_PROJECTS", {});
    EXPECT_EQ(sink.told, (decltype(sink.told){{"UNDO_LEVEL", 5.0F},
                                              {"UNDO_LEVEL", 6.0F},
                                              {"UNDO_LEVEL", 7.0F},
                                              {"NET", 3.0F},
                                              {"MRU_PROJECTS", 0.0F}}));
}

TEST_F(Store, ASinkThatReadsInsideTheNoticeOfNewDefaultsBringsNoOldNumberBack) {
    store.load();
    Texts seen;
    Sink sink([&](const std::string& key) { seen = values(key); });
    store.addSink(&sink);
    store.setPropertyDefaults("UNDO_LEVEL", {"7"});
    EXPECT_EQ(seen, Texts{"7"});
    EXPECT_EQ(value("UNDO_LEVEL"), "7");
    EXPECT_EQ(store.getNumber("UNDO_LEVEL"), 7.0F);
    store.setPropertyDefaults("NET", {"0", "1", "0x0000ff", "1", "0", "1"});
    EXPECT_EQ(values("NET"), seen);
    EXPECT_EQ(graphics("NET"), (std::vector<int>{0, 1, 0xff0000, 1, 0, 1}));
}

TEST_F(Store, ALoadTellsOfEveryPropertyThatHasAValue) {
    store.load();
    Sink sink;
    EXPECT_TRUE(store.addSink(&sink));
    EXPECT_FALSE(store.addSink(&sink));
    store.load();
    std::size_t withValue = 0;
    for (const auto& key : store.keys())
        withValue += values(key).empty() ? 0 : 1;
    EXPECT_EQ(sink.told.size(), withValue);
    EXPECT_EQ(sink.told.front(), std::pair(std::string("NET"), 1.0F));
    EXPECT_TRUE(store.removeSink(&sink));
    EXPECT_FALSE(store.removeSink(&sink));
}

TEST_F(Store, SinksMayDoAnythingInsideANotification) {
    store.load();
    Sink late;
    Sink gone;
    bool once = true;
    Sink busy([&](const std::string&) {
        if (!std::exchange(once, false))
            return;
        store.removeSink(&gone);
        store.addSink(&late);
        Orv::setValue(store, "GRID_HR", "3");
        store.setPropertyDefaults("NET", {"0"});
        store.load();
    });
    store.addSink(&busy);
    store.addSink(&gone);
    Orv::setValue(store, "GRID_HR", "4");
    EXPECT_TRUE(gone.told.empty());
    EXPECT_EQ(late.told.front().first, "GRID_HR") << "told from the nested change on";
    EXPECT_EQ(value("GRID_HR"), "4");
    EXPECT_EQ(values("NET").size(), 6U);
}

TEST_F(Store, SettingOneValueOfAnObjectDropsItsOtherFields) {
    store.load();
    Orv::setValue(store, "NET", "0");
    EXPECT_EQ(values("NET"), Texts{"0"});
    EXPECT_EQ(locks("NET").size(), 1U);
    EXPECT_EQ(graphics("NET"), std::vector<int>(6)) << "missing fields read as 0";
    store.load();
    EXPECT_EQ(values("NET").size(), 6U);
}

TEST_F(Store, MoreValuesExtendLocksButNotDefaults) {
    store.load();
    Orv::setValues(store, "PROPERTIES_TOOLTIP", {"A", "B", "C"});
    const auto property = read("PROPERTIES_TOOLTIP");
    EXPECT_EQ(property.values, (Texts{"A", "B", "C"}));
    EXPECT_EQ(property.readonly, (std::vector<std::uint8_t>{0, 0, 0}));
    EXPECT_EQ(property.defaults, Texts{"REFDES"});
}

TEST_F(Store, OneFieldIsReplacedInsideThePropertyOnly) {
    store.load();
    Orv::setValueAt(store, 3, "GRID_LAYER", "9");
    EXPECT_EQ(values("GRID_LAYER"), (Texts{"0xffffff", "0", "0"}));
    Orv::setValueAt(store, 2, "GRID_LAYER", "9");
    EXPECT_EQ(values("GRID_LAYER"), (Texts{"0xffffff", "0", "9"}));
    Texts all = {"kept"};
    std::vector<bool> flags = {true};
    Orv::getValues(store, "GRID_LAYER", all, flags);
    EXPECT_EQ(all, (Texts{"kept", "0xffffff", "0", "9"}));
    EXPECT_EQ(flags, (std::vector<bool>{true, false, false, false}));
}

TEST_F(Store, ANumberReadsBackWithSixSignificantDigits) {
    store.load();
    Orv::setValue(store, "NET_LENGTH_HR", "1234567");
    EXPECT_EQ(store.getNumber("NET_LENGTH_HR"), 1234567.0F);
    EXPECT_EQ(value("NET_LENGTH_HR"), "1.23457e+06");
}

TEST_F(Store, GraphicsAndTextShowTheSameThing) {
    store.load();
    EXPECT_EQ(graphics("NET"), (std::vector<int>{1, 1, 0x00ff00, 1, 0, 1}));
    EXPECT_EQ(graphics("HIGHLIGHT_LAYER"), (std::vector<int>{0, 0, 0xff00ff, 1, 0, 0}));
    EXPECT_EQ(graphics("ICTGROUP"), (std::vector<int>{0, 0, 0xf0caa6, 0, 0, 0}));
    store.setGraphics("NET", 0, 1, 0x0000ff, 2, 3, 4);
    EXPECT_EQ(values("NET"), (Texts{"0", "1", "0xff0000", "2", "3", "4"}));
    store.setGraphics("HIGHLIGHT_LAYER", 9, 9, 0x010203, 2, 3, 9);
    EXPECT_EQ(values("HIGHLIGHT_LAYER"), (Texts{"0x030201", "2", "3"}));
    store.setIctColors("NET", 0x010203, 0x040506);
    EXPECT_EQ(values("ICTNET"), (Texts{"0x030201", "0x060504"}));
    int color = 0;
    int textColor = 0;
    EXPECT_TRUE(store.getIctColors("NET", color, textColor));
    EXPECT_EQ(std::pair(color, textColor), std::pair(0x010203, 0x040506));
}

TEST_F(Store, NewDefaultsReplaceLockedValuesAndKeepOneLockAField) {
    writeLevel(installation.standard(), list("Orvane/COLORS", "SCREEN", {"a", "b"}, 2));
    store.load();
    ASSERT_TRUE(store.setPropertyDefaults("SCREEN", {"x", "y", "z"}));
    const auto property = read("SCREEN");
    EXPECT_EQ(property.values, (Texts{"x", "y", "z"}));
    EXPECT_EQ(property.defaults, property.values);
    EXPECT_EQ(property.readonly, (std::vector<std::uint8_t>{1, 1, 0}));
}

TEST_F(Store, AHandleReadsWhatItsKeyReadsUntilTheNextLoad) {
    ASSERT_TRUE(store.load());
    std::vector<Orv::iAppConfiguration::Handle> handles;
    for (const auto& key : store.keys()) {
        const auto handle = store.handleOf(key);
        handles.push_back(handle);
        EXPECT_TRUE(store.isValid(handle)) << key;
        EXPECT_EQ(store.getNumber(handle), store.getNumber(key)) << key;
        Orv::Graphics byKey;
        Orv::Graphics byHandle;
        EXPECT_EQ(store.getGraphics(key, byKey.visible, byKey.selectable, byKey.colour, byKey.fillStyle,
                                    byKey.lineStyle, byKey.lineThickness),
                  store.getGraphics(handle, byHandle))
            << key;
        EXPECT_EQ(byKey, byHandle) << key;
    }
    const auto grid = store.handleOf("GRID_HR");
    Orv::setValue(store, "GRID_HR", "7");
    EXPECT_EQ(store.getNumber(grid), 7.0F);

    Orv::iAppConfiguration other;
    ASSERT_TRUE(other.load());
    Orv::Graphics untouched{.colour = 7};
    const auto expectHarmless = [&](Orv::iAppConfiguration& reader, Orv::iAppConfiguration::Handle handle) {
        EXPECT_FALSE(reader.isValid(handle));
        EXPECT_EQ(reader.getNumber(handle), 0.0F);
        EXPECT_FALSE(reader.getGraphics(handle, untouched));
        EXPECT_EQ(untouched.colour, 7);
    };
    expectHarmless(store, {});
    expectHarmless(store, store.handleOf("NO_SUCH_KEY"));
    for (const auto handle : handles)
        expectHarmless(other, handle);
    const testsupport::ScopedEnvironment noList("WDIR", std::nullopt);
    EXPECT_FALSE(store.load("/another.prj"));
    for (const auto handle : handles)
        expectHarmless(store, handle);
}
