#include "tests/store/storetest.h"

#include <array>
#include <numeric>

class Locks : public StoreTest {
protected:
    /// Installation, site and user, as the levels are read.
    std::array<std::filesystem::path, 3> levels() const {
        return {installation.standard(), installation.site(), installation.user()};
    }
};

TEST_F(Locks, TheFirstLockOnTheWayFromTheInstallationWinsForEveryShape) {
    struct Shape {
        const char *shape, *key;
        std::size_t field;
        std::string locked; // "@" stands for the text
    };
    const Shape shapes[] = {
        {"single value", "LANGUAGE", 0, setting("LANGUAGE", "@", true)},
        {"number", "GRID_HR", 0, setting("GRID_HR", "@", true)},
        {"list", "PRINTER", 1, list("Orvane/COLORS", "PRINTER", {"0", "@"}, 2)},
        {"list of nothing before", "MRU_PROJECTS", 0, list("Orvane/SETTINGS", "MRU_PROJECTS", {"@"}, 1)},
        {"attribute", "NET", 5, object("NET", attribute("LINE_THICKNESS", "@", true))},
        {"group", "NET", 5, object("NET", attribute("LINE_THICKNESS", "@"), true)},
    };
    const auto written = [](std::string text, char value, bool locked) {
        text.replace(text.find('@'), 1, 1, value);
        const std::string mark = lockMark(true);
        for (auto at = text.find(mark); !locked && at != text.npos; at = text.find(mark))
            text.erase(at, mark.size());
        return text;
    };
    const struct {
        const char* locked; // i, s, u: locked by the installation, the site, the user; all three set a value
        const char* value;  // 1, 2, 3: from the installation, the site, the user
        const char* inherited;
        int lockedBy; // place in levels(), -1 for none
    } rows[] = {
        {"...", "3", "2", -1}, {"..u", "3", "2", 2}, {".s.", "2", "2", 1}, {".su", "2", "2", 1},
        {"i..", "1", "1", 0},  {"i.u", "1", "1", 0}, {"is.", "1", "1", 0}, {"isu", "1", "1", 0},
    };
    for (const auto& shape : shapes) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(shape.shape) + " " + row.locked);
            for (std::size_t i = 0; i < 3; ++i)
                writeLevel(levels()[i], written(shape.locked, "123"[i], row.locked[i] != '.'));
            ASSERT_TRUE(store.load());
            const auto property = read(shape.key);
            ASSERT_GT(property.values.size(), shape.field);
            EXPECT_EQ(property.values[shape.field], row.value);
            EXPECT_EQ(property.defaults[shape.field], row.inherited);
            EXPECT_EQ(property.readonly[shape.field], row.lockedBy < 0 ? 0 : 1);
            const auto winner = levels()[static_cast<std::size_t>(row.value[0] - '1')].string();
            EXPECT_EQ(store.valueDirectory(shape.key, shape.field), winner);
            EXPECT_EQ(store.lockingDirectory(shape.key, shape.field),
                      row.lockedBy < 0 ? "" : levels()[static_cast<std::size_t>(row.lockedBy)].string());
        }
    }
}

TEST_F(Locks, ListsOfAnotherLengthReplaceUnlessALockForbids) {
    // A letter is an item of a list, and the digits are the flags of its items.
    const struct {
        const char *what, *installation;
        std::size_t installationLocks;
        const char *site, *user;
        std::size_t userLocks;
        const char *values, *defaults, *locks;
    } rows[] = {
        {"user replaces", "ab", 0, "", "x", 1, "x", "ab", "1"},
        {"one locked field drops the user's list and its locks", "ab", 1, "", "xyz", 3, "ab", "ab", "10"},
        {"user of the same length changes what is free", "ab", 1, "", "xy", 0, "ay", "ab", "10"},
        {"site grows around a lock", "ab", 1, "pqr", "", 0, "aqr", "aqr", "100"},
        {"site shrinks", "ab", 0, "p", "x", 0, "x", "p", "0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const auto printer = [](const std::string& letters, std::size_t locks) {
            Texts items;
            for (const char letter : letters)
                items.emplace_back(1, letter);
            return items.empty() ? "" : list("Orvane/COLORS", "PRINTER", items, locks);
        };
        writeLevel(installation.standard(), printer(row.installation, row.installationLocks));
        writeLevel(installation.site(), printer(row.site, 0));
        writeLevel(installation.user(), printer(row.user, row.userLocks));
        ASSERT_TRUE(store.load());
        const auto property = read("PRINTER");
        const auto joined = [](const Texts& texts) {
            return std::accumulate(texts.begin(), texts.end(), std::string());
        };
        std::string locks;
        for (const int lock : property.readonly)
            locks += std::to_string(lock);
        EXPECT_EQ(joined(property.values), row.values);
        EXPECT_EQ(joined(property.defaults), row.defaults);
        EXPECT_EQ(locks, row.locks);
    }
}

TEST_F(Locks, NoUserFileChangesALockedSingleValue) {
    std::vector<std::string> contents;
    for (const std::string key : {"GRID_HR", "LANGUAGE"}) {
        for (const bool locked : {false, true}) {
            contents.push_back(setting(key, "", locked));
            contents.push_back(setting(key, "7", locked));
            contents.push_back(setting(key, "7", locked) + setting(key, "8", !locked));
            contents.push_back(object(key, attribute("VISIBLE", "7", locked), locked));
            for (std::size_t items = 0; items < 4; ++items)
                contents.push_back(list("Orvane/SETTINGS", key, Texts(items, "7"), locked ? items : 0));
        }
    }
    writeLevel(installation.standard(),
               setting("GRID_HR", "100", true) + setting("LANGUAGE", "French", true));
    for (const auto& content : contents) {
        SCOPED_TRACE(content);
        writeLevel(installation.user(), content);
        ASSERT_TRUE(store.load());
        for (const auto& [key, text] : {std::pair("GRID_HR", "100"), std::pair("LANGUAGE", "French")}) {
            EXPECT_EQ(values(key), Texts{text});
            EXPECT_EQ(locks(key), std::vector<std::uint8_t>{1});
        }
    }
}

TEST_F(Locks, AnAttributeMayBeLockedWithoutAValueOfItsOwn) {
    writeLevel(installation.standard(), object("NET", "<attribute name=\"COLOR\" locked=\"yes\"/>"));
    writeLevel(installation.user(), object("NET", attribute("COLOR", "0x0000ff") + attribute("VISIBLE", "0") +
                                                      attribute("ODD", "1")));
    store.load();
    EXPECT_EQ(values("NET"), (Texts{"0", "1", "0x00ff00", "1", "0", "1"}));
    EXPECT_EQ(locks("NET"), (std::vector<std::uint8_t>{0, 0, 1, 0, 0, 0}));
}
