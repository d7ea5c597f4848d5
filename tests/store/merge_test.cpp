// What a save leaves in a file that others write, too.

#include "suite/configuration.h"
#include "tests/store/storetest.h"

#include <functional>

namespace {

std::string text(const std::string& key, const std::string& value) {
    return "<value name=\"" + key + "\">" + value + "</value>";
}

std::string settings(const std::string& content) {
    return section("Orvane/SETTINGS", content);
}

std::string layer(const std::string& key, const std::string& attributes) {
    return section("Orvane/LAYERS", "<group type=\"layer\" name=\"" + key + "\">" + attributes + "</group>");
}

std::string emptied(const std::string& path) {
    return section(path, {});
}

/// Without the layout of what was added.
std::string onOneLine(std::string xml) {
    for (auto at = xml.find('\n'); at != xml.npos; at = xml.find('\n'))
        xml.erase(at, xml.find_first_not_of(' ', at + 1) - at);
    return xml;
}

} // namespace

class Merge : public StoreTest {
public:
    using StoreTest::store;
    using StoreTest::value;
    using StoreTest::values;
    void set(const std::string& key, const std::string& value) { Orv::setValue(store, key, value); }

protected:
    std::string userSections() const {
        std::string xml = onOneLine(userFile());
        const std::string root = "<configuration>";
        xml.erase(0, xml.find(root) + root.size());
        return xml.substr(0, xml.find("</configuration>"));
    }
};

TEST_F(Merge, ASaveTouchesWhatThisStoreChangedAndNothingElse) {
    const std::string net = attribute("COLOR", "0xff0000", true) + attribute("VISIBLE", "0");
    const struct {
        const char* what;
        std::string site;
        std::string loaded;    // of the user's level
        std::string meanwhile; // what another program makes of it between load and save
        std::function<void(Merge&)> edit;
        std::string saved;
    } rows[] = {
        {"nothing was changed", "", "", "", [](Merge&) {}, ""},
        {"what others write stays", "", settings(text("BELL", "0")),
         settings(text("LANGUAGE", "German") + text("FOREIGN", "1")), [](Merge& m) { m.set("GRID_HR", "7"); },
         settings(text("LANGUAGE", "German") + text("FOREIGN", "1") + text("GRID_HR", "7"))},
        {"the later save of a key wins", "", "", setting("GRID_HR", "3"),
         [](Merge& m) { m.set("GRID_HR", "7"); }, setting("GRID_HR", "7")},
        {"an untouched field that is stored is no change", "", "", setting("NET_LENGTH_HR", "3"),
         [](Merge& m) { m.set("NET_LENGTH_HR", "1016000"); }, setting("NET_LENGTH_HR", "3")},
        {"another spelling of the same is no change", layer("DRAG_LAYER", attribute("COLOR", "0x00ABCD")), "",
         "", [](Merge& m) { Orv::setValueAt(m.store, 0, "DRAG_LAYER", "0x00abcd"); }, ""},
        {"set and set back is no change", "", "", setting("GRID_HR", "3"),
         [](Merge& m) {
             m.set("GRID_HR", "7");
             m.store.setNumber("GRID_HR", 254000.0F);
         },
         setting("GRID_HR", "3")},
        {"of a group the changed field is written, and marks survive", "", object("NET", net),
         object("NET", net + attribute("LINE_STYLE", "2")),
         [](Merge& m) { Orv::setValueAt(m.store, 5, "NET", "4"); },
         object("NET", net + attribute("LINE_STYLE", "2") + attribute("LINE_THICKNESS", "4"))},
        {"a field that is at its default again goes, and its group with the last", "",
         object("NET", attribute("VISIBLE", "0")) + object("BUS", attribute("COLOR", "0x010203")), "",
         [](Merge& m) { Orv::setValueAt(m.store, 0, "NET", "1"); },
         emptied("Orvane/OBJECTS") + object("BUS", attribute("COLOR", "0x010203"))},
        {"what the load found to be inherited goes", setting("BELL", "0"),
         settings(text("BELL", "0") + text("NET_LENGTH_HR", "1.016e+06")) +
             list("Orvane/SETTINGS", "PROPERTIES_TOOLTIP", {"REFDES"}) +
             layer("DRAG_LAYER", attribute("COLOR", "0x00ff00")),
         "", [](Merge&) {},
         emptied("Orvane/SETTINGS") + emptied("Orvane/SETTINGS") + emptied("Orvane/LAYERS")},
        {"but not if it says something else by now", "", settings(text("BELL", "1")),
         settings(text("BELL", "0")), [](Merge&) {}, settings(text("BELL", "0"))},
        {"or bears a mark of its own", "",
         setting("BELL", "1", true) + object("NET", attribute("VISIBLE", "1"), true), "", [](Merge&) {},
         setting("BELL", "1", true) + object("NET", attribute("VISIBLE", "1"), true)},
        {"or got one meanwhile", "", setting("BELL", "1") + object("NET", attribute("VISIBLE", "1")),
         setting("BELL", "1", true) + object("NET", attribute("VISIBLE", "1", true)), [](Merge&) {},
         setting("BELL", "1", true) + object("NET", attribute("VISIBLE", "1", true))},
        {"what stands under a lock from above is left",
         setting("BELL", "0", true) + object("NET", attribute("COLOR", "0x000000", true)),
         setting("BELL", "0") + object("NET", attribute("COLOR", "0x000000")), "",
         [](Merge& m) {
             m.store.setNumber("BELL", 1.0F);
             m.store.setGraphics("NET", 0, 1, 9, 1, 0, 1);
         },
         setting("BELL", "0") + object("NET", attribute("COLOR", "0x000000") + attribute("VISIBLE", "0"))},
        {"a list of which a part is locked is written as a whole",
         list("Orvane/COLORS", "PRINTER", {"a", "b"}, 1), "", "",
         [](Merge& m) {
             Orv::setValues(m.store, "PRINTER", {"x", "y"});
         },
         list("Orvane/COLORS", "PRINTER", {"a", "y"})},
        {"a list keeps its own marks", "", list("Orvane/COLORS", "PRINTER", {"a", "b"}, 1), "",
         [](Merge& m) {
             Orv::setValues(m.store, "PRINTER", {"a", "y"});
         },
         "<section path=\"Orvane/COLORS\"><list name=\"PRINTER\"><item "
         "locked=\"yes\">a</item><item>y</item></list></section>"},
        {"an emptied text stays as it was", "", setting("MRU_SCHEMA", "a.ovc"), "",
         [](Merge& m) { m.set("MRU_SCHEMA", ""); }, setting("MRU_SCHEMA", "a.ovc")},
        {"a reset takes it out, empty default or not", "",
         settings(text("MRU_SCHEMA", "a.ovc") + text("GRID_HR", "7")) +
             object("NET", attribute("VISIBLE", "0") + attribute("LINE_STYLE", "3")),
         "",
         [](Merge& m) {
             EXPECT_TRUE(m.store.reset("MRU_SCHEMA", 0) && m.store.reset("GRID_HR", 0) &&
                         m.store.reset("NET", 0));
             EXPECT_EQ(m.value("MRU_SCHEMA"), "");
             EXPECT_EQ(m.store.getNumber("GRID_HR"), 254000.0F);
             EXPECT_EQ(m.values("NET"), (Texts{"1", "1", "0x00ff00", "1", "3", "1"}));
             m.set("MRU_SCHEMA", m.value("MRU_SCHEMA")); // a page stores what it shows
         },
         emptied("Orvane/SETTINGS") + object("NET", attribute("LINE_STYLE", "3"))},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        writeLevel(installation.site(), row.site);
        writeLevel(installation.user(), row.loaded);
        ASSERT_TRUE(store.load());
        if (!row.meanwhile.empty())
            writeLevel(installation.user(), row.meanwhile);
        row.edit(*this);
        EXPECT_TRUE(store.save());
        EXPECT_EQ(userSections(), row.saved);
        const std::string once = userFile();
        EXPECT_TRUE(store.save());
        EXPECT_EQ(userFile(), once) << "a second save finds nothing to do";
    }
}

