#pragma once

#include "orv/appconfiguration.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Orv {

/// Where a field's value and its lock come from, as places in the working directory list.
struct Origin {
    std::optional<std::size_t> value;
    std::optional<std::size_t> lock;
};

/// A property, and for each of its fields where it comes from.
struct Record {
    iAppConfiguration::Property property;
    std::vector<Origin> origins;
    bool isFlushed = false;      ///< true while the text is what the cache prints; most saves find it so
    bool hasOwnDefaults = false; ///< setPropertyDefaults gave them; they stand until the next load
};

/// Makes a record say what the catalogue does, in the memory that it has.
void assignDefault(std::size_t row, Record& record);

/// The bit of a field in Change::withdrawn. A list stands and goes as a whole.
std::uint8_t fieldBit(int kind, std::size_t field);

/// A property's text in the form in which the caches print it. Kinds without a cache have no other than the
/// given.
void normaliseFields(int kind, std::vector<std::string>& values);

} // namespace Orv
