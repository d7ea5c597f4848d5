#include "platform/profiledocument.h"

#include "platform/asciicase.h"
#include "platform/profileview.h"
#include "platform/trim.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::string_view kUnstorable("\r\n\0", 3);

std::string quotedIfNeeded(std::string_view value) {
    return profileValue(value) != value ? '"' + std::string(value) + '"' : std::string(value);
}

bool isStorable(std::string_view text) {
    return text.find_first_of(kUnstorable) == std::string_view::npos;
}

bool isSectionName(std::string_view name) {
    return !name.empty() && isStorable(name) && name.find(']') == std::string_view::npos;
}

bool isKey(std::string_view key) {
    return !key.empty() && isStorable(key) && key.find('=') == std::string_view::npos && key.front() != ';' &&
           key.front() != '[';
}

/// Cuts between characters of UTF-8, which have up to three bytes behind the first one; other bytes are cut
/// anywhere.
std::string_view cut(std::string_view text, std::size_t limit) {
    constexpr std::size_t kMostTrailing = 3;
    if (text.size() <= limit)
        return text;
    const auto isTrailing = [text](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0u) == 0x80u;
    };
    for (std::size_t end = limit; end + kMostTrailing >= limit && end > 0; --end) {
        if (!isTrailing(end))
            return text.substr(0, end);
    }
    return text.substr(0, limit);
}

} // namespace

std::size_t ProfileDocument::Hash::operator()(std::string_view text) const {
    std::size_t hash = 14695981039346656037u; // FNV-1a
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(toLower(c))) * 1099511628211u;
    return hash;
}

bool ProfileDocument::Equal::operator()(std::string_view one, std::string_view other) const {
    return equalsWithoutCase(one, other);
}

ProfileDocument::ProfileDocument(std::string_view text, std::size_t valueLimit) : valueLimit_(valueLimit) {
    if (text.starts_with(kByteOrderMark)) {
        byteOrderMark_ = kByteOrderMark;
        text.remove_prefix(kByteOrderMark.size());
    }
    const auto firstEnd = text.find('\n');
    if (firstEnd != std::string_view::npos && firstEnd > 0 && text[firstEnd - 1] == '\r')
        lineEnd_ = "\r\n";
    while (!text.empty())
        addLine(takeLine(text));
}

void ProfileDocument::addLine(std::string_view line) {
    if (const auto name = profileHeader(line)) {
        index_.try_emplace(std::string(*name), sections_.size());
        sections_.push_back({std::string(*name), {std::string(line)}, {}, 1});
        return;
    }
    Section& section = sections_.back();
    section.lines.emplace_back(line);
    if (const auto key = profileKey(line)) {
        section.entries[std::string(*key)].push_back(section.lines.size() - 1);
        section.end = section.lines.size();
    }
}

std::string ProfileDocument::text() const {
    std::string text(byteOrderMark_);
    for (const Section& section : sections_) {
        for (const std::string& line : section.lines)
            text += line;
    }
    return text;
}

std::vector<std::string> ProfileDocument::sectionNames() const {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < sections_.size(); ++i) {
        if (find(sections_[i].name) == &sections_[i])
            names.push_back(sections_[i].name);
    }
    return names;
}

std::vector<std::string> ProfileDocument::keys(std::string_view name) const {
    std::vector<std::string> keys;
    const Section* section = find(name);
    for (std::size_t i = 0; section && i < section->lines.size(); ++i) {
        const auto key = profileKey(section->lines[i]);
        if (key && section->entries.find(*key)->second.front() == i)
            keys.emplace_back(*key);
    }
    return keys;
}

std::optional<std::string> ProfileDocument::value(std::string_view name, std::string_view key) const {
    const Section* section = find(name);
    if (!section)
        return std::nullopt;
    const auto entry = section->entries.find(trim(key));
    if (entry == section->entries.end())
        return std::nullopt;
    return readValue(section->lines[entry->second.front()]);
}

std::string ProfileDocument::readValue(std::string_view line) const {
    return std::string(cut(profileValue(line.substr(line.find('=') + 1)), valueLimit_));
}

bool ProfileDocument::set(std::string_view name, std::string_view key,
                          std::optional<std::string_view> value) {
    name = trim(name);
    key = trim(key);
    if (!isSectionName(name) || !isKey(key))
        return false;
    const Section* existing = find(name);
    const bool known = existing && existing->entries.contains(key);
    if (!value && !known)
        return true;
    if (value && known && this->value(name, key) == value)
        return true;
    if (value && !isStorable(*value))
        return false;

    Section& section = findOrAdd(name);
    const auto entry = section.entries.find(key);
    if (!value) {
        // All of them, or a second entry of the key would take the place of the deleted one.
        for (const std::size_t line : entry->second)
            section.lines[line].clear();
        section.entries.erase(entry);
    } else if (known) {
        replace(section.lines[entry->second.front()], *value);
    } else {
        append(section, key, *value);
    }
    return true;
}

const ProfileDocument::Section* ProfileDocument::find(std::string_view name) const {
    const auto found = index_.find(trim(name));
    return found == index_.end() ? nullptr : &sections_[found->second];
}

ProfileDocument::Section& ProfileDocument::findOrAdd(std::string_view name) {
    const auto [found, added] = index_.try_emplace(std::string(name), sections_.size());
    if (added) {
        if (!sections_.back().lines.empty())
            completeLine(sections_.back().lines.back());
        sections_.push_back({std::string(name), {newLine('[' + std::string(name) + ']')}, {}, 1});
    }
    return sections_[found->second];
}

void ProfileDocument::append(Section& section, std::string_view key, std::string_view value) {
    // Behind the last entry stand no others, so that the line numbers of the entries hold.
    completeLine(section.lines[section.end - 1]);
    section.lines.insert(section.lines.begin() + static_cast<std::ptrdiff_t>(section.end),
                         newLine(std::string(key) + '=' + quotedIfNeeded(value)));
    section.entries[std::string(key)] = {section.end};
    ++section.end;
}

void ProfileDocument::replace(std::string& line, std::string_view value) const {
    const std::size_t afterEquals = line.find('=') + 1;
    const std::size_t begin = std::min(line.find_first_not_of(" \t", afterEquals), line.size());
    const std::size_t content = line.find_last_not_of("\r\n") + 1;
    const std::string end = line.substr(content);
    line.erase(std::min(begin, content));
    line += quotedIfNeeded(value) + end;
}

std::string ProfileDocument::newLine(std::string_view content) const {
    return std::string(content) + std::string(lineEnd_);
}

void ProfileDocument::completeLine(std::string& line) const {
    if (!line.empty() && line.back() != '\n')
        line += lineEnd_;
}

} // namespace platform
