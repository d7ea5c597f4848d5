#pragma once

#include "dialog/pages/borders/borderproperties.h"
#include "dialog/pages/borders/borderrows.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovsettings {

/// What the page "Borders" edits between a load and a store: the sizes with their symbols, and the values of
/// the symbols' properties. The file object is given with each call, since the project may have another one
/// by then.
class BordersModel {
public:
    void load(Orv::IBorderSymbols& symbols);
    /// Takes over what the object holds by now, under what was changed.
    /// @return whether the rows may be others than before.
    bool follow(Orv::IBorderSymbols& symbols);
    /// Lays what was changed onto the object and has it saved. An object that cannot be saved holds what it
    /// held before. @param path of its file. @return what went wrong, to be told; empty if nothing did.
    std::string store(Orv::IBorderSymbols& symbols, const std::string& path);
    bool isModified() const { return modified_; }

    const BorderRows& rows() const { return rows_; }
    /// Each change gives the indices of the rows that are to be shown anew.
    std::vector<std::size_t> setSymbol(std::size_t index, BorderSheet sheet, const std::string& symbol);
    std::vector<std::size_t> dropSymbol(std::size_t index, BorderSheet sheet);
    /// Adds a size; one that is there stays as it is.
    std::vector<std::size_t> addCustom(const std::string& key);
    /// @param index of a custom size. @return indices after the removal.
    std::vector<std::size_t> removeCustom(std::size_t index);

    /// All symbols of the rows, each once, in the order of the rows.
    std::vector<std::string> symbols() const;
    /// The properties of the object with the changes.
    Attributes properties(Orv::IBorderSymbols& symbols) const;
    void setProperties(Orv::IBorderSymbols& symbols, const Attributes& edited);

private:
    BorderRows rows_;
    BorderProperties properties_;
    bool modified_ = false;
};

} // namespace ovsettings
