#include "suite/configurations/document.h"

#include "platform/base64.h"
#include "suite/configurations/documentwords.h"

#include <algorithm>
#include <array>
#include <forward_list>
#include <set>

namespace suite {

using namespace words;
using platform::Error;
using platform::Result;
using platform::XmlNode;
using platform::XmlTree;

namespace {

struct FlagWord {
    std::string_view word;
    bool value;
};
constexpr FlagWord kFlagWords[] = {{"yes", true}, {"true", true},   {"1", true},
                                   {"no", false}, {"false", false}, {"0", false}};

std::optional<bool> flagOf(std::string_view word) {
    for (const FlagWord& known : kFlagWords) {
        if (known.word == word)
            return known.value;
    }
    return std::nullopt;
}

bool isNamed(XmlNode element, std::string_view name) {
    return element.name() == name;
}

/// The key that an element belongs to, and its own name in a group.
std::string keyOf(XmlNode element) {
    std::string part(nameIn(element));
    if (!isNamed(element, kItem) && !isNamed(element, kAttribute))
        return part;
    const std::string key(nameIn(element.parent()));
    return part.empty() ? key : key + ' ' + part;
}

/// The words on a part, or else on what it is in, up to the section; as views into the tree.
struct NoteView {
    std::string_view reason;
    std::string_view contact;

    explicit NoteView(XmlNode part) {
        for (auto element = part; element.parent(); element = element.parent()) {
            if (reason.empty())
                reason = element.attribute(kReason).value_or(std::string_view());
            if (contact.empty())
                contact = element.attribute(kContact).value_or(std::string_view());
        }
    }

    Orv::LockNote note() const { return {std::string(reason), std::string(contact)}; }
};

/// Tells names apart: nearly always a few.
class DistinctNames {
public:
    /// @return false for one that was there before.
    bool insert(std::string_view name) {
        const auto end = few_.begin() + static_cast<std::ptrdiff_t>(count_);
        if (std::find(few_.begin(), end, name) != end)
            return false;
        if (count_ == few_.size())
            return many_.insert(name).second;
        few_[count_++] = name;
        return true;
    }

private:
    std::array<std::string_view, 8> few_;
    std::size_t count_ = 0;
    std::set<std::string_view> many_;
};

} // namespace

Result<ConfigurationDocument> ConfigurationDocument::parse(std::string bytes) {
    ConfigurationDocument document;
    auto xml = XmlTree::parse(std::move(bytes), &document.foreign_);
    if (!xml)
        return xml.error();
    document.xml_ = std::move(*xml);
    const XmlNode root = document.xml_.root();
    if (!isNamed(root, kRoot))
        return Error{{},
                     std::string("the root element is <")
                         .append(root.name())
                         .append(">, not <")
                         .append(kRoot)
                         .append(">"),
                     document.xml_.lineOf(root)};
    return document;
}

bool ConfigurationDocument::readKey(const std::string& path, const std::string& key, Values& values,
                                    std::vector<std::uint8_t>& locks) const {
    values.clear();
    locks.clear();
    const XmlNode entry = find(path, {}, key);
    if (!entry)
        return false;
    std::string storage;
    const bool locked = isLocked(entry);
    if (isNamed(entry, kValue)) {
        values.emplace_back(textOf(entry, storage));
        locks.push_back(locked);
        return true;
    }
    for (const XmlNode item : entry.children(kItem)) {
        values.emplace_back(textOf(item, storage));
        locks.push_back(isLocked(item) || locked);
    }
    return true;
}

bool ConfigurationDocument::isKeyLocked(const std::string& path, const std::string& key) const {
    const XmlNode entry = find(path, {}, key);
    return entry && isLocked(entry);
}

bool ConfigurationDocument::readGroup(const std::string& path, const std::string& type,
                                      const std::string& key, Attributes& attributes,
                                      std::map<std::string, int>& locks, bool& groupLocked) const {
    attributes.clear();
    locks.clear();
    const XmlNode group = find(path, type, key);
    if (!group)
        return false;
    groupLocked = isLocked(group) || groupLocked;
    readAttributes(group, [&](const Orv::ConfigurationPart& part, XmlNode) {
        if (part.isLocked)
            locks.emplace(part.name, 1);
        if (part.hasText)
            attributes.emplace(part.name, part.text);
    });
    return true;
}

template <typename Take>
void ConfigurationDocument::readAttributes(XmlNode group, Take take) const {
    DistinctNames names;
    std::string storage;
    for (const XmlNode item : group.children(kAttribute)) {
        const auto name = item.attribute(kName);
        if (!name) {
            report(item, "<attribute> without a name in " + keyOf(item) + " is passed over");
            continue;
        }
        if (!names.insert(*name)) {
            report(item, keyOf(item) + " is given twice, the first counts");
            continue;
        }
        const std::string_view text = textOf(item, storage);
        const bool locked = isLocked(item);
        // An attribute can be locked without being set; an empty text that is meant needs a word.
        const bool hasText = !locked || !text.empty() || item.attribute(kEmpty);
        take(Orv::ConfigurationPart{*name, text, hasText, locked}, item);
    }
}

/// Tells a reader of entries.
class ConfigurationDocument::Teller {
public:
    Teller(const ConfigurationDocument& document, const EntryReader& reader)
        : document_(document), reader_(reader) {}

