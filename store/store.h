#pragma once

#include "orv/appconfiguration.h"
#include "store/catalogue.h"
#include "store/graphicsfields.h"
#include "store/level.h"

#include <bitset>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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

/// A property as the product ships it.
const Record& defaultRecord(std::size_t row);

/// The bit of a field in Record::withdrawn. A list stands and goes as a whole.
std::uint8_t fieldBit(int kind, std::size_t field);

/// A property's text in the form in which the caches print it. Kinds without a cache have no other than the
/// given.
void normaliseFields(int kind, std::vector<std::string>& values);

struct iAppConfiguration::Impl {
    std::vector<Record> records;
    std::vector<std::string> directories; ///< the most specific first, the installation last
    std::string writeDirectory;           ///< the first of them
    std::string lastProjectPath;
    std::vector<Level> levels; ///< as last read, in the order of the directories; origins refer to them
    /// The rows that a save has to look at: changed, or held by the user's level although it inherits the
    /// same.
    std::bitset<kCatalogueSize> pending;
    bool heldIsUnchecked = false; ///< the rows that the load found in the user's level are not among them yet
    /// The rows that were saved since the load or the last refresh: the level has what the file then said of
    /// them, the record only what this store changed.
    std::bitset<kCatalogueSize> settled;
    bool lastSaveFailed = false;
    std::vector<float> numbers = std::vector<float>(kCatalogueSize);
    std::vector<Graphics> graphics = std::vector<Graphics>(kCatalogueSize);
    std::vector<bool> hasNumber = std::vector<bool>(kCatalogueSize);
    std::unique_ptr<bool[]> hasGraphics = std::make_unique<bool[]>(kCatalogueSize);
    TypedValues typed{0, kCatalogueSize, numbers.data(), graphics.data(), hasGraphics.get()};
    std::vector<iEventSink*> sinks; ///< not owned

    Impl() { invalidateHandles(); }

    void invalidateHandles();

    /// Starts anew with the catalogue and its defaults. The caches stay as they are.
    void registerCatalogue();

    /// The row of a registered key; nothing for an unknown key, and for every key before the first load.
    std::optional<std::size_t> find(std::string_view key) const noexcept;

    /// Null for an unknown key and for a field that does not exist.
    const Origin* originOf(std::string_view key, std::size_t field) const noexcept;

    /// To be called before a record's text, or its cache, is changed by anybody but a load or refresh.
    void aboutToChange(std::size_t row);
    /// Whether the first of the levels is what the directory that is written was found to hold.
    bool knowsWrittenLevel() const;

    /// Settles whether a save has to look at a row.
    void notePending(std::size_t row);
    /// The same for what the load found in the user's level. That takes time, and many programs never save.
    void checkHeld();

    bool isCached(std::size_t row) const { return hasNumber[row] || hasGraphics[row]; }
    void refreshCache(std::size_t row);
    /// Brings a row's text up to date from the cache.
    void flushCache(std::size_t row);

    /// Tells the sinks. A sink may do with the store what it likes, but refresh it; so after this call rows
    /// must be looked up anew.
    void notify(std::string_view key, float value);
    bool isNotifying() const { return notifications > 0; }

    int notifications = 0; ///< that are under way, one inside the other
};

} // namespace Orv
