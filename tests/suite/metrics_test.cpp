#include "orv/metrics.h"

#include "suite/propertymangler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

namespace {

using namespace Orv::Metrics;

constexpr long kMax = std::numeric_limits<long>::max();
constexpr long kMin = std::numeric_limits<long>::min();

TEST(Metrics, UnitsAreListedInOrderAndFoundByTheirExactAbbreviation) {
    std::list<Unit> units{Unit::thousandth, Unit::thousandth};
    ListAvaibleUnits(units);
    std::string seen;
    for (const Unit unit : units) {
        const UnitTraits traits(unit);
        seen += traits.Abbreviation() + std::to_string(traits.Precision()) + " ";
        EXPECT_EQ(FindUnitByAbbreviation(traits.Abbreviation()), Unit::Id{unit});
    }
    EXPECT_EQ(seen, "in2 mm2 cm3 th0 ");
    for (const char* unknown : {"", "MM", "mm ", "furlong"})
        EXPECT_EQ(FindUnitByAbbreviation(unknown), Unit::inch) << unknown;
}

TEST(Metrics, LengthsConvertAtTheFixedScaleRoundedHalfAwayFromZero) {
    const struct {
        double shown;
        Unit unit;
        Resolution resolution;
        long stored;
    } rows[] = {
        {0.1, Unit::inch, Resolution::high, 254000},
        {210, Unit::millimetre, Resolution::high, 21000000},
        {29.7, Unit::centimetre, Resolution::high, 29700000},
        {7, Unit::thousandth, Resolution::high, 17780},
        {-0.1, Unit::inch, Resolution::high, -254000},
        {0.0235, Unit::inch, Resolution::low, 24}, // 23.4999... where binary error is not seen to
        {-0.0235, Unit::inch, Resolution::low, -24},
        {12.5, Unit::thousandth, Resolution::low, 13},
        {0.000004, Unit::millimetre, Resolution::high, 0},
        {1e300, Unit::inch, Resolution::high, kMax},
        {-1e300, Unit::inch, Resolution::high, kMin},
        {std::numeric_limits<double>::infinity(), Unit::inch, Resolution::low, kMax},
        {std::nan(""), Unit::inch, Resolution::high, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Convert(row.shown, row.unit).To(row.resolution), row.stored) << row.shown;
}

TEST(Metrics, AStoredLengthSurvivesBeingShownInAnyUnit) {
    std::list<Unit> units;
    ListAvaibleUnits(units);
    for (const Unit unit : units) {
        for (long stored : {0L, 1L, -1L, 12345L, 508000L, 29699999L, 2540000000L, 999999999999L}) {
            const double shown = Convert(stored, Resolution::high).To(unit);
            EXPECT_EQ(Convert(shown, unit).To(Resolution::high), stored) << UnitTraits(unit).Abbreviation();
        }
    }
}

TEST(Metrics, ResolutionsConvertExactlyAndWithinTheRange) {
    const struct {
        long value;
        Resolution from, to;
        long expected;
    } rows[] = {
        {100, Resolution::low, Resolution::high, 254000}, {1270, Resolution::high, Resolution::low, 1},
        {-1270, Resolution::high, Resolution::low, -1},   {1269, Resolution::high, Resolution::low, 0},
        {kMax, Resolution::low, Resolution::high, kMax},  {kMin, Resolution::low, Resolution::high, kMin},
        {kMax, Resolution::high, Resolution::high, kMax},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RConvert(row.value, row.from).To(row.to), row.expected) << row.value;
}

TEST(Metrics, AResolutionIsReadBackFromItsTextAndFallsBackToLow) {
    for (const Resolution::Id id : {Resolution::low, Resolution::high})
        EXPECT_EQ(Resolution(static_cast<const char*>(Resolution(id))).id(), id);
    for (const char* text : {static_cast<const char*>(nullptr), "", "3", "2 ", "high"})
        EXPECT_EQ(Resolution(text).id(), Resolution::low);
    EXPECT_EQ(Resolution(17).id(), Resolution::low);
}

TEST(PropertyMangler, NamesAndTypesNeverCollideAndStayPlain) {
    using Orv::DataModel::PropertyType;
    std::set<std::string> names;
    for (const PropertyType type : {PropertyType::text, PropertyType::number, PropertyType::length}) {
        for (const char* name : {"", "A B", "A%20B", "A_B", "a_b", "\xc3\xa4"}) {
            std::string mangled = "left over";
            Orv::Utils::CPropertyMangler::Mangle(name, type, mangled);
            EXPECT_TRUE(names.insert(mangled).second) << mangled;
            EXPECT_EQ(mangled.find_first_of(" \xc3\xa4"), std::string::npos);
        }
    }
    EXPECT_TRUE(names.contains("T_A%20B"));
}

} // namespace
