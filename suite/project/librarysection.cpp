#include "suite/project/librarysection.h"

#include "suite/project/numberedlist.h"

#include <charconv>

namespace suite {

namespace {

constexpr std::string_view kSection = "SymbolLibraries";
constexpr std::string_view kAlias = "Alias";
constexpr std::string_view kLocation = "Location";
constexpr std::string_view kType = "Type";
constexpr int kReadonly = 2;
constexpr int kLastType = 3;

/// What is no type is taken for the one that forbids most.
int typeOf(const std::string& text) {
    int type = kReadonly;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, type);
    const bool valid = parsed.ec == std::errc() && parsed.ptr == end && type >= 0 && type <= kLastType;
    return valid ? type : kReadonly;
}

} // namespace

std::vector<LibraryEntry> readLibraries(const platform::ProfileDocument& content) {
    std::vector<LibraryEntry> libraries;
    for (const std::string& location : readList(content, kSection, kLocation)) {
        const auto value = [&](std::string_view name) {
            return content.value(kSection, numberedKey(name, libraries.size())).value_or("");
        };
        libraries.push_back({value(kAlias), location, typeOf(value(kType))});
    }
    return libraries;
}

bool writeLibraries(platform::ProfileDocument& content, const std::vector<LibraryEntry>& libraries) {
    for (std::size_t i = 0; i < libraries.size(); ++i) {
        const LibraryEntry& library = libraries[i];
        if (!content.set(kSection, numberedKey(kAlias, i), library.alias) ||
            !content.set(kSection, numberedKey(kLocation, i), library.location) ||
            !content.set(kSection, numberedKey(kType, i), std::to_string(library.type)))
            return false;
    }
    for (const std::string_view name : {kAlias, kLocation, kType})
        deleteEntriesFrom(content, kSection, name, libraries.size());
    return true;
}

} // namespace suite