    void tell(XmlNode element) {
        if (const XmlNode section = element.parent(); section != section_) {
            section_ = section;
            path_ = pathOf(section);
        }
        const std::string_view type = typeOf(element);
        parts_.clear();
        texts_.clear();
        isLocked_ = document_.isLocked(element);
        if (!type.empty()) {
            document_.readAttributes(
                element, [this](const Orv::ConfigurationPart& part, XmlNode item) { add(part, item); });
        } else if (isNamed(element, kValue)) {
            add({{}, document_.textOf(element, storage_)}, element);
        } else {
            for (const XmlNode item : element.children(kItem)) {
                const std::string_view text = document_.textOf(item, storage_);
                add({{}, text, true, document_.isLocked(item)}, item);
            }
        }
        const NoteView note(isLocked_ ? element : XmlNode());
        reader_({path_, type, nameIn(element), parts_, isLocked_, note.reason, note.contact});
    }

private:
    void add(Orv::ConfigurationPart part, XmlNode element) {
        part.isLocked = part.isLocked || isLocked_;
        if (part.isLocked) {
            const NoteView note(element);
            part.reason = note.reason;
            part.contact = note.contact;
        }
        if (!part.text.empty() && !document_.xml_.holds(part.text))
            part.text = texts_.emplace_front(part.text);
        parts_.push_back(part);
    }

