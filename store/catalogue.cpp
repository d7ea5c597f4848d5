#include "store/catalogue.h"

#include "store/rows/drawingrows.h"
#include "store/rows/generalrows.h"
#include "store/rows/sheetrows.h"
#include "store/rows/switchrows.h"
#include "store/rows/toolrows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace Orv {

namespace {

constexpr auto kShippedRows = [] {
    constexpr std::size_t kCount =
        kDrawingRows.size() + kSwitchRows.size() + kGeneralRows.size() + kSheetRows.size() + kToolRows.size();
    std::array<SettingRow, kCount> rows;
    auto end = std::ranges::copy(kDrawingRows, rows.begin()).out;
    end = std::ranges::copy(kSwitchRows, end).out;
    end = std::ranges::copy(kGeneralRows, end).out;
    end = std::ranges::copy(kSheetRows, end).out;
    std::ranges::copy(kToolRows, end);
    return rows;
}();

/// Settings that nothing uses, of every kind in turn: a build that has some shows that there is room.
constexpr std::size_t kSpares = OV_SPARE_SETTINGS;
constexpr std::size_t kNameSize = 9;

constexpr auto kSpareNames = [] {
    std::array<std::array<char, kNameSize>, kSpares> names{};
    for (std::size_t i = 0; i < kSpares; ++i) {
        std::ranges::copy(std::string_view("SPARE_"), names[i].begin());
        for (std::size_t digit = kNameSize, rest = i; digit-- > kNameSize - 3; rest /= 10)
            names[i][digit] = static_cast<char>('0' + rest % 10);
    }
    return names;
}();

constexpr auto kSettings = [] {
    std::array<SettingRow, kShippedRows.size() + kSpares> rows;
    std::ranges::copy(kShippedRows, rows.begin());
    for (std::size_t i = 0; i < kSpares; ++i) {
        auto& row = rows[kShippedRows.size() + i];
        row = kShippedRows[i * 7 % kShippedRows.size()];
        row.key = std::string_view(kSpareNames[i].data(), kNameSize);
    }
    return rows;
}();

/// What reads and searches touch of the rows, apart from what is read of them once in a while.
constexpr auto kRows = [] {
    std::array<CatalogueRow, kSettings.size()> rows;
    std::ranges::transform(kSettings, rows.begin(), [](const SettingRow& row) {
        return CatalogueRow{row.key, row.kind, row.defaultText};
    });
    return rows;
}();

/// Eight bytes as one number. Written out so that it is one load at run time and still fit for a constant.
constexpr std::uint64_t eightBytes(const char* text) noexcept {
    const auto byte = [text](int i) {
        return std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
    };
    return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7);
}

constexpr std::uint64_t fourBytes(const char* text) noexcept {
    const auto byte = [text](int i) {
        return std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
    };
    return byte(0) | byte(1) | byte(2) | byte(3);
}

/// Hashes a key's length, its first word and its last; they overlap in a short key. No two keys agree in all
/// three, so the bytes between need not be looked at.
constexpr std::uint64_t hashOf(std::string_view key) noexcept {
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    if (key.size() >= 8) {
        head = eightBytes(key.data());
        tail = eightBytes(key.data() + key.size() - 8);
    } else if (key.size() >= 4) {
        head = fourBytes(key.data());
        tail = fourBytes(key.data() + key.size() - 4);
    } else {
        for (const char c : key)
            head = head << 8 | static_cast<unsigned char>(c);
    }
    constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15U;
    const std::uint64_t mixed = (head + key.size()) * kOdd ^ tail;
    return (mixed ^ mixed >> 32) * kOdd;
}

/// A hash table with open addressing, four slots a key: each slot holds a row's number or nothing.
using Slot = std::uint16_t;
constexpr int kSlotBits = std::bit_width(kRows.size() * 4 - 1);
constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
constexpr Slot kFree = 0xffff;
static_assert(kRows.size() <= kFree);

constexpr std::size_t firstSlot(std::string_view key) noexcept {
    return hashOf(key) >> (64 - kSlotBits);
}
constexpr std::size_t nextSlot(std::size_t slot) noexcept {
    return (slot + 1) % kSlots;
}

constexpr auto kIndex = [] {
    std::array<Slot, kSlots> index{};
    index.fill(kFree);
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        auto slot = firstSlot(kRows[row].key);
        while (index[slot] != kFree)
            slot = nextSlot(slot);
        index[slot] = static_cast<Slot>(row);
    }
    return index;
}();

constexpr std::optional<std::size_t> lookUp(std::string_view key) noexcept {
    for (auto slot = firstSlot(key); kIndex[slot] != kFree; slot = nextSlot(slot)) {
        const std::size_t row = kIndex[slot];
        if (kRows[row].key == key)
            return row;
    }
    return std::nullopt;
}

constexpr bool everyKeyFindsItsOwnRow() {
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        if (lookUp(kRows[row].key) != row)
            return false;
    }
    return true;
}
static_assert(everyKeyFindsItsOwnRow(), "a key stands twice in the table");

constexpr auto countOf(iAppConfiguration::Kind kind) {
    return std::ranges::count(kShippedRows, kind, &SettingRow::kind);
}
static_assert(countOf(KindFlag) == 111 && countOf(KindNumber) == 51 && countOf(KindLayer) == 9);
static_assert(countOf(KindObject) == 12 && countOf(KindList) == 10 && countOf(KindText) == 23);
static_assert(countOf(KindSize) == 11 && countOf(KindFont) == 13 && countOf(KindIctObject) == 15);

constexpr bool isSentence(std::string_view text) {
    return text.size() > 1 && text.front() >= 'A' && text.front() <= 'Z' && text.ends_with('.');
}

