#include "suite/configurations/document.h"

#include "platform/base64.h"
#include "platform/trim.h"
#include "suite/configurations/documentwords.h"

#include <algorithm>
#include <forward_list>

namespace suite {

using namespace words;
using platform::attributeOf;

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

bool isNamed(pugi::xml_node element, std::string_view name) {
    return element.name() == name;
}

/// The key that an element belongs to, and its own name in a group.
std::string keyOf(pugi::xml_node element) {
    std::string part = element.attribute(kName).value();
    if (!isNamed(element, kItem) && !isNamed(element, kAttribute))
        return part;
    std::string key = element.parent().attribute(kName).value();
    return part.empty() ? key : key + ' ' + part;
}

/// The words on a part, or else on what it is in, up to the section; as views into the tree.
struct NoteView {
    std::string_view reason;
    std::string_view contact;

    explicit NoteView(pugi::xml_node part) {
        for (auto element = part; element && element.parent().parent(); element = element.parent()) {
            if (reason.empty())
                reason = element.attribute(kReason).value();
            if (contact.empty())
                contact = element.attribute(kContact).value();
        }
    }

    Orv::LockNote note() const { return {std::string(reason), std::string(contact)}; }
};

} // namespace

std::string_view sectionPath(std::string_view path) {
    return platform::trimEnd(path, "/");
}

std::optional<ConfigurationDocument> ConfigurationDocument::parse(std::string bytes, Problem& problem) {
    problem = {};
    ConfigurationDocument document;
    auto xml = platform::XmlDocument::parse(std::move(bytes), problem, &document.foreign_);
    if (!xml)
        return std::nullopt;
    document.xml_ = std::move(*xml);
    const pugi::xml_node root = document.xml_.root();
    if (!isNamed(root, kRoot)) {
        problem = {document.xml_.lineOf(root), std::string("the root element is <")
                                                   .append(root.name())
                                                   .append(">, not <")
                                                   .append(kRoot)
                                                   .append(">")};
        return std::nullopt;
    }
    return document;
}

bool ConfigurationDocument::readKey(const std::string& path, const std::string& key, Values& values,
                                    std::vector<std::uint8_t>& locks) const {
    values.clear();
    locks.clear();
    const pugi::xml_node entry = find(path, {}, key);
    if (!entry)
        return false;
    std::string storage;
    const bool locked = isLocked(entry);
    if (isNamed(entry, kValue)) {
        values.emplace_back(textOf(entry, storage));
        locks.push_back(locked);
        return true;
    }
    for (const pugi::xml_node item : entry.children(kItem)) {
        values.emplace_back(textOf(item, storage));
        locks.push_back(isLocked(item) || locked);
    }
    return true;
}

bool ConfigurationDocument::isKeyLocked(const std::string& path, const std::string& key) const {
    const pugi::xml_node entry = find(path, {}, key);
    return entry && isLocked(entry);
}

bool ConfigurationDocument::readGroup(const std::string& path, const std::string& type,
                                      const std::string& key, Attributes& attributes,
                                      std::map<std::string, int>& locks, bool& groupLocked) const {
    attributes.clear();
    locks.clear();
    const pugi::xml_node group = find(path, type, key);
    if (!group)
        return false;
    groupLocked = isLocked(group) || groupLocked;
    NameTable names(0);
    std::string storage;
    for (const pugi::xml_node item : group.children(kAttribute)) {
        const auto part = readAttribute(names, 0, item, storage);
        if (!part)
            continue;
        if (part->isLocked)
            locks.emplace(part->name, 1);
        if (part->hasText)
            attributes.emplace(part->name, part->text);
    }
    return true;
}

/// @return nothing, after a report, for one that does not count.
std::optional<Orv::ConfigurationPart> ConfigurationDocument::readAttribute(NameTable& names,
                                                                           std::uint32_t scope,
                                                                           pugi::xml_node item,
                                                                           std::string& storage) const {
    const auto name = attributeOf(item, kName);
    if (!name) {
        report(item, "<attribute> without a name in " + keyOf(item) + " is passed over");
        return std::nullopt;
    }
    if (!names.insert({scope, {}, *name}).isNew) {
        report(item, keyOf(item) + " is given twice, the first counts");
        return std::nullopt;
    }
    const std::string_view text = textOf(item, storage);
    const bool locked = isLocked(item);
    // An attribute can be locked without being set; an empty text that is meant needs a word.
    const bool hasText = !locked || !text.empty() || item.attribute(kEmpty);
    return Orv::ConfigurationPart{*name, text, hasText, locked};
}

