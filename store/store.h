#pragma once

#include "orv/appconfiguration.h"
#include "store/catalogue.h"
#include "store/level.h"
#include "store/record.h"

#include <bitset>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

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
