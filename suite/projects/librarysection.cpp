#include "suite/projects/librarysection.h"

#include "suite/files/numberedlist.h"
#include "suite/projects/projectsections.h"

#include <charconv>

namespace suite {

namespace {

constexpr std::string_view kAlias = "Alias";
constexpr std::string_view kLocation = "Location";
constexpr std::string_view kType = "Type";
constexpr int kReadonly = 2;
constexpr int kLastType = 3;

/// What is no type is taken for the one that forbids most.
int typeOf(std::string_view text) {
    int type = kReadonly;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, type);
    const bool valid = parsed.ec == std::errc() && parsed.ptr == end && type >= 0 && type <= kLastType;
    return valid ? type : kReadonly;
}

} // namespace

std::vector<LibraryEntry> readLibraries(const platform::ProfileView& content) {
    const auto locations = numberedEntries(content, kSymbolLibraries, kLocation);
    const auto aliases = numberedEntries(content, kSymbolLibraries, kAlias);
    const auto types = numberedEntries(content, kSymbolLibraries, kType);
    std::vector<LibraryEntry> libraries;
    for (std::size_t i = 0; i < locations.size() && locations[i]; ++i)
        libraries.push_back({std::string(aliases[i].value_or("")), std::string(*locations[i]),
                             typeOf(types[i].value_or(""))});
    return libraries;
}

bool writeLibraries(platform::ProfileDocument& content, const std::vector<LibraryEntry>& libraries) {
    for (std::size_t i = 0; i < libraries.size(); ++i) {
        const LibraryEntry& library = libraries[i];
        if (!content.set(kSymbolLibraries, numberedKey(kAlias, i), library.alias) ||
            !content.set(kSymbolLibraries, numberedKey(kLocation, i), library.location) ||
            !content.set(kSymbolLibraries, numberedKey(kType, i), std::to_string(library.type)))
            return false;
    }
    for (const std::string_view name : {kAlias, kLocation, kType})
        deleteEntriesFrom(content, kSymbolLibraries, name, libraries.size());
    return true;
}

} // namespace suite