template <typename Visitor>
void ConfigurationDocument::visit(NameTable& names, Visitor& visitor) const {
    for (const pugi::xml_node section : xml_.root().children(kSection)) {
        const auto path = attributeOf(section, kPath);
        if (!path) {
            report(section, "<section> without a path is passed over");
            continue;
        }
        const std::string_view name = sectionPath(*path);
        const std::uint32_t scope = names.insert({0, {}, name}).number;
        visitor.section(name, scope, section);
        for (const pugi::xml_node element : section)
            visitEntry(names, scope, element, visitor);
    }
}

template <typename Visitor>
void ConfigurationDocument::visitEntry(NameTable& names, std::uint32_t scope, pugi::xml_node element,
                                       Visitor& visitor) const {
    const std::string_view kind = element.name();
    const bool isGroup = kind == kGroup;
    if (!isGroup && kind != kValue && kind != kList)
        return;
    const auto key = attributeOf(element, kName);
    const auto type = isGroup ? attributeOf(element, kType) : std::string_view();
    if (!key || !type || (isGroup && type->empty())) {
        report(element,
               std::string("<").append(kind) + "> without a " + (key ? "type" : "name") + " is passed over");
        return;
    }
    if (kind != kValue && platform::hasOwnText(element))
        report(element, "text in <" + std::string(kind) + "> " + std::string(*key) +
                            " means nothing outside of <" + (isGroup ? kAttribute : kItem) + ">");
    const auto [number, isNew] = names.insert({scope, *type, *key});
    if (isNew) {
        visitor.entry(*type, *key, number, element);
    } else {
        report(element, std::string(*key) + " is given twice, the first counts");
        visitor.duplicate(number, element);
    }
}

/// Tells a reader of entries as they are visited.
class ConfigurationDocument::Teller {
public:
    Teller(const ConfigurationDocument& document, NameTable& names, const EntryReader& reader)
        : document_(document), names_(names), reader_(reader) {}

    void section(std::string_view path, std::uint32_t, pugi::xml_node) { path_ = path; }
    void duplicate(std::uint32_t, pugi::xml_node) {}

    void entry(std::string_view type, std::string_view key, std::uint32_t number, pugi::xml_node element) {
        parts_.clear();
        texts_.clear();
        isLocked_ = document_.isLocked(element);
        if (!type.empty()) {
            for (const pugi::xml_node item : element.children(kAttribute)) {
                if (const auto part = document_.readAttribute(names_, number, item, storage_))
                    add(*part, item);
            }
        } else if (isNamed(element, kValue)) {
            add({{}, document_.textOf(element, storage_)}, element);
        } else {
            for (const pugi::xml_node item : element.children(kItem)) {
                const std::string_view text = document_.textOf(item, storage_);
                add({{}, text, true, document_.isLocked(item)}, item);
            }
        }
        const NoteView note(isLocked_ ? element : pugi::xml_node());
        reader_({path_, type, key, parts_, isLocked_, note.reason, note.contact});
    }

private:
    void add(Orv::ConfigurationPart part, pugi::xml_node element) {
        part.isLocked = part.isLocked || isLocked_;
        if (part.isLocked) {
            const NoteView note(element);
            part.reason = note.reason;
            part.contact = note.contact;
        }
        if (!part.text.empty() && part.text.data() == storage_.data())
            part.text = texts_.emplace_front(storage_);
        parts_.push_back(part);
    }

    const ConfigurationDocument& document_;
    NameTable& names_;
    const EntryReader& reader_;
    std::string_view path_;
    bool isLocked_ = false;
    std::vector<Orv::ConfigurationPart> parts_;
    std::string storage_;
    std::forward_list<std::string> texts_; ///< that stand in no piece in the tree
};

