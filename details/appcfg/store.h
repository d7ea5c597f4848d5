#pragma once

#include "details/appcfg/catalogue.h"
#include "details/appcfg/graphics.h"
#include "orv/appconfiguration.h"

#include <array>
#include <cstdint>
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
};

/// What a save has to do about a row.
enum class Standing : std::uint8_t {
    unknown,   ///< only its record can tell
    silent,    ///< nothing: the key stays in the file as it is
    inherited, ///< it says what the defaults say, and goes from the file
    own,       ///< it is written
};

/// A property's text in the form in which the caches print it. Kinds without a cache have no other than the
/// given.
void normaliseFields(int kind, std::vector<std::string>& values);

struct iAppConfiguration::Impl {
    std::vector<Record> records;
    std::vector<std::string> directories; ///< the most specific first, the installation last
    std::string writeDirectory;           ///< the first of them
    std::string currentDirectory;         ///< the one being read or written, during a transfer
    std::string lastProjectPath;
    std::vector<std::string> levels; ///< the list of the last load, which the places of origins refer to
    /// False if the last load found no configuration in the directory that is written: what it then holds is
    /// not known here, and a save must take nothing out of it that it has not put there.
    bool knowsWrittenLevel = false;
    /// Where that is so: a bit for each field of a row that a save has written since the load.
    std::array<std::uint8_t, kCatalogueSize> writtenFields{};
    /// As the last save found them. The records lie all over the memory, and a save that looks at each of
    /// them spends most of its time on waiting for them.
    std::array<Standing, kCatalogueSize> standings{};
    std::uint64_t settledRevision = 0; ///< of the configuration that says what the standings tell
    TypedValues typed;
    std::vector<iEventSink*> sinks; ///< not owned

    Impl() { invalidateHandles(); }

    void invalidateHandles();

    /// Starts anew with the catalogue and its defaults. The caches stay as they are.
    void registerCatalogue();

    /// The row of a registered key; nothing for an unknown key, and for every key before the first load.
    std::optional<std::size_t> find(std::string_view key) const noexcept;

    /// Null for an unknown key and for a field that does not exist.
    const Origin* originOf(std::string_view key, std::size_t field) const noexcept;

    /// To be called when a record's text, defaults or locks have changed, or its cache.
    void forgetStanding(std::size_t row) { standings[row] = Standing::unknown; }

    bool isCached(std::size_t row) const { return typed.hasNumber[row] || typed.hasGraphics[row]; }
    void refreshCache(std::size_t row);
    /// Brings a row's text up to date from the cache.
    void flushCache(std::size_t row);

    /// Tells the sinks. A sink may do with the store what it likes, so after this call rows must be looked up
    /// anew.
    void notify(std::string_view key, float value) const;
};

} // namespace Orv