TEST_F(Merge, TwoStoresKeepEachOthersFieldsOfOneObject) {
    writeLevel(installation.user(), object("BUS", attribute("VISIBLE", "0")));
    Orv::iAppConfiguration other;
    ASSERT_TRUE(store.load() && other.load());
    Orv::setValueAt(store, 3, "BUS", "4");
    ASSERT_TRUE(other.reset("BUS", 0));
    Orv::setValueAt(other, 5, "BUS", "6");
    ASSERT_TRUE(store.save() && other.save());
    EXPECT_EQ(userSections(), object("BUS", attribute("FILL_STYLE", "4") + attribute("LINE_THICKNESS", "6")));
}

TEST_F(Merge, ASaveThatFailedIsMadeUpForByTheNext) {
    std::string told;
    auto& manager = Orv::IOvConfigurationManager::Instance();
    manager.SetErrorHandler([&](const std::string& message) { told += message; });
    ASSERT_TRUE(store.load());
    Orv::setValue(store, "GRID_HR", "7");
    ASSERT_TRUE(store.reset("BELL", 0));
    const auto lock = installation.user() / ".orvane.xml.lock";
    std::filesystem::create_directory(lock);
    EXPECT_TRUE(store.save()) << "who failed is told by the handler";
    EXPECT_TRUE(testsupport::contains(told, "orvane.xml"));
    std::filesystem::remove(lock);
    writeLevel(installation.user(), setting("BELL", "0"));
    EXPECT_TRUE(store.save());
    EXPECT_EQ(userSections(), setting("GRID_HR", "7"));
    manager.SetErrorHandler({});
}

