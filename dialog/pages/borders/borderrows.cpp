#include "dialog/pages/borders/borderrows.h"

#include "dialog/widgets/numbertext.h"
#include "store/unitglue.h"

#include <algorithm>

namespace ovsettings {

namespace {

constexpr char kCustomMark = 'x';
constexpr char kSheet[] = "SHEET";
constexpr char kFirstSheet = '1';

struct StandardSize {
    const char* key;
    const char* caption;
};

constexpr StandardSize kStandardSizes[] = {
    {"ASHEETL", QT_TRANSLATE_NOOP("ovsettings", "A Landscape")},
    {"ASHEETP", QT_TRANSLATE_NOOP("ovsettings", "A Portrait")},
    {"BSHEETL", QT_TRANSLATE_NOOP("ovsettings", "B Landscape")},
    {"BSHEETP", QT_TRANSLATE_NOOP("ovsettings", "B Portrait")},
    {"CSHEETL", QT_TRANSLATE_NOOP("ovsettings", "C Landscape")},
    {"CSHEETP", QT_TRANSLATE_NOOP("ovsettings", "C Portrait")},
    {"DSHEETL", QT_TRANSLATE_NOOP("ovsettings", "D Landscape")},
    {"DSHEETP", QT_TRANSLATE_NOOP("ovsettings", "D Portrait")},
    {"ESHEETL", QT_TRANSLATE_NOOP("ovsettings", "E Landscape")},
    {"ESHEETP", QT_TRANSLATE_NOOP("ovsettings", "E Portrait")},
    {"FSHEETL", QT_TRANSLATE_NOOP("ovsettings", "F Landscape")},
    {"FSHEETP", QT_TRANSLATE_NOOP("ovsettings", "F Portrait")},
    {"A0SHEETL", QT_TRANSLATE_NOOP("ovsettings", "A0 Landscape")},
    {"A0SHEETP", QT_TRANSLATE_NOOP("ovsettings", "A0 Portrait")},
    {"A1SHEETL", QT_TRANSLATE_NOOP("ovsettings", "A1 Landscape")},
    {"A1SHEETP", QT_TRANSLATE_NOOP("ovsettings", "A1 Portrait")},
    {"A2SHEETL", QT_TRANSLATE_NOOP("ovsettings", "A2 Landscape")},
    {"A2SHEETP", QT_TRANSLATE_NOOP("ovsettings", "A2 Portrait")},
    {"A3SHEETL", QT_TRANSLATE_NOOP("ovsettings", "A3 Landscape")},
    {"A3SHEETP", QT_TRANSLATE_NOOP("ovsettings", "A3 Portrait")},
    {"A4SHEETL", QT_TRANSLATE_NOOP("ovsettings", "A4 Landscape")},
    {"A4SHEETP", QT_TRANSLATE_NOOP("ovsettings", "A4 Portrait")},
};

std::string firstSheetKey(const std::string& key) {
    return key + kFirstSheet;
}

std::string symbolIn(const Orv::IBorderSymbols::Table& table, const std::string& key) {
    const auto found = table.find(key);
    return found == table.end() ? std::string() : found->second;
}

BorderRow rowFrom(const Orv::IBorderSymbols::Table& table, const std::string& key, const char* caption) {
    return {key, caption, symbolIn(table, firstSheetKey(key)), symbolIn(table, key)};
}

std::string& symbolOf(BorderRow& row, BorderSheet sheet) {
    return sheet == BorderSheet::first ? row.first : row.next;
}

} // namespace

void BorderRows::load(const Orv::IBorderSymbols::Table& table) {
    loaded_ = table;
    rows_.clear();
    removed_.clear();
    for (const StandardSize& size : kStandardSizes)
        rows_.push_back(rowFrom(table, size.key, size.caption));
    for (const auto& [key, symbol] : table) {
        if (key.find(kCustomMark) != std::string::npos)
            rows_.push_back(rowFrom(table, key, nullptr));
    }
}

void BorderRows::store(Orv::IBorderSymbols::Table& table) const {
    for (const std::string& key : removed_)
        table.erase(key);
    const auto write = [&](const std::string& key, const std::string& symbol) {
        if (!symbol.empty() && (symbol != symbolIn(loaded_, key) || std::ranges::count(removed_, key) > 0))
            table[key] = symbol;
    };
    for (const BorderRow& row : rows_) {
        write(row.key, row.next);
        write(firstSheetKey(row.key), row.first);
    }
}

void BorderRows::noteStored(const Orv::IBorderSymbols::Table& table) {
    loaded_ = table;
    removed_.clear();
}

bool BorderRows::follow(const Orv::IBorderSymbols::Table& table) {
    if (table == loaded_)
        return false;
    Orv::IBorderSymbols::Table changed = table;
    store(changed);
    std::vector<std::string> removed = std::move(removed_);
    load(changed);
    loaded_ = table;
    removed_ = std::move(removed);
    return true;
}

std::size_t BorderRows::indexOf(std::string_view key) const {
    const auto found = std::ranges::find(rows_, key, &BorderRow::key);
    return static_cast<std::size_t>(found - rows_.begin());
}

std::vector<std::size_t> BorderRows::setSymbol(std::size_t index, BorderSheet sheet,
                                               const std::string& symbol) {
    symbolOf(rows_[index], sheet) = symbol;
    const std::string& key = rows_[index].key;
    std::size_t other = count();
    if (sheet == BorderSheet::first)
        other = indexOf(firstSheetKey(key));
    else if (key.ends_with(kFirstSheet))
        other = indexOf(std::string_view(key).substr(0, key.size() - 1));
    if (other == count())
        return {index};
    symbolOf(rows_[other], sheet == BorderSheet::first ? BorderSheet::next : BorderSheet::first) = symbol;
    return {index, other};
}

std::vector<std::size_t> BorderRows::add(const std::string& key) {
    std::string first = firstSheetKey(key);
    // A symbol that another row has for the first sheet goes before the one that is named for it.
    if (const std::size_t other = indexOf(first); other < count() && !rows_[other].next.empty())
        first = rows_[other].next;
    rows_.push_back({key, nullptr, {}, key});
    return setSymbol(count() - 1, BorderSheet::first, first);
}

std::size_t BorderRows::remove(std::size_t index) {
    const std::string key = rows_[index].key;
    removed_.push_back(key);
    if (indexOf(firstSheetKey(key)) == count())
        removed_.push_back(firstSheetKey(key));
    const std::vector<std::size_t> shown = setSymbol(index, BorderSheet::next, {});
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    if (shown.size() == 1)
        return count();
    return shown.back() > index ? shown.back() - 1 : shown.back();
}

std::string customBorderKey(double width, double height, Orv::Metrics::Unit unit) {
    const int precision = Orv::Metrics::UnitTraits(unit).Precision();
    const auto text = [&](double length) {
        const double rounded = Orv::toDisplay(Orv::fromDisplay(length, unit), unit);
        return numberText(rounded, precision, QLatin1Char('.')).toStdString();
    };
    return text(width) + kCustomMark + text(height) + kSheet;
}

} // namespace ovsettings
