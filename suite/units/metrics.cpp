#include "orv/metrics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Orv::Metrics {

namespace {

struct UnitRow {
    Unit::Id id;
    const char* abbreviation;
    const char* fullName;
    int precision;
    long double perInch;
};

// In the order in which lists show them; the first is the one that stands in for an unknown unit.
constexpr std::array<UnitRow, 4> kUnits{{
    {Unit::inch, "in", "Inches", 2, 1.0L},
    {Unit::millimetre, "mm", "Millimeters", 2, 25.4L},
    {Unit::centimetre, "cm", "Centimeters", 3, 2.54L},
    {Unit::thousandth, "th", "Thousandths of an inch", 0, 1000.0L},
}};

struct ResolutionRow {
    Resolution::Id id;
    const char* text;
    double perInch;
};

// The first row stands in for an unknown resolution.
constexpr std::array<ResolutionRow, 2> kResolutions{{
    {Resolution::low, "1", 1000.0},
    {Resolution::high, "2", 2540000.0},
}};

template <typename Row, std::size_t N, typename Predicate>
const Row& findOrFirst(const std::array<Row, N>& rows, Predicate matches) {
    const auto found = std::find_if(rows.begin(), rows.end(), matches);
    return found == rows.end() ? rows.front() : *found;
}

const UnitRow& rowOf(Unit unit) {
    return findOrFirst(kUnits, [id = Unit::Id{unit}](const UnitRow& row) { return row.id == id; });
}

const ResolutionRow& rowOf(Resolution resolution) {
    return findOrFirst(kResolutions,
                       [id = resolution.id()](const ResolutionRow& row) { return row.id == id; });
}

long roundToStored(long double value) {
    if (std::isnan(value))
        return 0;
    const long double rounded = std::round(value); // half away from zero
    if (rounded >= static_cast<long double>(std::numeric_limits<long>::max()))
        return std::numeric_limits<long>::max();
    if (rounded <= static_cast<long double>(std::numeric_limits<long>::min()))
        return std::numeric_limits<long>::min();
    return static_cast<long>(rounded);
}

} // namespace

int UnitTraits::Precision() const {
    return rowOf(unit_).precision;
}

std::string UnitTraits::Abbreviation() const {
    return rowOf(unit_).abbreviation;
}

std::string UnitTraits::FullName() const {
    return rowOf(unit_).fullName;
}

const char* UnitTraits::GetUnitCfgKey() {
    return "UNIT";
}

Resolution::Resolution(int id)
    : id_(findOrFirst(kResolutions, [id](const ResolutionRow& row) { return row.id == id; }).id) {
}

Resolution::Resolution(const char* text) : Resolution(std::string(text ? text : "")) {
}

Resolution::Resolution(const std::string& text)
    : id_(findOrFirst(kResolutions, [&text](const ResolutionRow& row) { return row.text == text; }).id) {
}

double Resolution::unitsPerInch() const {
    return rowOf(*this).perInch;
}

Resolution::operator const char*() const {
    return rowOf(*this).text;
}

const char* Resolution::GetResolutionSpecAttribute() {
    return "RESOLUTION";
}

Convert::Convert(double value, Unit unit) : inches_(static_cast<long double>(value) / rowOf(unit).perInch) {
}

Convert::Convert(long value, Resolution resolution)
    : inches_(static_cast<long double>(value) / static_cast<long double>(resolution.unitsPerInch())) {
}

double Convert::To(Unit unit) const {
    return static_cast<double>(inches_ * rowOf(unit).perInch);
}

long Convert::To(Resolution resolution) const {
    // A typed half such as 0.0235 is a hair off in binary. Narrowing to double drops what the wider product
    // still shows of that error, so that the decimal number the user reads is the one that is rounded.
    return roundToStored(static_cast<double>(inches_ * static_cast<long double>(resolution.unitsPerInch())));
}

RConvert::RConvert(long value, Resolution resolution) : value_(value), resolution_(resolution) {
}

long RConvert::To(Resolution resolution) const {
    if (resolution == resolution_)
        return value_;
    return roundToStored(static_cast<long double>(value_) *
                         static_cast<long double>(resolution.unitsPerInch()) /
                         static_cast<long double>(resolution_.unitsPerInch()));
}

void ListAvaibleUnits(std::list<Unit>& units) {
    units.clear();
    for (const UnitRow& row : kUnits)
        units.emplace_back(row.id);
}

Unit FindUnitByAbbreviation(const std::string& abbreviation) {
    return findOrFirst(kUnits,
                       [&abbreviation](const UnitRow& row) { return row.abbreviation == abbreviation; })
        .id;
}

} // namespace Orv::Metrics
