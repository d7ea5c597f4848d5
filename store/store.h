#pragma once

#include "orv/appconfiguration.h"
#include "store/catalogue.h"
#include "store/changes.h"
#include "store/records.h"
#include "store/typedcache.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

struct iAppConfiguration::Impl {
    std::vector<std::string> directories; ///< the most specific first, the installation last
    std::string writeDirectory;           ///< the first of them
    std::string lastProjectPath;
    Records records;
    TypedCache cache;
    TypedValues typed{0, catalogue().size(), cache.numbers(), cache.graphics(), cache.hasGraphics()};
    Changes changes;
    bool lastSaveFailed = false;
    std::vector<iEventSink*> sinks; ///< not owned

    Impl() { invalidateHandles(); }

    void invalidateHandles();

    /// Starts anew with the catalogue and its defaults. The caches stay as they are.
    /// @return the levels that there were.
    std::vector<Level> registerCatalogue();

    /// The row of a registered key; nothing for an unknown key, and for every key before the first load.
    std::optional<std::size_t> find(std::string_view key) const noexcept;

    /// Null for an unknown key and for a field that does not exist.
    const Origin* originOf(std::string_view key, std::size_t field);

    /// To be called before a record's text, or its cache, is changed by anybody but a load or refresh.
    Record& aboutToChange(std::size_t row);
    /// Whether the first of the levels is what the directory that is written was found to hold.
    bool knowsWrittenLevel() const;
    /// What the user's level was found to say of a row; null if it says nothing, or nobody knows.
    const Statement* heldStatement(std::size_t row) const;

    void noteRedundant(std::size_t row);
    /// The same for what the load found in the user's level.
    void searchRedundant();

    /// Makes a row's cache hold what its text says.
    void refreshCache(std::size_t row);
    /// A row with its text brought up to date from the cache. Good until the next look at another row.
    const Record& lookAtPrinted(std::size_t row);

    /// Tells the sinks. A sink may do with the store what it likes, but refresh it; so after this call rows
    /// must be looked up anew.
    void notify(std::string_view key, float value);
    bool isNotifying() const { return notifications > 0; }

    int notifications = 0; ///< that are under way, one inside the other
};

} // namespace Orv
