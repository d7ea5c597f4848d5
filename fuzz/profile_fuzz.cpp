// The readers of files of ini kind: they agree, and an edit keeps every byte that it does not concern.

#include "fuzz/support.h"
#include "platform/asciicase.h"
#include "platform/profilefile.h"
#include "platform/profileview.h"

#include <algorithm>

using fuzz::require;
using platform::ProfileDocument;
using platform::ProfileView;

namespace {

/// A file takes more time than all else, and adds little: one in so many.
constexpr std::size_t kFilesApart = 8;

using Strings = std::vector<std::string>;

struct Place {
    std::string section;
    std::string key;
};

/// Where every entry that counts is; on the way, that both readers say the same. What is not the next name of
/// the one can only be a repeated name in the other.
std::vector<Place> places(const ProfileDocument& document, const ProfileView& view) {
    std::vector<Place> all;
    const Strings names = document.sectionNames();
    std::size_t sections = 0;
    for (const ProfileView::Section& section : view.sections()) {
        if (sections == names.size() || section.name != names[sections])
            continue;
        ++sections;
        const Strings keys = document.keys(section.name);
        std::size_t entries = 0;
        for (const auto& [key, value] : section.entries) {
            if (entries == keys.size() || key != keys[entries]) {
                require(document.value(section.name, key).has_value());
                continue;
            }
            ++entries;
            require(document.value(section.name, key) == value && view.value(section.name, key) == value);
            all.push_back({std::string(section.name), std::string(key)});
        }
        require(entries == keys.size());
    }
    require(sections == names.size());
    return all;
}

bool isConcerned(std::string_view line, const Place& place) {
    const auto key = platform::profileKey(line);
    return key && !platform::profileHeader(line) && platform::equalsWithoutCase(*key, place.key);
}

/// The text without the lines of the edited entry, of which a file may have more than one.
std::string unconcerned(std::string_view text, const Place& place) {
    std::string rest;
    bool isHere = false;
    bool isOver = false;
    if (text.starts_with(platform::kByteOrderMark)) {
        rest = platform::kByteOrderMark;
        text.remove_prefix(rest.size());
    }
    while (!text.empty()) {
        const std::string_view line = platform::takeLine(text);
        if (const auto header = platform::profileHeader(line)) {
            isOver = isOver || isHere;
            isHere = !isOver && platform::equalsWithoutCase(*header, place.section);
        }
        if (!isHere || !isConcerned(line, place))
            rest += line;
    }
    return rest;
}

void checkEdit(const std::string& text, const Place& place, std::optional<std::string_view> value) {
    ProfileDocument document(text);
    const bool isKnown = document.value(place.section, place.key).has_value();
    if (!document.set(place.section, place.key, value)) {
        require(document.text() == text);
        return;
    }
    const std::string edited = document.text();
    const auto read = ProfileDocument(edited).value(place.section, place.key);
    require(read.has_value() == value.has_value() && (!read || *read == *value));
    // Where a line comes to stand behind one without an end, that one gets an end; a section may be new too.
    if (isKnown)
        require(unconcerned(edited, place) == unconcerned(text, place));
    else if (text.ends_with('\n'))
        require(unconcerned(edited, place).starts_with(text));
}

void checkFile(const fuzz::File& file, std::string_view text, const ProfileDocument& document) {
    file.write(text);
    platform::ProfileFile profile(file.path());
    if (!profile.load()) {
        require(text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"));
        require(profile.sectionNames().empty());
        return;
    }
    require(profile.sectionNames() == document.sectionNames());
    for (const std::string& section : document.sectionNames())
        require(profile.keys(section) == document.keys(section));
    require(static_cast<bool>(profile.save())); // without a change, so without a write
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::File file("profile.ini");
    const std::string text(fuzz::textOf(data, size));
    const ProfileDocument document(text);
    require(document.text() == text);
    const std::vector<Place> all = places(document, ProfileView(text));
    if (size % kFilesApart == 0)
        checkFile(file, text, document);

    const std::string_view value = std::string_view(text).substr(size / 2, size % 16);
    const Place fresh{all.empty() ? "New" : all.front().section, "New"};
    if (all.empty() || size % 4 == 0)
        checkEdit(text, fresh, value);
    else
        checkEdit(text, all[size % all.size()], size % 4 == 1 ? std::nullopt : std::optional(value));
    return 0;
}