void ConfigurationDocument::readAll(const EntryReader& reader) const {
    if (!edits_.empty())
        applyEdits();
    NameTable names(expectedNames());
    Teller teller(*this, names, reader);
    visit(names, teller);
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
    if (!edits_.empty())
        applyEdits();
    Values found;
    const std::string_view wanted = sectionPath(path);
    const std::uint32_t scope = index().names.find({0, {}, wanted});
    for (const pugi::xml_node section : xml_.root().children(kSection)) {
        const auto here = attributeOf(section, kPath);
        if (!here || sectionPath(*here) != wanted)
            continue;
        for (const pugi::xml_node entry : section) {
            const std::string_view name = entry.attribute(kName).value();
            const std::uint32_t number = index().names.find({scope, type, name});
            if (number != 0 && index().elements[number - 1] == entry)
                found.emplace_back(name);
        }
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
    const pugi::xml_node item = findAttribute(path, type, key, name);
    if (!item || isLocked(item) || isLocked(item.parent()))
        return false;
    std::string storage;
    return !ifSays || textOf(item, storage) == *ifSays;
}

Orv::LockNote ConfigurationDocument::keyLockNote(const std::string& path, const std::string& key,
                                                 std::size_t item) const {
    const pugi::xml_node entry = find(path, {}, key);
    pugi::xml_node part = entry.child(kItem);
    for (std::size_t i = 0; part && i < item; ++i)
        part = part.next_sibling(kItem);
    return NoteView(part ? part : entry).note();
}

Orv::LockNote ConfigurationDocument::attributeLockNote(const std::string& path, const std::string& type,
                                                       const std::string& key,
                                                       const std::string& name) const {
    const pugi::xml_node item = findAttribute(path, type, key, name);
    return NoteView(item ? item : find(path, type, key)).note();
}

struct ConfigurationDocument::Indexer {
    std::vector<pugi::xml_node>& elements;
    std::vector<std::pair<std::uint32_t, pugi::xml_node>>& duplicates;

    void section(std::string_view, std::uint32_t number, pugi::xml_node element) { put(number, element); }
    void entry(std::string_view, std::string_view, std::uint32_t number, pugi::xml_node element) {
        put(number, element);
    }
    void duplicate(std::uint32_t number, pugi::xml_node element) { duplicates.emplace_back(number, element); }

    void put(std::uint32_t number, pugi::xml_node element) {
        elements.resize(std::max<std::size_t>(elements.size(), number));
        elements[number - 1] = element;
    }
};

/// A guess: an entry on a line of its own takes about as many bytes.
std::size_t ConfigurationDocument::expectedNames() const {
    constexpr std::size_t kUsualEntry = 48;
    return xml_.text().size() / kUsualEntry;
}

const ConfigurationDocument::Index& ConfigurationDocument::index() const {
    if (!index_) {
        Index& index = index_.emplace(Index{NameTable(expectedNames()), {}, {}});
        Indexer indexer{index.elements, index.duplicates};
        visit(index.names, indexer);
    }
    return *index_;
}

pugi::xml_node ConfigurationDocument::find(const std::string& path, const std::string& type,
                                           const std::string& key, const std::string* attribute) const {
    const Edit* pending = pendingEdit(path, type, key);
    if (pending &&
        !(attribute && pending->kind == Edit::Kind::attributes && !pending->attributes.contains(*attribute)))
        applyEdits();
    const NameTable& names = index().names;
    const std::uint32_t scope = names.find({0, {}, sectionPath(path)});
    const std::uint32_t number = scope == 0 ? 0 : names.find({scope, type, key});
    return number == 0 ? pugi::xml_node() : index().elements[number - 1];
}

pugi::xml_node ConfigurationDocument::findAttribute(const std::string& path, const std::string& type,
                                                    const std::string& key, const std::string& name) const {
    for (const pugi::xml_node item : find(path, type, key, &name).children(kAttribute)) {
        if (attributeOf(item, kName) == name)
            return item;
    }
    return {};
}

bool ConfigurationDocument::readText(pugi::xml_node element, std::string& storage,
                                     std::string_view& text) const {
    text = platform::elementText(xml_, element, storage);
    const auto encoding = attributeOf(element, kEncoding);
    if (!encoding)
        return true;
    auto decoded = *encoding == kBase64 ? platform::fromBase64(text) : std::nullopt;
    if (!decoded)
        return false;
    storage = std::move(*decoded);
    text = storage;
    return true;
}

std::string_view ConfigurationDocument::textOf(pugi::xml_node element, std::string& storage) const {
    std::string_view text;
    if (!readText(element, storage, text))
        report(element,
               keyOf(element) + ": the text is not in the encoding that is named, it is taken as it stands");
    return text;
}

bool ConfigurationDocument::isLocked(pugi::xml_node element) const {
    const auto word = attributeOf(element, kLocked);
    if (!word)
        return false;
    const auto flag = flagOf(*word);
    if (!flag)
        report(element, keyOf(element) + ": locked=\"" + std::string(*word) +
                            "\" is neither yes nor no, it is taken as yes");
    // A mistyped word was meant to lock; letting users through would be the worse mistake.
    return flag.value_or(true);
}

void ConfigurationDocument::shrink() {
    index_.reset();
    xml_.shrink();
}

void ConfigurationDocument::report(pugi::xml_node element, std::string text) const {
    flawed_ = true;
    if (reporter_)
        reporter_({xml_.lineOf(element), std::move(text)});
}

} // namespace suite
