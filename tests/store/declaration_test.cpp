// What is declared of settings: census over all of them.

#include "tests/store/storetest.h"

#include "orv/declaration.h"
#include "store/catalogue.h"

#include <list>
#include <set>

using Orv::iAppConfiguration;
using Orv::Metrics::Unit;

namespace {

std::list<Unit> units() {
    std::list<Unit> units;
    Orv::Metrics::ListAvaibleUnits(units);
    return units;
}

bool isAllowed(const char* key, long length, Unit unit) {
    return Orv::isAllowed(Orv::declarationOf(key)->fields.front(), std::to_string(length), unit);
}

bool isCaption(std::string_view caption) {
    return caption.find_first_of("&:\n") == std::string_view::npos && caption.front() != ' ' &&
           caption.back() != ' ';
}

} // namespace

TEST(Declaration, EverySettingDeclaresItsFieldsInOrder) {
    ASSERT_EQ(Orv::declarations().size(), Orv::catalogue().size());
    for (std::size_t row = 0; row < Orv::catalogue().size(); ++row) {
        const auto& setting = Orv::declarations()[row];
        SCOPED_TRACE(setting.key);
        EXPECT_EQ(setting.key, Orv::catalogue()[row].key);
        EXPECT_EQ(setting.kind, Orv::catalogue()[row].kind);
        EXPECT_EQ(Orv::declarationOf(setting.key), &setting);
        EXPECT_TRUE(isCaption(setting.caption)) << setting.caption;
        Texts names = iAppConfiguration::fieldNames(setting.kind);
        if (names.empty()) {
            names.emplace_back();
            EXPECT_EQ(setting.fields.front().caption, setting.caption);
            EXPECT_EQ(setting.fields.front().meaning, setting.meaning);
        }
        Texts declared;
        for (const auto& field : setting.fields) {
            declared.emplace_back(field.name);
            EXPECT_TRUE(isCaption(field.caption)) << field.caption;
        }
        EXPECT_EQ(declared, names);
    }
    EXPECT_EQ(Orv::declarationOf("GRID_H"), nullptr);
}

TEST(Declaration, ALengthIsWhatTheKeySaysAndEachChoiceIsOneOfItsOwn) {
    for (const auto& setting : Orv::declarations()) {
        SCOPED_TRACE(setting.key);
        for (const auto& field : setting.fields) {
            const bool isSpare = setting.key.starts_with("SPARE_"); // declared as another one is
            EXPECT_TRUE(isSpare || (field.unit == Orv::SettingUnit::length) == setting.key.ends_with("_HR"));
            std::set<std::string_view> values;
            std::set<std::string_view> captions;
            for (const auto& choice : field.choices) {
                EXPECT_TRUE(values.insert(choice.value).second) << choice.value;
                EXPECT_TRUE(captions.insert(choice.caption).second) << choice.caption;
            }
        }
    }
    auto choice = Orv::declarationOf("UNIT")->fields.front().choices.begin();
    for (const Unit unit : units()) {
        EXPECT_EQ(choice->value, Orv::Metrics::UnitTraits(unit).Abbreviation());
        EXPECT_EQ((choice++)->caption, Orv::Metrics::UnitTraits(unit).FullName());
    }
}

TEST(Declaration, EveryDefaultIsAllowedInEveryUnit) {
    for (const auto& setting : Orv::declarations()) {
        const Texts defaults = Orv::defaultsOf(setting);
        for (std::size_t at = 0; at < std::min(defaults.size(), setting.fields.size()); ++at) {
            for (const Unit unit : units()) {
                EXPECT_TRUE(Orv::isAllowed(setting.fields[at], defaults[at], unit))
                    << setting.key << ' ' << setting.fields[at].name << ": "
                    << Orv::limitsInWords(setting.fields[at], unit);
            }
        }
    }
}

TEST(Declaration, LengthsAreJudgedAndToldInTheUnitInUse) {
    const struct {
        Unit::Id unit;
        long step; ///< the last decimal that is shown, as it is stored
        long whole;
        const char* spacing;
        const char* side;
    } rows[] = {
        {Unit::inch, 25400, 2540000, "between 0.01 and 10.00 in (25400 to 25400000 as it is stored)",
         "between 1 and 100000000 in (2540000 to 254000002539999 as it is stored)"},
        {Unit::millimetre, 1000, 100000, "between 0.01 and 10.00 mm (1000 to 1000000 as it is stored)",
         "between 1 and 100000000 mm (100000 to 10000000099999 as it is stored)"},
        {Unit::centimetre, 1000, 1000000, "between 0.001 and 1.000 cm (1000 to 1000000 as it is stored)",
         "between 1 and 100000000 cm (1000000 to 100000000999999 as it is stored)"},
        {Unit::thousandth, 2540, 2540, "between 1 and 1000 th (2540 to 2540000 as it is stored)",
         "between 1 and 100000000 th (2540 to 254000002539 as it is stored)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.spacing);
        for (const char* key : {"GRID_HR", "ADISTANCE_HR", "TEXTSIZE_HR"}) {
            EXPECT_EQ(Orv::limitsInWords(Orv::declarationOf(key)->fields.front(), row.unit), row.spacing);
            EXPECT_FALSE(isAllowed(key, row.step - 1, row.unit));
            EXPECT_TRUE(isAllowed(key, row.step, row.unit));
            EXPECT_TRUE(isAllowed(key, 1000 * row.step, row.unit));
            EXPECT_FALSE(isAllowed(key, 1000 * row.step + 1, row.unit));
        }
        EXPECT_EQ(Orv::limitsInWords(Orv::declarationOf("Z_SIZE_HR")->fields.front(), row.unit), row.side);
        EXPECT_FALSE(isAllowed("Z_SIZE_HR", row.whole - 1, row.unit));
        EXPECT_TRUE(isAllowed("Z_SIZE_HR", row.whole, row.unit));
        EXPECT_TRUE(isAllowed("Z_SIZE_HR", 100000001 * row.whole - 1, row.unit)) << "its whole part counts";
        EXPECT_FALSE(isAllowed("Z_SIZE_HR", 100000001 * row.whole, row.unit));
        EXPECT_TRUE(isAllowed("BOXSIZE_HR", -1, row.unit)) << "not every length has limits";
    }
}
