#include "suite/files/numberedlist.h"

#include "platform/asciicase.h"

#include <charconv>
#include <optional>

namespace suite {

namespace {

std::optional<std::size_t> numberOf(std::string_view key, std::string_view prefix) {
    if (key.size() <= prefix.size() || !platform::equalsWithoutCase(key.substr(0, prefix.size()), prefix))
        return std::nullopt;
    std::size_t number = 0;
    const char* end = key.data() + key.size();
    const auto parsed = std::from_chars(key.data() + prefix.size(), end, number);
    // "#007" is nobody's number seven: it is not read, and so it is somebody else's.
    const bool hasLeadingZero = key[prefix.size()] == '0' && key.size() > prefix.size() + 1;
    if (parsed.ec != std::errc() || parsed.ptr != end || hasLeadingZero)
        return std::nullopt;
    return number;
}

} // namespace

std::string numberedKey(std::string_view name, std::size_t number) {
    return std::string(name) + '#' + std::to_string(number);
}

std::vector<std::string> readList(const platform::ProfileDocument& content, std::string_view section,
                                  std::string_view name) {
    std::vector<std::string> texts;
    while (auto text = content.value(section, numberedKey(name, texts.size())))
        texts.push_back(std::move(*text));
    return texts;
}

std::vector<std::string> readList(const platform::ProfileView& content, std::string_view section,
                                  std::string_view name) {
    const auto found = numberedEntries(content, section, name);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < found.size() && found[i]; ++i)
        texts.emplace_back(*found[i]);
    return texts;
}

std::vector<std::optional<std::string_view>>
numberedEntries(const platform::ProfileView& content, std::string_view section, std::string_view name) {
    const auto entries = content.entries(section);
    const std::string prefix = std::string(name) + '#';
    std::vector<std::optional<std::string_view>> found(entries.size());
    for (const auto& [key, value] : entries) {
        const auto number = numberOf(key, prefix);
        if (number && *number < found.size() && !found[*number])
            found[*number] = value;
    }
    return found;
}

bool writeList(platform::ProfileDocument& content, std::string_view section, std::string_view name,
               std::span<const std::string> texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!content.set(section, numberedKey(name, i), texts[i]))
            return false;
    }
    deleteEntriesFrom(content, section, name, texts.size());
    return true;
}

void deleteEntriesFrom(platform::ProfileDocument& content, std::string_view section, std::string_view name,
                       std::size_t first) {
    const std::string prefix = std::string(name) + '#';
    for (const std::string& key : content.keys(section)) {
        if (const auto number = numberOf(key, prefix); number && *number >= first)
            content.set(section, key, std::nullopt);
    }
}

} // namespace suite
