#include "suite/projects/mergedfile.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/profileview.h"
#include "platform/trim.h"
#include "suite/files/errorlog.h"
#include "suite/files/numberedlist.h"
#include "suite/files/textfile.h"
#include "suite/projects/projectfiletext.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace suite {

using platform::Error;
using platform::ProfileDocument;
using platform::Result;

namespace {

/// A text as a message of one line can show it.
std::string shown(std::string_view text) {
    constexpr std::size_t kMostShown = 60;
    std::string line(text.substr(0, kMostShown));
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    return '"' + line + (text.size() > kMostShown ? "...\"" : "\"");
}

Error unstorable(std::string_view section, std::string_view text) {
    return {.cause = "cannot store " + shown(text) + " in the section " + std::string(section) +
                     ": a line of the file cannot hold it"};
}

std::optional<std::string> findRepeated(std::span<const Entry> entries) {
    std::set<std::string> names;
    for (const auto& [name, value] : entries) {
        if (!names.insert(platform::inLowerCase(name)).second)
            return name;
    }
    return std::nullopt;
}

/// Whether a content may be that of a file with such sections: it has one of them, or nothing.
bool mayBeOfKind(const ProfileDocument& content, MergedFile::Sections sections) {
    const std::string text = content.text();
    const std::size_t start =
        text.starts_with(platform::kByteOrderMark) ? platform::kByteOrderMark.size() : 0;
    const std::vector<std::string> names = content.sectionNames();
    return text.find_first_not_of(platform::kLineBlanks, start) == std::string::npos ||
           std::ranges::find_first_of(names, sections, platform::equalsWithoutCase) != names.end();
}

} // namespace

std::optional<ProfileDocument> MergedFile::reload(const std::string& path) {
    const std::string full = path.empty() ? path : platform::fullPath(path);
    const auto bytes = path.empty() ? Result<std::string>() : readTextFile(full, platform::kLargestDocument);
    if (!bytes) {
        if (bytes.code() != ENOENT)
            errorLog().report(bytes.error());
        return std::nullopt;
    }
    // The pages load a file anew at each commit: what could not be saved waits, unless there is news.
    if (unsaved_ && full == origin_ && *bytes == bytes_)
        return std::nullopt;
    unsaved_ = false;
    origin_ = full;
    bytes_ = *bytes;
    return ProfileDocument(bytes_);
}

Result<> MergedFile::save(const std::string& path, Sections sections, const Edit& edit) {
    auto saved = trySave(path, sections, edit);
    if (!saved)
        errorLog().report(saved.error());
    return saved;
}

Result<> MergedFile::trySave(const std::string& path, Sections sections, const Edit& edit) {
    if (path.empty())
        return Error{.cause = "cannot save: no file is named"};
    ProjectFileText document;
    document.openForChanges(path);
    const std::string& full = document.path();
    if (full.size() > platform::kLongestPath || !platform::isDirectory(platform::directoryOf(full)))
        return Error{full, "cannot save: its directory is not there"};
    Result<> held;
    std::string written;
    auto saved = document.tryChange([&](ProfileDocument& content) {
        // In a file without a line there is nothing to lose, and everything to write.
        const std::string former = content.text();
        const bool hasContent = !former.empty();
        const bool isOfKind = mayBeOfKind(content, sections);
        held = hasContent && !platform::isSameOnDisk(full, origin_)
                   ? Error{.cause = "cannot save: its former content has not been read"}
                   : edit(content, hasContent);
        if (!held)
            return false;
        written = content.text();
        if (!isOfKind && written != former)
            held = Error{.cause = "cannot save: it holds something else: it has no section such as [" +
                                  std::string(sections.front()) + "]"};
        return static_cast<bool>(held);
    });
    // What the file cannot hold does not wait: it would be in the way of every later save.
    unsaved_ = !saved && held;
    if (!saved)
        return held ? std::move(saved) : Error{full, held.error().cause};
    origin_ = full;
    bytes_ = written;
    return {};
}

std::vector<Entry> readEntries(const ProfileDocument& content, std::string_view section) {
    std::vector<Entry> entries;
    for (std::string& key : content.keys(section)) {
        std::string value = content.value(section, key).value_or("");
        entries.emplace_back(std::move(key), std::move(value));
    }
    return entries;
}

std::vector<Entry> withoutFormerSpellings(std::vector<Entry> entries, std::span<const Entry> former) {
    const std::set<Entry> known(former.begin(), former.end());
    std::set<std::string> renewed;
    for (const Entry& entry : entries) {
        if (!known.contains(entry))
            renewed.insert(platform::inLowerCase(entry.first));
    }
    std::erase_if(entries, [&](const Entry& entry) {
        return known.contains(entry) && renewed.contains(platform::inLowerCase(entry.first));
    });
    return entries;
}

Result<> storeEntries(ProfileDocument& content, std::string_view section, std::span<const Entry> former,
                      std::span<const Entry> present) {
    if (const auto name = findRepeated(present))
        return Error{.cause = "cannot store " + shown(*name) + " in the section " + std::string(section) +
                              " twice"};
    const std::map<std::string, std::string> before(former.begin(), former.end());
    const std::map<std::string, std::string> after(present.begin(), present.end());
    for (const auto& [name, value] : before) {
        if (!after.contains(name))
            content.set(section, name, std::nullopt);
    }
    std::vector<Entry> changed;
    std::ranges::copy_if(present, std::back_inserter(changed), [&](const Entry& entry) {
        const auto known = before.find(entry.first);
        return known == before.end() || known->second != entry.second;
    });
    std::map<std::string, std::string> spellings;
    for (std::string& key : content.keys(section))
        spellings.try_emplace(platform::inLowerCase(key), std::move(key));
    for (const auto& [name, value] : changed) {
        // A line keeps the spelling of its name, so another spelling needs another line.
        const auto spelling = spellings.find(platform::inLowerCase(name));
        if (spelling != spellings.end() && spelling->second != name)
            content.set(section, name, std::nullopt);
        if (!content.set(section, name, value))
            return unstorable(section, name);
    }
    const std::vector<Entry> stored = readEntries(content, section);
    const std::set<Entry> readable(stored.begin(), stored.end());
    const auto lost = std::ranges::find_if(changed, [&](const Entry& e) { return !readable.contains(e); });
    if (lost != changed.end())
        return unstorable(section, lost->first);
    return {};
}

void orderEntries(ProfileDocument& content, std::string_view section, std::span<const Entry> entries) {
    std::set<std::string> ours;
    std::vector<Entry> wanted;
    for (const auto& [name, unused] : entries) {
        if (auto value = content.value(section, name);
            value && ours.insert(platform::inLowerCase(name)).second)
            wanted.emplace_back(name, std::move(*value));
    }
    std::vector<Entry> present = readEntries(content, section);
    std::erase_if(present, [&](const Entry& e) { return !ours.contains(platform::inLowerCase(e.first)); });
    const auto sameName = [](const Entry& one, const Entry& other) {
        return platform::equalsWithoutCase(one.first, other.first);
    };
    if (std::ranges::equal(present, wanted, sameName))
        return;
    for (const auto& [name, value] : wanted)
        content.set(section, name, std::nullopt);
    for (const auto& [name, value] : wanted)
        content.set(section, name, value);
}

Result<> storeList(ProfileDocument& content, std::string_view section, std::string_view name,
                   std::span<const std::string> texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!content.set(section, numberedKey(name, i), texts[i]))
            return unstorable(section, texts[i]);
    }
    deleteEntriesFrom(content, section, name, texts.size());
    return {};
}

} // namespace suite
