#pragma once

#include "orv/bordersymbols.h"
#include "orv/metrics.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

/// A sheet size and its border symbols.
struct BorderRow {
    std::string key;     ///< in the table of border symbols
    const char* caption; ///< of a size that every project has; null for a custom one, which shows its key
    std::string first;
    std::string next;

    bool isCustom() const { return caption == nullptr; }
};

enum class BorderSheet { first, next };

/// The sizes of the page "Borders" between a load and a store: those that every project has, then the custom
/// ones.
///
/// Two rows may stand for one key of the table: where both "20x6SHEET" and "20x6SHEET1" are sizes, the symbol
/// of the first sheet of the one is that of the next sheets of the other. Such symbols change together.
class BorderRows {
public:
    void load(const Orv::IBorderSymbols::Table& table);
    /// Takes the sizes that were removed out of a table, then writes the symbols that were changed since the
    /// load. A size without a symbol leaves the table's as it is: users know that a symbol can be
    /// replaced, and not taken off.
    void store(Orv::IBorderSymbols::Table& table) const;
    /// Takes the table for the loaded one: it has the changes.
    void noteStored(const Orv::IBorderSymbols::Table& table);
    /// Loads another table with the changes laid over it. @return false if it is the one that was loaded.
    bool follow(const Orv::IBorderSymbols::Table& table);

    /// Indices count from 0.
    std::size_t count() const { return rows_.size(); }
    const BorderRow& at(std::size_t index) const { return rows_[index]; }
    /// count() if there is none.
    std::size_t indexOf(std::string_view key) const;

    /// @return the indices of the rows that show the symbol, the given one first.
    std::vector<std::size_t> setSymbol(std::size_t index, BorderSheet sheet, const std::string& symbol);
    /// Adds a custom size at the end, with the symbols that are named for it. The key must be new.
    /// @return the indices of the rows that changed, the new one first.
    std::vector<std::size_t> add(const std::string& key);
    /// Removes a custom size. @return the index, after that, of a row that lost its symbol with it, or
    /// count().
    std::size_t remove(std::size_t index);

private:
    Orv::IBorderSymbols::Table loaded_;
    std::vector<BorderRow> rows_;
    std::vector<std::string> removed_;
};

/// The key of a custom size. @param unit of both lengths, which are positive.
std::string customBorderKey(double width, double height, Orv::Metrics::Unit unit);

} // namespace ovsettings
