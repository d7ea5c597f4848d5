#include "store/kinds.h"

#include "store/rows/fieldrows.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>
#include <utility>

namespace Orv {

namespace {

constexpr std::string_view kSeparator = ", ";

struct KindRow {
    int kind;
    Storage storage;
    Cache cache;
    std::string_view path; // paths of groups end in a slash, others do not
    std::string_view typeWord;
};

constexpr std::array kKindRows = {
    KindRow{KindFlag, Storage::value, Cache::number, "Orvane/SETTINGS", ""},
    KindRow{KindNumber, Storage::value, Cache::number, "Orvane/SETTINGS", ""},
    KindRow{KindLayer, Storage::group, Cache::graphics, "Orvane/LAYERS/", "layer"},
    KindRow{KindObject, Storage::group, Cache::graphics, "Orvane/OBJECTS/", "object"},
    KindRow{KindList, Storage::list, Cache::none, "Orvane/", ""},
    KindRow{KindText, Storage::value, Cache::none, "Orvane/SETTINGS", ""},
    KindRow{KindSize, Storage::group, Cache::none, "Orvane/SIZES/", "size"},
    KindRow{KindFont, Storage::group, Cache::none, "Orvane/FONT_MAP/", "font"},
    KindRow{KindIctObject, Storage::group, Cache::graphics, "Orvane/ICTOBJECTS/", "object"},
};

constexpr bool rowsStandInOrder() {
    for (std::size_t i = 0; i < kKindRows.size(); ++i) {
        if (kKindRows[i].kind != static_cast<int>(i) + 1)
            return false;
    }
    return true;
}
static_assert(rowsStandInOrder(), "a kind is its row's number, from 1");

struct ListPath {
    std::string key;
    std::string path;
};

std::vector<std::string> fieldNamesOf(int kind) {
    std::vector<std::string> names;
    for (const FieldDeclaration& field : fieldsOfKind(kind))
        names.emplace_back(field.name);
    return names;
}

template <typename Text>
void cutInto(std::string_view joined, std::vector<Text>& fields) {
    std::size_t count = 0;
    for (bool isMore = !joined.empty(); isMore;) {
        const auto separator = joined.find(kSeparator);
        isMore = separator != std::string_view::npos;
        fields.resize(std::max(fields.size(), count + 1));
        fields[count++] = joined.substr(0, separator);
        if (isMore)
            joined.remove_prefix(separator + kSeparator.size());
    }
    fields.resize(count);
}

} // namespace

const KindTraits& kindTraits(int kind) {
    static const auto traits = [] {
        std::vector<KindTraits> all;
        all.reserve(std::size(kKindRows));
        for (const auto& row : kKindRows)
            all.push_back({row.storage, row.cache, std::string(row.path), std::string(row.typeWord),
                           fieldNamesOf(row.kind)});
        return all;
    }();
    assert(kind >= 1 && kind <= static_cast<int>(traits.size()));
    return traits[static_cast<std::size_t>(kind - 1)];
}

const std::string& pathOf(int kind, const std::string& name) {
    static const std::array<ListPath, 4> listPaths = {{
        {"PRINTER", "Orvane/COLORS"},
        {"SCREEN", "Orvane/COLORS"},
        {"PROPERTIES_TOOLTIP", "Orvane/SETTINGS"},
        {"MRU_PROJECTS", "Orvane/SETTINGS"},
    }};
    if (kind == KindList) {
        const auto own = std::ranges::find(listPaths, name, &ListPath::key);
        if (own != listPaths.end())
            return own->path;
    }
    return kindTraits(kind).path;
}

std::vector<std::string> cutFields(std::string_view joined) {
    std::vector<std::string> fields;
    cutFields(joined, fields);
    return fields;
}

void cutFields(std::string_view joined, std::vector<std::string>& fields) {
    cutInto(joined, fields);
}

void cutFields(std::string_view joined, std::vector<std::string_view>& fields) {
    cutInto(joined, fields);
}

} // namespace Orv
