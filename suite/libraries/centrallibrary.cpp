#include "suite/libraries/centrallibrary.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/profileview.h"
#include "suite/files/numberedlist.h"
#include "suite/files/textfile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <set>
#include <system_error>

namespace suite {

namespace {

namespace fs = std::filesystem;
using platform::ProfileView;

constexpr std::string_view kLibrarySection = "CentralLibrary";
constexpr std::string_view kPartitionsPrefix = "Partitions.";
constexpr std::string_view kSchemesSection = "Schemes";
constexpr std::string_view kSchemePrefix = "Scheme ";
constexpr std::string_view kSpecialPrefix = "SpecialSymbols.";
constexpr std::string_view kSpecialList = "Symbol";

constexpr std::string_view kSymbolSection = "Symbol";
constexpr std::string_view kPinsSection = "Pins";
constexpr std::string_view kPropertiesSection = "Properties";

struct TypeName {
    PartitionType type;
    std::string_view name; ///< of the section behind its prefix, and of the list in a scheme
};
constexpr std::array kTypeNames{
    TypeName{PartitionType::symbols, "Symbols"},
    TypeName{PartitionType::pdbs, "PDBs"},
    TypeName{PartitionType::cells, "Cells"},
};

struct KindName {
    SpecialSymbolKind kind;
    std::string_view name;
};
constexpr std::array kKindNames{
    KindName{SpecialSymbolKind::port, "Port"},
    KindName{SpecialSymbolKind::onSheet, "OnSheet"},
    KindName{SpecialSymbolKind::offSheet, "OffSheet"},
    KindName{SpecialSymbolKind::ripperBusNet, "RipperBusNet"},
    KindName{SpecialSymbolKind::ripperBusBus, "RipperBusBus"},
    KindName{SpecialSymbolKind::power, "Power"},
    KindName{SpecialSymbolKind::ground, "Ground"},
    KindName{SpecialSymbolKind::border, "Border"},
};

constexpr std::size_t kLargestSymbol = 4u << 20; // in bytes

std::string joined(std::string_view one, std::string_view other) {
    return std::string(one) += other;
}

bool startsWithoutCase(std::string_view text, std::string_view prefix) {
    return platform::equalsWithoutCase(text.substr(0, prefix.size()), prefix);
}

/// What is no number gives the type whose lists may not be edited.
int schemeType(std::string_view text) {
    int type = 0;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, type);
    return parsed.ec == std::errc() && parsed.ptr == end ? type : 0;
}

bool isIndex(const ProfileView& content) {
    return std::ranges::any_of(content.sections(), [](const ProfileView::Section& section) {
        return platform::equalsWithoutCase(section.name, kLibrarySection) ||
               platform::equalsWithoutCase(section.name, kSchemesSection) ||
               startsWithoutCase(section.name, kPartitionsPrefix) ||
               startsWithoutCase(section.name, kSpecialPrefix);
    });
}

bool isSymbol(const ProfileView& content) {
    return std::ranges::any_of(content.sections(), [](const ProfileView::Section& section) {
        return platform::equalsWithoutCase(section.name, kSymbolSection) ||
               platform::equalsWithoutCase(section.name, kPinsSection) ||
               platform::equalsWithoutCase(section.name, kPropertiesSection);
    });
}

/// The entries of a section that count, in the order of the file.
std::vector<ProfileView::Entry> countingEntries(const ProfileView& content, std::string_view section) {
    std::set<std::string> known;
    std::vector<ProfileView::Entry> entries;
    std::ranges::copy_if(content.entries(section), std::back_inserter(entries), [&](const auto& entry) {
        return known.insert(platform::inLowerCase(std::string(entry.key))).second;
    });
    return entries;
}

template <typename Key, typename Value>
const std::vector<Value>& listOf(const std::map<Key, std::vector<Value>>& lists, const Key& key) {
    static const std::vector<Value> none;
    const auto found = lists.find(key);
    return found == lists.end() ? none : found->second;
}

} // namespace

platform::Result<> CentralLibrary::load(const std::string& indexPath) {
    *this = {};
    if (indexPath.empty())
        return platform::Error{.cause = "no central library is named"};
    const std::string path = platform::fullPath(indexPath);
    const auto bytes = readTextFile(path);
    if (!bytes)
        return bytes.error();
    if (!parse(*bytes))
        return platform::Error{path, "cannot read: it is no index of a central library"};
    directory_ = platform::directoryOf(path);
    return {};
}