    const ConfigurationDocument& document_;
    const EntryReader& reader_;
    XmlNode section_;
    std::string_view path_;
    bool isLocked_ = false;
    std::vector<Orv::ConfigurationPart> parts_;
    std::string storage_;
    std::forward_list<std::string> texts_; ///< that stand in no piece in the tree
};

void ConfigurationDocument::readAll(const EntryReader& reader) const {
    static_cast<void>(applyEdits());
    Teller teller(*this, reader);
    for (const std::uint32_t place : index().entries)
        teller.tell(xml_.node(place));
}

ConfigurationDocument::Values ConfigurationDocument::keys(const std::string& path) const {
    return names(path, {});
}

ConfigurationDocument::Values ConfigurationDocument::groups(const std::string& path,
                                                            const std::string& type) const {
    return names(path, type);
}

ConfigurationDocument::Values ConfigurationDocument::names(const std::string& path,
                                                           const std::string& type) const {
    static_cast<void>(applyEdits());
    Values found;
    const std::string_view wanted = sectionPath(path);
    XmlNode section;
    bool isWanted = false;
    for (const std::uint32_t place : index().entries) {
        const XmlNode entry = xml_.node(place);
        if (const XmlNode around = entry.parent(); around != section) {
            section = around;
            isWanted = pathOf(section) == wanted;
        }
        if (isWanted && typeOf(entry) == type)
            found.emplace_back(nameIn(entry));
    }
    return found;
}

bool ConfigurationDocument::canWithdrawKey(const std::string& path, const std::string& key,
                                           const Values* ifSays) const {
    Values values;
    std::vector<std::uint8_t> locks;
    return readKey(path, key, values, locks) && !isKeyLocked(path, key) &&
           std::ranges::find(locks, 1) == locks.end() && (!ifSays || values == *ifSays);
}

bool ConfigurationDocument::canWithdrawAttribute(const std::string& path, const std::string& type,
                                                 const std::string& key, const std::string& name,
                                                 const std::string* ifSays) const {
    const XmlNode item = findAttribute(path, type, key, name);
    if (!item || isLocked(item) || isLocked(item.parent()))
        return false;
    std::string storage;
    return !ifSays || textOf(item, storage) == *ifSays;
}

Orv::LockNote ConfigurationDocument::keyLockNote(const std::string& path, const std::string& key,
                                                 std::size_t item) const {
    const XmlNode entry = find(path, {}, key);
    XmlNode part = entry.child(kItem);
    for (std::size_t i = 0; part && i < item; ++i)
        part = part.next(kItem);
    return NoteView(part ? part : entry).note();
}

Orv::LockNote ConfigurationDocument::attributeLockNote(const std::string& path, const std::string& type,
                                                       const std::string& key,
                                                       const std::string& name) const {
    const XmlNode item = findAttribute(path, type, key, name);
    return NoteView(item ? item : find(path, type, key)).note();
}

const ConfigurationDocument::Index& ConfigurationDocument::index() const {
    if (index_)
        return *index_;
    Index& index = index_.emplace(Index{EntryIndex(xml_.size() / 2), {}, {}});
    for (const XmlNode section : xml_.root().children(kSection)) {
        if (!section.attribute(kPath)) {
            report(section, "<section> without a path is passed over");
            continue;
        }
        auto& found = index.names.at(xml_, {0, {}, pathOf(section)});
        found.first = found.first == 0 ? section.place() : found.first;
        found.last = section.place();
        const auto scope = found.first;
        for (const XmlNode element : section.children())
            indexEntry(index, scope, element);
    }
    return index;
}

void ConfigurationDocument::indexEntry(Index& index, std::uint32_t scope, XmlNode element) const {
    const std::string kind(element.name());
    const bool isGroup = kind == kGroup;
    if (!isGroup && kind != kValue && kind != kList)
        return;
    const auto key = element.attribute(kName);
    const std::string_view type = typeOf(element);
    if (!key || (isGroup && type.empty())) {
        report(element, "<" + kind + "> without a " + (key ? "type" : "name") + " is passed over");
        return;
    }
    if (kind != kValue && element.hasText())
        report(element, "text in <" + kind + "> " + std::string(*key) + " means nothing outside of <" +
                            (isGroup ? kAttribute : kItem) + ">");
    auto& found = index.names.at(xml_, {scope, type, *key});
    if (found.first == 0) {
        found.first = element.place();
        index.entries.push_back(found.first);
    } else {
        report(element, std::string(*key) + " is given twice, the first counts");
        index.duplicates.emplace_back(found.first, element.place());
    }
}

XmlNode ConfigurationDocument::find(const std::string& path, const std::string& type, const std::string& key,
                                    const std::string* attribute) const {
    const Edit* pending = pendingEdit(path, type, key);
    if (pending &&
        !(attribute && pending->kind == Edit::Kind::attributes && !pending->attributes.contains(*attribute)))
        static_cast<void>(applyEdits());
    const auto place = placeOf(path, type, key);
    return place == 0 ? XmlNode() : xml_.node(place);
}

/// 0 if there is no such entry.
std::uint32_t ConfigurationDocument::placeOf(const std::string& path, const std::string& type,
                                             const std::string& key) const {
    const EntryIndex& names = index().names;
    const auto scope = names.find(xml_, {0, {}, sectionPath(path)}).first;
    return scope == 0 ? 0 : names.find(xml_, {scope, type, key}).first;
}

XmlNode ConfigurationDocument::findAttribute(const std::string& path, const std::string& type,
                                             const std::string& key, const std::string& name) const {
    for (const XmlNode item : find(path, type, key, &name).children(kAttribute)) {
        if (item.attribute(kName) == name)
            return item;
    }
    return {};
}

bool ConfigurationDocument::readText(XmlNode element, std::string& storage, std::string_view& text) const {
    text = element.text(storage);
    const auto encoding = element.attribute(kEncoding);
    if (!encoding)
        return true;
    auto decoded = *encoding == kBase64 ? platform::fromBase64(text) : std::nullopt;
    if (!decoded)
        return false;
    storage = std::move(*decoded);
    text = storage;
    return true;
}

std::string_view ConfigurationDocument::textOf(XmlNode element, std::string& storage) const {
    std::string_view text;
    if (!readText(element, storage, text))
        report(element,
               keyOf(element) + ": the text is not in the encoding that is named, it is taken as it stands");
    return text;
}

bool ConfigurationDocument::isLocked(XmlNode element) const {
    const auto word = element.attribute(kLocked);
    if (!word)
        return false;
    const auto flag = flagOf(*word);
    if (!flag)
        report(element, keyOf(element) + ": locked=\"" + std::string(*word) +
                            "\" is neither yes nor no, it is taken as yes");
    // A mistyped word was meant to lock; letting users through would be the worse mistake.
    return flag.value_or(true);
}

void ConfigurationDocument::report(XmlNode element, std::string text) const {
    flawed_ = true;
    if (reporter_)
        reporter_({{}, std::move(text), xml_.lineOf(element)});
}

} // namespace suite