constexpr bool saysWhatItMeans(const auto& declared) {
    return !declared.caption.empty() && isSentence(declared.meaning);
}

constexpr bool everySettingSaysWhatItMeans() {
    return std::ranges::all_of(kSettings, [](const SettingRow& row) {
        const auto isSaid = [](const FieldDeclaration& field) {
            return saysWhatItMeans(field);
        };
        return saysWhatItMeans(row) && std::ranges::all_of(row.fields, isSaid) &&
               std::ranges::all_of(fieldsOfKind(row.kind), isSaid);
    });
}
static_assert(everySettingSaysWhatItMeans());

/// The whole part of a number that is written without a sign.
constexpr double wholePart(std::string_view text) {
    double number = 0;
    for (const char c : text.substr(0, text.find('.')))
        number = number * 10 + (c - '0');
    return number;
}

/// Lengths that are judged in the unit in use are left to a test.
constexpr bool isAllowedAnywhere(const auto& declared, std::string_view text) {
    const bool isChoice =
        declared.choices.empty() ||
        std::ranges::find(declared.choices, text, &SettingChoice::value) != declared.choices.end();
    if (!declared.limits || declared.limits->scale != LimitScale::stored)
        return isChoice;
    const double number = wholePart(text);
    return isChoice && number <= declared.limits->most &&
           (declared.limits->above ? number > declared.limits->least : number >= declared.limits->least);
}

constexpr bool everyDefaultIsAllowed() {
    return std::ranges::all_of(kSettings, [](const SettingRow& row) {
        auto rest = row.defaultText;
        const auto takesItsPiece = [&rest](const FieldDeclaration& field) {
            const auto text = rest.substr(0, rest.find(", "));
            rest.remove_prefix(std::min(text.size() + 2, rest.size()));
            return isAllowedAnywhere(field, text);
        };
        return isAllowedAnywhere(row, rest) &&
               std::ranges::all_of(row.fields.empty() ? fieldsOfKind(row.kind) : row.fields, takesItsPiece);
    });
}
static_assert(everyDefaultIsAllowed());

/// The captions and sentences in one piece, and where each begins: pointers to them would be mended at each
/// start of a program, whether it asks for them or not.
struct Prose {
    static constexpr std::size_t kSize = [] {
        std::size_t size = 0;
        for (const SettingRow& row : kSettings)
            size += row.caption.size() + row.meaning.size();
        return size;
    }();

    std::array<char, kSize> text{};
    std::array<std::uint32_t, 2 * kSettings.size() + 1> begins{};

    constexpr std::string_view at(std::size_t piece) const {
        return {text.data() + begins[piece], text.data() + begins[piece + 1]};
    }
};

constexpr auto kProse = [] {
    Prose prose;
    std::uint32_t end = 0;
    std::size_t piece = 0;
    for (const SettingRow& row : kSettings) {
        for (const std::string_view text : {row.caption, row.meaning}) {
            std::ranges::copy(text, prose.text.begin() + end);
            end += static_cast<std::uint32_t>(text.size());
            prose.begins[++piece] = end;
        }
    }
    return prose;
}();

/// What few settings have.
struct Particulars {
    std::size_t row = 0;
    SettingUnit unit = SettingUnit::none;
    std::optional<SettingLimits> limits{};
    std::span<const SettingChoice> choices{};
    std::span<const FieldDeclaration> fields{};
};

constexpr bool hasParticulars(const SettingRow& row) {
    return row.unit != SettingUnit::none || row.limits || !row.choices.empty() || !row.fields.empty();
}

constexpr auto kParticulars = [] {
    std::array<Particulars, std::ranges::count_if(kSettings, hasParticulars)> all;
    std::size_t count = 0;
    for (std::size_t at = 0; at < kSettings.size(); ++at) {
        if (const SettingRow& row = kSettings[at]; hasParticulars(row))
            all[count++] = {at, row.unit, row.limits, row.choices, row.fields};
    }
    return all;
}();

/// Made when the first one asks.
struct Declared {
    std::vector<SettingDeclaration> settings{kRows.size()};
    std::vector<FieldDeclaration> ownFields{kRows.size()}; ///< of kinds without named fields

    Declared() {
        for (std::size_t row = 0; row < kRows.size(); ++row) {
            const std::string_view caption = kProse.at(2 * row);
            const std::string_view meaning = kProse.at(2 * row + 1);
            ownFields[row] = {.caption = caption, .meaning = meaning};
            const auto fields = fieldsOfKind(kRows[row].kind);
            settings[row] = {kRows[row].key,
                             kRows[row].kind,
                             kRows[row].defaultText,
                             caption,
                             meaning,
                             fields.empty() ? std::span(&std::as_const(ownFields[row]), 1) : fields};
        }
        for (const Particulars& particulars : kParticulars) {
            FieldDeclaration& own = ownFields[particulars.row];
            own.unit = particulars.unit;
            own.limits = particulars.limits;
            own.choices = particulars.choices;
            if (!particulars.fields.empty())
                settings[particulars.row].fields = particulars.fields;
        }
    }
};

} // namespace

std::span<const CatalogueRow> catalogue() noexcept {
    return kRows;
}

std::optional<std::size_t> findRow(std::string_view key) noexcept {
    return lookUp(key);
}

std::span<const SettingDeclaration> declarations() {
    static const Declared declared;
    return declared.settings;
}

const SettingDeclaration* declarationOf(std::string_view key) {
    const auto row = lookUp(key);
    return row ? &declarations()[*row] : nullptr;
}

} // namespace Orv
