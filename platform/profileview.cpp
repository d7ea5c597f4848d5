#include "platform/profileview.h"

#include "platform/asciicase.h"
#include "platform/trim.h"

#include <algorithm>

namespace platform {

namespace {

bool isQuote(char c) {
    return c == '"' || c == '\'';
}

bool isQuoted(std::string_view text) {
    return text.size() >= 2 && isQuote(text.front()) && text.front() == text.back();
}

} // namespace

std::optional<std::string_view> profileHeader(std::string_view line) {
    const std::string_view content = trim(line);
    if (!content.starts_with('['))
        return std::nullopt;
    const auto close = content.find(']');
    if (close == std::string_view::npos)
        return std::nullopt;
    return trim(content.substr(1, close - 1));
}

std::optional<std::string_view> profileKey(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    const std::string_view key = trim(line.substr(0, equals));
    if (key.empty() || key.front() == ';' || key.front() == '[')
        return std::nullopt;
    return key;
}

std::string_view profileValue(std::string_view written) {
    const std::string_view value = trim(written);
    return isQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

std::string_view takeLine(std::string_view& text) {
    const auto size = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, size);
    text.remove_prefix(size);
    return line;
}

ProfileView::ProfileView(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (const auto name = profileHeader(line)) {
            index_.try_emplace(inLowerCase(std::string(*name)), sections_.size());
            sections_.push_back({*name, {}});
        } else if (const auto key = profileKey(line); key && !sections_.empty()) {
            sections_.back().entries.push_back({*key, profileValue(line.substr(line.find('=') + 1))});
        }
    }
}

std::span<const ProfileView::Entry> ProfileView::entries(std::string_view section) const {
    const auto found = index_.find(inLowerCase(std::string(trim(section))));
    return found == index_.end() ? std::span<const Entry>() : sections_[found->second].entries;
}

std::string_view ProfileView::value(std::string_view section, std::string_view key) const {
    const auto all = entries(section);
    const auto found =
        std::ranges::find_if(all, [&](const Entry& entry) { return equalsWithoutCase(entry.key, key); });
    return found == all.end() ? std::string_view() : found->value;
}

} // namespace platform