bool CentralLibrary::parse(std::string_view text) {
    *this = {};
    const ProfileView content(text);
    if (!isIndex(content))
        return false;
    readPartitions(content);
    readSchemes(content);
    for (const auto& [kind, name] : kKindNames)
        special_[kind] = readList(content, joined(kSpecialPrefix, name), kSpecialList);
    return true;
}

void CentralLibrary::readPartitions(const ProfileView& content) {
    for (const auto& [type, typeName] : kTypeNames) {
        const std::string section = joined(kPartitionsPrefix, typeName);
        std::vector<Partition>& partitions = partitions_[type];
        for (const auto& [name, location] : countingEntries(content, section)) {
            index_.try_emplace({type, platform::inLowerCase(std::string(name))}, partitions.size());
            partitions.push_back({std::string(name), std::string(location)});
        }
    }
}

void CentralLibrary::readSchemes(const ProfileView& content) {
    for (const auto& [name, type] : countingEntries(content, kSchemesSection)) {
        const std::string section = joined(kSchemePrefix, name);
        for (const auto& [partitionType, list] : kTypeNames)
            lists_[{platform::inLowerCase(std::string(name)), partitionType}] =
                readList(content, section, list);
        schemes_.push_back({std::string(name), schemeType(type)});
    }
}

const std::vector<Partition>& CentralLibrary::partitions(PartitionType type) const {
    return listOf(partitions_, type);
}

const Partition* CentralLibrary::findPartition(PartitionType type, std::string_view name) const {
    const auto found = index_.find({type, platform::inLowerCase(std::string(name))});
    return found == index_.end() ? nullptr : &partitions(type)[found->second];
}

std::string CentralLibrary::fullPath(const Partition& partition) const {
    // A location from the root stays one.
    const fs::path path = fs::path(directory_) / platform::platformPath(partition.location);
    return platform::fullPath(path.string());
}

std::vector<std::string> CentralLibrary::schemeList(std::string_view scheme, PartitionType type) const {
    return listOf(lists_, {platform::inLowerCase(std::string(scheme)), type});
}

const std::vector<std::string>& CentralLibrary::specialSymbols(SpecialSymbolKind kind) const {
    return listOf(special_, kind);
}

std::optional<Symbol> readSymbol(const CentralLibrary& library, std::string_view partition,
                                 std::string_view name) {
    const Partition* home = library.findPartition(PartitionType::symbols, partition);
    if (!home || name.empty() || !platform::isBareName(name))
        return std::nullopt;
    const std::string path =
        platform::fullPath(platform::MakeFilePath(library.fullPath(*home), name).append(kSymbolExtension));
    const auto bytes = readTextFile(path, kLargestSymbol);
    if (!bytes)
        return std::nullopt;
    const ProfileView content(*bytes);
    if (!isSymbol(content))
        return std::nullopt;
    Symbol symbol{std::string(content.value(kSymbolSection, "Name")),
                  home->name,
                  std::string(content.value(kSymbolSection, "Description")),
                  countingEntries(content, kPinsSection).size(),
                  {}};
    if (symbol.name.empty())
        symbol.name = fs::path(path).stem().string();
    for (const auto& [key, value] : countingEntries(content, kPropertiesSection))
        symbol.properties.emplace_back(key, value);
    return symbol;
}

std::vector<std::string> symbolNames(const CentralLibrary& library, const Partition& partition) {
    std::vector<std::pair<std::string, std::string>> names; // with what they are ordered by
    std::error_code error;
    fs::directory_iterator entry(library.fullPath(partition), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const fs::path& path = entry->path();
        std::error_code unknownType;
        if (platform::equalsWithoutCase(path.extension().string(), kSymbolExtension) &&
            entry->is_regular_file(unknownType)) {
            std::string name = path.stem().string();
            names.emplace_back(platform::inLowerCase(name), std::move(name));
        }
    }
    std::ranges::sort(names);
    std::vector<std::string> sorted;
    sorted.reserve(names.size());
    for (auto& [order, name] : names)
        sorted.push_back(std::move(name));
    return sorted;
}

} // namespace suite
