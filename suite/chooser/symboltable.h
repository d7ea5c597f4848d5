#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cldialog {

/// The place of a symbol in its table.
using SymbolId = std::uint32_t;

/// Symbols that stand one behind another in a table, the end excluded.
struct SymbolRange {
    SymbolId begin = 0;
    SymbolId end = 0;

    bool operator==(const SymbolRange&) const = default;
};

/// The names of symbols, each with the folded text that it is found by. All of those texts lie in one block,
/// since a key press goes through every one of them.
class SymbolTable {
public:
    /// @param names "PARTITION:NAME" in UTF-8; kept as they are, also where they are no UTF-8.
    SymbolRange append(std::vector<std::string> names);
    const std::string& name(SymbolId id) const { return names_[id]; }
    std::string_view key(SymbolId id) const;

private:
    std::vector<std::string> names_;
    std::string keys_;
    std::vector<std::size_t> keyEnds_;
};

/// What was typed into a filter field: words, each of which a symbol's name has to hold, in any case.
class SymbolQuery {
public:
    SymbolQuery() = default;
    explicit SymbolQuery(const QString& text);

    bool isEmpty() const { return words_.empty(); }
    /// Whether what matches this query surely matches the other one too.
    bool narrows(const SymbolQuery& other) const { return text_.starts_with(other.text_); }
    bool matches(std::string_view key) const;

    /// How near a matching symbol is to what was typed.
    enum class Nearness { exact, beginning, somewhere };
    Nearness nearness(std::string_view key) const;

private:
    std::string text_;
    std::vector<std::string> words_;
};

} // namespace cldialog
