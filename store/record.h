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

/// One row of the store: a property, and for each of its fields where it comes from. The rows stand in the
/// order of the catalogue, so that a row's number serves for both and for the caches.
struct Record {
    iAppConfiguration::Property property;
    std::vector<Origin> origins;
    bool isFlushed = false; ///< true while the text is what the cache prints; most saves find it so

    /// Once it was changed: the values as the last load, save or refresh left them. What differs from them,
    /// in normal form, is unsaved.
    std::optional<std::vector<std::string>> saved = {};
    std::uint8_t withdrawn = 0;  ///< a bit for each field that was reset and leaves the file at the next save
    bool hasOwnDefaults = false; ///< setPropertyDefaults gave them; they stand until the next load
};

/// The catalogue with its defaults as the rows of a store. Copied over the rows of an earlier load, it finds
/// their memory and allocates little.
const std::vector<Record>& defaultRecords();

/// The bit of a field in Record::withdrawn. A list stands and goes as a whole.
std::uint8_t fieldBit(int kind, std::size_t field);

/// A property's text in the form in which the caches print it. Kinds without a cache have no other than the
/// given.
void normaliseFields(int kind, std::vector<std::string>& values);

} // namespace Orv