TEST_F(Merge, AFileThatIsHarmedAfterTheLoadIsMadeWholeAgain) {
    const std::string held = settings(text("GRID_HR", "7") + text("FOREIGN", "1")) +
                             list("Orvane/COLORS", "PRINTER", {"a", "b"}) +
                             object("NET", attribute("VISIBLE", "0"));
    const auto file = installation.user() / "orvane.xml";
    const std::function<void()> harms[] = {
        [&] { testsupport::writeFile(file, "<configuration><section"); },
        [&] {
            std::filesystem::remove(file);
            std::filesystem::create_directory(file);
        },
    };
    for (const auto& harm : harms) {
        std::filesystem::remove_all(file);
        writeLevel(installation.user(), held);
        ASSERT_TRUE(store.load());
        harm();
        Orv::setValue(store, "BELL", "0");
        ASSERT_TRUE(store.save());
        EXPECT_FALSE(store.lastSaveFailed());
        ASSERT_TRUE(store.load());
        EXPECT_EQ(value("GRID_HR") + value("BELL") + values("NET").front(), "700");
        EXPECT_EQ(values("PRINTER"), (Texts{"a", "b"}));
    }
    std::filesystem::resize_file(file, (8 << 20) + 1);
    Orv::setValue(store, "BELL", "1");
    store.save();
    EXPECT_TRUE(store.lastSaveFailed()) << "what is too large may be whole all the same";
    EXPECT_EQ(std::filesystem::file_size(file), (8u << 20) + 1);
    std::filesystem::remove(file);
    ASSERT_TRUE(store.save());
    EXPECT_FALSE(std::filesystem::exists(file)) << "who takes the file away wants all defaults";
}

TEST_F(Merge, WhatCannotBeSavedIsSaidAndStaysUnsaved) {
    ASSERT_TRUE(store.load());
    EXPECT_TRUE(store.save());
    EXPECT_FALSE(store.lastSaveFailed());
    std::filesystem::rename(installation.user(), installation.user().string() + ".away");
    EXPECT_FALSE(store.save());
    EXPECT_FALSE(store.lastSaveFailed()) << "nothing was to be saved";
    Orv::setValue(store, "GRID_HR", "7");
    EXPECT_FALSE(store.save());
    EXPECT_TRUE(store.lastSaveFailed());
    std::filesystem::rename(installation.user().string() + ".away", installation.user());
    Orv::setValue(store, "LANGUAGE", std::string(5 << 20, 'x'));
    EXPECT_TRUE(store.save());
    EXPECT_TRUE(store.lastSaveFailed()) << "no file holds such a text";
    EXPECT_EQ(userSections(), setting("GRID_HR", "7"));
}

TEST_F(Merge, AResetIsRefusedForWhatIsLockedOrNotThere) {
    writeLevel(installation.site(), setting("GRID_HR", "7", true));
    writeLevel(installation.user(), setting("BELL", "0", true));
    ASSERT_TRUE(store.load());
    EXPECT_FALSE(store.reset("GRID_HR", 0));
    EXPECT_FALSE(store.reset("BELL", 0));
    EXPECT_FALSE(store.reset("NET", 6));
    EXPECT_FALSE(store.reset("NO_SUCH_KEY", 0));
}

TEST_F(Merge, AReasonIsGivenByTheNearestPartOfTheLevelThatLocks) {
    writeLevel(installation.site(),
               "<section path=\"Orvane/SETTINGS\" contact=\"tools@site\">"
               "<value name=\"BELL\" locked=\"yes\" reason=\"Open-plan office\">0</value>"
               "<value name=\"GRID_HR\" locked=\"yes\" contact=\"Ann\">7</value></section>"
               "<section path=\"Orvane/OBJECTS\"><group type=\"object\" name=\"NET\" locked=\"yes\" "
               "reason=\"Plots\">"
               "<attribute name=\"COLOR\" reason=\"Contrast\">0x000000</attribute></group></section>"
               "<section path=\"Orvane/COLORS\"><list name=\"PRINTER\" reason=\"Ink\"><item "
               "locked=\"yes\">1</item></list></section>");
    writeLevel(installation.user(), "<section path=\"Orvane/SETTINGS\"><value name=\"BELL\" locked=\"yes\" "
                                    "reason=\"mine\">1</value></section>");
    ASSERT_TRUE(store.load());
    const struct {
        const char* key;
        std::size_t field;
        Orv::LockNote note;
    } rows[] = {
        {"BELL", 0, {"Open-plan office", "tools@site"}},
        {"GRID_HR", 0, {"", "Ann"}},
        {"NET", 0, {"Plots", ""}},
        {"NET", 2, {"Contrast", ""}},
        {"PRINTER", 0, {"Ink", ""}},
        {"LANGUAGE", 0, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(store.lockNote(row.key, row.field), row.note) << row.key << row.field;
}
