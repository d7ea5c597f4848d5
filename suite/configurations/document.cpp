#include "suite/configurations/document.h"

#include "platform/trim.h"
#include "platform/xmldocument.h"
#include "suite/configurations/xmlprinter.h"
#include "suite/configurations/xmltext.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <algorithm>
#include <climits>

namespace suite {

namespace {

constexpr const char* kRoot = "configuration";
constexpr const char* kSection = "section";
constexpr const char* kPath = "path";
constexpr const char* kValue = "value";
constexpr const char* kList = "list";
constexpr const char* kItem = "item";
constexpr const char* kGroup = "group";
constexpr const char* kType = "type";
constexpr const char* kAttribute = "attribute";
constexpr const char* kName = "name";
constexpr const char* kLocked = "locked";
constexpr const char* kEmpty = "empty";
constexpr const char* kReason = "reason";
constexpr const char* kContact = "contact";

struct FlagWord {
    std::string_view word;
    bool value;
};
constexpr FlagWord kFlagWords[] = {{"yes", true}, {"true", true},   {"1", true},
                                   {"no", false}, {"false", false}, {"0", false}};

/// Whether a text that the library writes in an encoding is one that it reads again. That holds for those
/// that it brings along. Some others it reads only; and without a name it writes all beyond ASCII as numbers.
bool isWellWritten(const xmlChar* encoding) {
    switch (xmlParseCharEncoding(reinterpret_cast<const char*>(encoding))) {
    case XML_CHAR_ENCODING_UTF8:
    case XML_CHAR_ENCODING_UTF16LE:
    case XML_CHAR_ENCODING_UTF16BE:
    case XML_CHAR_ENCODING_8859_1:
    case XML_CHAR_ENCODING_ASCII:
        return true;
    default:
        return false;
    }
}

std::optional<bool> flagOf(std::string_view word) {
    for (const FlagWord& known : kFlagWords) {
        if (known.word == word)
            return known.value;
    }
    return std::nullopt;
}

/// The key that an element belongs to, and its own name in a group.
std::string keyOf(const xmlNode* element) {
    const auto own = xml::attribute(element, kName);
    const bool isPart = xml::isElement(element, kItem) || xml::isElement(element, kAttribute);
    const std::string part(own.value_or(""));
    if (!isPart || !element->parent)
        return part;
    const std::string key(xml::attribute(element->parent, kName).value_or(""));
    return part.empty() ? key : key + ' ' + part;
}

/// The first attribute of that name in a group; null if there is none.
xmlNode* attributeOf(const xmlNode* group, std::string_view name) {
    xmlNode* item = group ? xml::firstChild(group, kAttribute) : nullptr;
    while (item && xml::attribute(item, kName) != name)
        item = xml::nextSibling(item, kAttribute);
    return item;
}

/// The attributes of the same name behind one.
void removeOthers(const xmlNode* item, std::string_view name) {
    for (xmlNode* other = xml::nextSibling(item, kAttribute); other;) {
        xmlNode* next = xml::nextSibling(other, kAttribute);
        if (xml::attribute(other, kName) == name)
            xml::removeElement(other);
        other = next;
    }
}

/// The words on a part, or else on what it is in, up to the section.
Orv::LockNote noteFrom(const xmlNode* part) {
    Orv::LockNote note;
    for (const xmlNode* element = part; element && !xml::isElement(element, kRoot);
         element = element->parent) {
        if (note.reason.empty())
            note.reason = xml::attribute(element, kReason).value_or("");
        if (note.contact.empty())
            note.contact = xml::attribute(element, kContact).value_or("");
    }
    return note;
}

// Reads a file from a stranger: nothing is fetched, and nothing is defined that could grow when it is
// referred to.
class Parser {
public:
    explicit Parser(Problem& problem) : problem_(problem), context_(xmlNewParserCtxt()) {
        if (!context_)
            return;
        context_->_private = this;
        context_->sax->serror = [](void* context, xmlErrorPtr error) {
            of(context).note(*error);
        };
        context_->sax->entityDecl = [](void* context, const xmlChar*, int, const xmlChar*, const xmlChar*,
                                       xmlChar*) {
            of(context).refuse("entity declarations are not allowed");
        };
        // What is declared once counts at every element, and so may be far more than stands in the file.
        context_->sax->attributeDecl = [](void* context, const xmlChar*, const xmlChar*, int, int,
                                          const xmlChar*, xmlEnumeration* words) {
            xmlFreeEnumeration(words);
            of(context).refuse("attribute declarations are not allowed");
        };
        // A host may have asked the library to drop blanks; here they are part of a value, and the file's
        // layout.
        context_->keepBlanks = 1;
        context_->sax->ignorableWhitespace = context_->sax->characters;
    }
    ~Parser() { xmlFreeParserCtxt(context_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    xmlDoc* parse(std::string_view bytes) {
        constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_BIG_LINES;
        if (!context_ || bytes.size() > INT_MAX) {
            problem_ = {0, "too large"};
            return nullptr;
        }
        if (const long line = platform::lineOfCrowdedElement(bytes)) {
            problem_ = {line, "too many attributes"};
            return nullptr;
        }
        const platform::XmlSilence silence;
        xmlDoc* tree = xmlCtxtReadMemory(context_, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                         nullptr, kOptions);
        if (tree && refused_) {
            xmlFreeDoc(tree);
            return nullptr;
        }
        if (!tree && problem_.text.empty())
            problem_ = {0, "not well-formed"};
        return tree;
    }

private:
    static Parser& of(void* context) {
        return *static_cast<Parser*>(static_cast<xmlParserCtxt*>(context)->_private);
    }

    void note(const xmlError& error) {
        if (!problem_.text.empty() || error.level < XML_ERR_FATAL || !error.message)
            return;
        // The library's messages end in a line break, and some go on with a dump of bytes.
        const std::string_view message = error.message;
        problem_ = {error.line, std::string(message.substr(0, message.find('\n')))};
    }

    void refuse(const char* reason) {
        if (!refused_ && problem_.text.empty())
            problem_ = {xmlSAX2GetLineNumber(context_), reason};
        refused_ = true;
        xmlStopParser(context_);
    }

    Problem& problem_;
    xmlParserCtxt* context_;
    bool refused_ = false;
};

} // namespace

std::string_view sectionPath(std::string_view path) {
    return platform::trimEnd(path, "/");
}

std::size_t ConfigurationDocument::NameHash::operator()(const Name& name) const {
    const std::hash<std::string_view> hash;
    return name.first.empty() ? hash(name.second) : hash(name.first) * 31 + hash(name.second);
}

ConfigurationDocument::ConfigurationDocument() : tree_(xmlNewDoc(nullptr)) {
    xmlDocSetRootElement(tree_.get(), xmlNewDocNode(tree_.get(), nullptr, BAD_CAST kRoot, nullptr));
}

std::optional<ConfigurationDocument> ConfigurationDocument::parse(std::string_view bytes, Problem& problem) {
    problem = {};
    ConfigurationDocument document;
    document.tree_.reset(Parser(problem).parse(bytes));
    if (!document.tree_)
        return std::nullopt;
    const xmlNode* root = xmlDocGetRootElement(document.tree_.get());
    if (!xml::isElement(root, kRoot)) {
        problem = {xmlGetLineNo(root),
                   "the root element is <" + std::string(xml::view(root->name)) + ">, not <" + kRoot + ">"};
        return std::nullopt;
    }
    return document;
}

bool ConfigurationDocument::readKey(const std::string& path, const std::string& key, Values& values,
                                    std::vector<std::uint8_t>& locks) const {
    values.clear();
    locks.clear();
    const xmlNode* entry = find(path, {{}, key});
    if (!entry)
        return false;
    const bool locked = isLocked(entry);
    if (xml::isElement(entry, kValue)) {
        readText(entry, values.emplace_back());
        locks.push_back(locked);
        return true;
    }
    for (const xmlNode* item = xml::firstChild(entry, kItem); item; item = xml::nextSibling(item, kItem)) {
        readText(item, values.emplace_back());
        locks.push_back(isLocked(item) || locked);
    }
    return true;
}

bool ConfigurationDocument::isKeyLocked(const std::string& path, const std::string& key) const {
    const xmlNode* entry = find(path, {{}, key});
    return entry && isLocked(entry);
}

bool ConfigurationDocument::readGroup(const std::string& path, const std::string& type,
                                      const std::string& key, Attributes& attributes,
                                      std::map<std::string, int>& locks, bool& groupLocked) const {
    attributes.clear();
    locks.clear();
    const xmlNode* group = find(path, {type, key});
    if (!group)
        return false;
    groupLocked = isLocked(group) || groupLocked;
    for (const xmlNode* item = xml::firstChild(group, kAttribute); item;
         item = xml::nextSibling(item, kAttribute)) {
        const auto name = xml::attribute(item, kName);
        if (!name) {
            report(item, "<attribute> without a name in " + key + " is passed over");
            continue;
        }
        const std::string attribute(*name);
        if (attributes.contains(attribute) || locks.contains(attribute)) {
            report(item, keyOf(item) + " is given twice, the first counts");
            continue;
        }
        std::string text;
        readText(item, text);
        const bool locked = isLocked(item);
        if (locked)
            locks.emplace(attribute, 1);
        // An attribute can be locked without being set; an empty text that is meant needs a word.
        if (!locked || !text.empty() || xml::attribute(item, kEmpty))
            attributes.emplace(attribute, std::move(text));
    }
    return true;
}

void ConfigurationDocument::readAll(const std::function<void(const Orv::ConfigurationEntry&)>& reader) const {
    std::vector<Orv::LockNote> notes;
    std::vector<Orv::ConfigurationPart> parts;
    for (const auto& [path, section] : index()) {
        for (const auto& [name, element] : section.entries) {
            const std::string key(name.second);
            const std::string type(name.first);
            notes.clear();
            parts.clear();
            Values values;
            std::vector<std::uint8_t> locks;
            Attributes attributes;
            std::map<std::string, int> attributeLocks;
            bool isLocked = isKeyLocked(std::string(path), key);
            if (type.empty()) {
                readKey(std::string(path), key, values, locks);
                notes.reserve(values.size());
                for (std::size_t i = 0; i < values.size(); ++i) {
                    notes.push_back(locks[i] != 0 ? keyLockNote(std::string(path), key, i) : Orv::LockNote());
                    parts.push_back({{}, values[i], true, locks[i] != 0, notes[i].reason, notes[i].contact});
                }
            } else {
                isLocked = false;
                readGroup(std::string(path), type, key, attributes, attributeLocks, isLocked);
                for (const auto& [attribute, text] : attributes)
                    parts.push_back({attribute, text, true, isLocked || attributeLocks.contains(attribute)});
                for (const auto& [attribute, lock] : attributeLocks) {
                    if (!attributes.contains(attribute))
                        parts.push_back({attribute, {}, false, true});
                }
                notes.reserve(parts.size());
                for (auto& part : parts) {
                    notes.push_back(part.isLocked ? attributeLockNote(std::string(path), type, key,
                                                                      std::string(part.name))
                                                  : Orv::LockNote());
                    part.reason = notes.back().reason;
                    part.contact = notes.back().contact;
                }
            }
            const auto words = noteFrom(element);
            reader({path, name.first, name.second, parts, isLocked, words.reason, words.contact});
        }
    }
}

ConfigurationDocument::Values ConfigurationDocument::keys(const std::string& path) const {
    return names(path, {});
}

ConfigurationDocument::Values ConfigurationDocument::groups(const std::string& path,
                                                            const std::string& type) const {
    return names(path, type);
}

ConfigurationDocument::Values ConfigurationDocument::names(const std::string& path,
                                                           std::string_view type) const {
    Values found;
    const Section* here = section(path);
    if (!here)
        return found;
    for (const xmlNode* element : here->elements) {
        for (const xmlNode* entry = xml::firstChild(element); entry; entry = xml::nextSibling(entry)) {
            const Name name{type, xml::attribute(entry, kName).value_or("")};
            const auto known = here->entries.find(name);
            if (known != here->entries.end() && known->second == entry)
                found.emplace_back(name.second);
        }
    }
    return found;
}

void ConfigurationDocument::writeValue(const std::string& path, const std::string& key,
                                       const std::string& value) {
    xmlNode* entry = obtain(path, {}, key, kValue);
    while (xmlNode* item = xml::firstChild(entry, kItem))
        xml::removeElement(item);
    xml::writeText(entry, value);
}

void ConfigurationDocument::writeList(const std::string& path, const std::string& key, const Values& values) {
    xmlNode* entry = obtain(path, {}, key, kList);
    xmlNode* item = xml::firstChild(entry, kItem);
    if (!item)
        xml::writeText(entry, {});
    for (const std::string& value : values) {
        xml::writeText(item ? item : xml::appendElement(entry, kItem), value);
        item = item ? xml::nextSibling(item, kItem) : nullptr;
    }
    while (item) {
        xmlNode* next = xml::nextSibling(item, kItem);
        xml::removeElement(item);
        item = next;
    }
}

void ConfigurationDocument::removeKey(const std::string& path, const std::string& key) {
    remove(path, {{}, key});
}

void ConfigurationDocument::writeGroup(const std::string& path, const std::string& type,
                                       const std::string& key, const Attributes& attributes) {
    xmlNode* group = obtain(path, type, key, kGroup);
    xml::removeAttribute(group, kLocked);
    Attributes missing = attributes;
    for (xmlNode* item = xml::firstChild(group, kAttribute); item;) {
        xmlNode* next = xml::nextSibling(item, kAttribute);
        const auto wanted = missing.extract(std::string(xml::attribute(item, kName).value_or("")));
        if (wanted) {
            xml::removeAttribute(item, kLocked);
            xml::removeAttribute(item, kEmpty);
            xml::writeText(item, wanted.mapped());
        } else {
            xml::removeElement(item);
        }
        item = next;
    }
    for (const auto& [name, text] : missing) {
        xmlNode* item = xml::appendElement(group, kAttribute);
        xml::setAttribute(item, kName, name);
        xml::writeText(item, text);
    }
}

void ConfigurationDocument::removeGroup(const std::string& path, const std::string& type,
                                        const std::string& key) {
    remove(path, {type, key});
}

void ConfigurationDocument::writeAttribute(const std::string& path, const std::string& type,
                                           const std::string& key, const std::string& name,
                                           const std::string& text) {
    xmlNode* group = obtain(path, type, key, kGroup);
    xmlNode* item = attributeOf(group, name);
    if (!item) {
        item = xml::appendElement(group, kAttribute);
        xml::setAttribute(item, kName, name);
    }
    removeOthers(item, name);
    xml::writeText(item, text);
    // Without a word, an empty text that is locked would be no text.
    if (text.empty() && isLocked(item))
        xml::setAttribute(item, kEmpty, "yes");
    else
        xml::removeAttribute(item, kEmpty);
}

void ConfigurationDocument::removeAttribute(const std::string& path, const std::string& type,
                                            const std::string& key, const std::string& name) {
    xmlNode* item = findAttribute(path, type, key, name);
    if (!item)
        return;
    xmlNode* group = item->parent;
    removeOthers(item, name);
    xml::removeElement(item);
    if (!isLocked(group) && !xml::hasContent(group))
        remove(path, {type, key});
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
    const xmlNode* item = findAttribute(path, type, key, name);
    if (!item || isLocked(item) || isLocked(item->parent))
        return false;
    std::string text;
    readText(item, text);
    return !ifSays || text == *ifSays;
}

Orv::LockNote ConfigurationDocument::keyLockNote(const std::string& path, const std::string& key,
                                                 std::size_t item) const {
    const xmlNode* entry = find(path, {{}, key});
    const xmlNode* part = entry ? xml::firstChild(entry, kItem) : nullptr;
    for (std::size_t i = 0; part && i < item; ++i)
        part = xml::nextSibling(part, kItem);
    return noteFrom(part ? part : entry);
}

Orv::LockNote ConfigurationDocument::attributeLockNote(const std::string& path, const std::string& type,
                                                       const std::string& key,
                                                       const std::string& name) const {
    const xmlNode* item = findAttribute(path, type, key, name);
    return noteFrom(item ? item : find(path, {type, key}));
}

std::string ConfigurationDocument::serialise() const {
    if (!isWellWritten(tree_->encoding)) {
        xmlFree(const_cast<xmlChar*>(tree_->encoding));
        tree_->encoding = xmlStrdup(BAD_CAST "UTF-8");
    }
    return xml::print(*tree_);
}

const ConfigurationDocument::Index& ConfigurationDocument::index() const {
    if (!indexed_) {
        indexed_ = true;
        const xmlNode* root = xmlDocGetRootElement(tree_.get());
        for (xmlNode* element = xml::firstChild(root, kSection); element;
             element = xml::nextSibling(element, kSection))
            indexSection(element);
    }
    return index_;
}

void ConfigurationDocument::indexSection(xmlNode* element) const {
    const auto path = xml::attribute(element, kPath);
    if (!path) {
        report(element, "<section> without a path is passed over");
        return;
    }
    Section& section = index_[sectionPath(*path)];
    section.elements.push_back(element);
    for (xmlNode* entry = xml::firstChild(element); entry; entry = xml::nextSibling(entry))
        indexEntry(section, entry);
}

void ConfigurationDocument::indexEntry(Section& section, xmlNode* element) const {
    const std::string_view kind = xml::view(element->name);
    const bool isGroup = kind == kGroup;
    if (!isGroup && kind != kValue && kind != kList)
        return;
    const auto key = xml::attribute(element, kName);
    const auto type = isGroup ? xml::attribute(element, kType) : std::string_view();
    if (!key || !type || (isGroup && type->empty())) {
        report(element,
               std::string("<").append(kind) + "> without a " + (key ? "type" : "name") + " is passed over");
        return;
    }
    if (kind != kValue && xml::hasOwnText(element))
        report(element, "text in <" + std::string(kind) + "> " + std::string(*key) +
                            " means nothing outside of <" + (isGroup ? kAttribute : kItem) + ">");
    const Name name{*type, *key};
    if (!section.entries.try_emplace(name, element).second) {
        report(element, std::string(*key) + " is given twice, the first counts");
        section.duplicates.emplace_back(name, element);
    }
}

const ConfigurationDocument::Section* ConfigurationDocument::section(std::string_view path) const {
    if (!recent_.isKnown || recent_.path != path) {
        const auto found = index().find(sectionPath(path));
        recent_.path = path;
        recent_.section = found == index_.end() ? nullptr : &found->second;
        recent_.isKnown = true;
    }
    return recent_.section;
}

const xmlNode* ConfigurationDocument::find(std::string_view path, const Name& name) const {
    const Section* here = section(path);
    if (!here)
        return nullptr;
    const auto found = here->entries.find(name);
    return found == here->entries.end() ? nullptr : found->second;
}

xmlNode* ConfigurationDocument::findAttribute(const std::string& path, const std::string& type,
                                              const std::string& key, const std::string& name) const {
    return attributeOf(find(path, {type, key}), name);
}

ConfigurationDocument::Section& ConfigurationDocument::obtainSection(const std::string& path) {
    const auto known = index().find(sectionPath(path));
    if (known != index_.end())
        return index_.at(known->first);
    recent_ = {};
    xmlNode* element = xml::appendElement(xmlDocGetRootElement(tree_.get()), kSection);
    xml::setAttribute(element, kPath, std::string(sectionPath(path)));
    Section& section = index_[*xml::attribute(element, kPath)];
    section.elements.push_back(element);
    return section;
}

xmlNode* ConfigurationDocument::obtain(const std::string& path, const std::string& type,
                                       const std::string& key, const char* element) {
    Section& section = obtainSection(path);
    const auto known = section.entries.find({type, key});
    if (known != section.entries.end()) {
        removeDuplicates(section, {type, key});
        if (!xml::isElement(known->second, element))
            xmlNodeSetName(known->second, BAD_CAST element);
        return known->second;
    }
    xmlNode* entry = xml::appendElement(section.elements.back(), element);
    if (!type.empty())
        xml::setAttribute(entry, kType, type);
    xml::setAttribute(entry, kName, key);
    section.entries.emplace(Name{xml::attribute(entry, kType).value_or(""), *xml::attribute(entry, kName)},
                            entry);
    return entry;
}

void ConfigurationDocument::remove(const std::string& path, const Name& name) {
    static_cast<void>(index());
    const auto here = index_.find(sectionPath(path));
    if (here == index_.end())
        return;
    removeDuplicates(here->second, name);
    if (const auto entry = here->second.entries.extract(name))
        xml::removeElement(entry.mapped());
}

void ConfigurationDocument::removeDuplicates(Section& section, const Name& name) {
    std::erase_if(section.duplicates, [&](const auto& duplicate) {
        const bool isMeant = duplicate.first == name;
        if (isMeant)
            xml::removeElement(duplicate.second);
        return isMeant;
    });
}

void ConfigurationDocument::readText(const xmlNode* element, std::string& text) const {
    if (!xml::readText(element, text))
        report(element,
               keyOf(element) + ": the text is not in the encoding that is named, it is taken as it stands");
}

bool ConfigurationDocument::isLocked(const xmlNode* element) const {
    const auto word = xml::attribute(element, kLocked);
    if (!word)
        return false;
    const auto flag = flagOf(*word);
    if (!flag)
        report(element, keyOf(element) + ": locked=\"" + std::string(*word) +
                            "\" is neither yes nor no, it is taken as yes");
    // A mistyped word was meant to lock; letting users through would be the worse mistake.
    return flag.value_or(true);
}

void ConfigurationDocument::report(const xmlNode* element, std::string text) const {
    flawed_ = true;
    if (reporter_)
        reporter_({xmlGetLineNo(element), std::move(text)});
}

} // namespace suite
