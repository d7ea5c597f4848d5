// The reader of configuration files: what is read survives writing, an edit changes nothing else, and our
// tree is that of a parser of others.

#include "fuzz/support.h"
#include "platform/xmltree.h"
#include "suite/configurations/document.h"

#include <pugixml.hpp>

#include <algorithm>

using fuzz::require;
using suite::ConfigurationDocument;

namespace {

constexpr const char* kPaths[] = {"Orvane/SETTINGS", "Orvane/LAYERS", "a"};
constexpr const char* kTypes[] = {"layer", "object", "t"};
constexpr const char* kEdited = "DB_AUTO_BACKUP";
constexpr std::size_t kLongestEdit = 40;

/// What a document says, as far as these paths go.
struct Answer {
    std::string place;
    ConfigurationDocument::Values values;
    ConfigurationDocument::Attributes attributes;
    std::vector<std::uint8_t> locks;
    std::map<std::string, int> attributeLocks;
    bool locked = false;

    bool operator==(const Answer&) const = default;
};

std::vector<Answer> answers(const ConfigurationDocument& document) {
    std::vector<Answer> all;
    for (const std::string path : kPaths) {
        for (const std::string& key : document.keys(path)) {
            Answer& a = all.emplace_back(Answer{path + '#' + key, {}, {}, {}, {}, false});
            require(document.hasKey(path, key) && document.readKey(path, key, a.values, a.locks));
            require(a.values.size() == a.locks.size());
            a.locked = document.isKeyLocked(path, key);
            require(!a.locked || std::ranges::count(a.locks, 0) == 0);
        }
        for (const char* type : kTypes) {
            for (const std::string& key : document.groups(path, type)) {
                Answer& a = all.emplace_back(Answer{path + '#' + type + '#' + key, {}, {}, {}, {}, false});
                require(document.hasGroup(path, type, key));
                require(document.readGroup(path, type, key, a.attributes, a.attributeLocks, a.locked));
            }
        }
    }
    return all;
}

std::string textOf(pugi::xml_node element) {
    std::string text;
    for (const pugi::xml_node child : element) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    }
    return text;
}

/// Whether an element, and what is in it, is the same, and stands inside of the one around it.
void requireSame(const platform::XmlTree& tree, platform::XmlNode ours, pugi::xml_node theirs) {
    require(ours.name() == theirs.name());
    const auto& extent = ours.extent();
    require(static_cast<std::size_t>(theirs.offset_debug()) == extent.name);
    const std::string& text = tree.text();
    const std::string name(ours.name());
    require(text.compare(extent.name - 1, name.size() + 1, '<' + name) == 0);
    require(text[extent.content - 1] == '>' && text[extent.end - 1] == '>');
    require(extent.isOneTag() || text.compare(extent.endTag, name.size() + 2, "</" + name) == 0);
    std::string storage;
    require(ours.text(storage) == textOf(theirs));
    require(static_cast<std::size_t>(std::distance(theirs.attributes_begin(), theirs.attributes_end())) ==
            ours.attributes().size());
    for (const pugi::xml_attribute attribute : theirs.attributes())
        require(ours.attribute(attribute.name()) == attribute.value());
    std::uint32_t behind = extent.content;
    platform::XmlNode next = ours.child({});
    for (const pugi::xml_node child : theirs) {
        if (child.type() != pugi::node_element)
            continue;
        require(next && next.parent() == ours && next.extent().name > behind &&
                next.extent().end <= extent.endTag);
        behind = next.extent().end;
        requireSame(tree, next, child);
        next = next.next();
    }
    require(!next);
}

void requireSameElements(const std::string& text) {
    const auto tree = platform::XmlTree::parse(text);
    require(bool(tree));
    pugi::xml_document theirs;
    constexpr unsigned kExact = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol |
                                pugi::parse_wconv_attribute | pugi::parse_ws_pcdata;
    require(theirs.load_buffer(text.data(), text.size(), kExact, pugi::encoding_utf8));
    requireSame(*tree, tree->root(), theirs.document_element());
}

/// How much of the shorter of two texts is in the longer one, but for one piece that was put into it.
std::size_t kept(std::string_view a, std::string_view b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    const auto begin =
        static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
    const auto end = static_cast<std::size_t>(
        std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
    return std::min(shorter, begin + end);
}

ConfigurationDocument reparsed(const ConfigurationDocument& document) {
    require(bool(document.serialise()));
    auto again = ConfigurationDocument::parse(document.text());
    require(bool(again));
    requireSameElements(document.text());
    return std::move(*again);
}

void requireOthersUnchanged(std::vector<Answer> before, std::vector<Answer> after, const std::string& place) {
    const auto isEdited = [&](const Answer& answer) {
        return answer.place == place;
    };
    std::erase_if(before, isEdited);
    std::erase_if(after, isEdited);
    require(before == after);
}

/// Gives every entry another form, all at once.
void editAll(ConfigurationDocument& document, const std::string& value) {
    const ConfigurationDocument::Values items{value, "", value};
    const ConfigurationDocument::Attributes attributes{{"a", value}, {"b", ""}};
    const ConfigurationDocument::Values none;
    const auto forEach = [&document](const auto& onKey, const auto& onGroup) {
        const ConfigurationDocument asked = reparsed(document);
        for (const std::string path : kPaths) {
            for (const std::string& key : asked.keys(path))
                onKey(path, key);
            for (const std::string type : kTypes) {
                for (const std::string& key : asked.groups(path, type))
                    onGroup(path, type, key);
            }
        }
    };
    ConfigurationDocument::Values values;
    std::vector<std::uint8_t> locks;
    ConfigurationDocument::Attributes found;
    std::map<std::string, int> foundLocks;
    bool isLocked = false;
    forEach([&](const auto& path, const auto& key) { document.writeList(path, key, items); },
            [&](const auto& path, const auto& type, const auto& key) {
                document.writeGroup(path, type, key, attributes);
            });
    forEach(
        [&](const auto& path, const auto& key) {
            require(document.readKey(path, key, values, locks) && values == items);
            document.writeValue(path, key, value);
        },
        [&](const auto& path, const auto& type, const auto& key) {
            require(document.readGroup(path, type, key, found, foundLocks, isLocked) && found == attributes);
            document.writeAttribute(path, type, key, "c", value);
            document.removeAttribute(path, type, key, "a");
        });
    const auto nothing = [](const auto&, const auto&, const auto&) {
    };
    forEach(
        [&](const auto& path, const auto& key) {
            require(document.readKey(path, key, values, locks) &&
                    values == ConfigurationDocument::Values{value});
            document.writeList(path, key, none);
        },
        nothing);
    forEach([&](const auto& path, const auto& key) { document.writeList(path, key, items); }, nothing);
    forEach([&](const auto& path, const auto& key) { document.writeValue(path, key, ""); }, nothing);
    forEach([&](const auto& path, const auto& key) { document.writeValue(path, key, value); }, nothing);
    forEach(
        [&](const auto& path, const auto& key) {
            require(document.readKey(path, key, values, locks) &&
                    values == ConfigurationDocument::Values{value});
        },
        [&](const auto& path, const auto& type, const auto& key) {
            require(document.readGroup(path, type, key, found, foundLocks, isLocked));
            require(found == ConfigurationDocument::Attributes{{"b", ""}, {"c", value}});
        });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    auto document = ConfigurationDocument::parse(std::string(text));
    if (!document) {
        const auto& error = document.error();
        require(!error.cause.empty() && error.line >= 0 && error.line <= std::ranges::count(text, '\n') + 1);
        return 0;
    }
    bool isTold = false;
    document->setReporter(
        [&isTold](const platform::Error& told) { isTold = told.line > 0 && !told.cause.empty(); });
    const std::vector<Answer> before = answers(*document);
    require(isTold == document->isFlawed());
    require(answers(reparsed(*document)) == before);

    const std::string path = kPaths[0];
    const std::string value(text.substr(size - std::min(size, kLongestEdit)));
    const bool isNew = !document->hasKey(path, kEdited);
    const std::string whole = document->text();
    document->writeValue(path, kEdited, value);
    ConfigurationDocument::Values values;
    std::vector<std::uint8_t> locks;
    const ConfigurationDocument edited = reparsed(*document);
    require(edited.readKey(path, kEdited, values, locks) && values == ConfigurationDocument::Values{value});
    requireOthersUnchanged(before, answers(edited), path + '#' + kEdited);
    require(answers(*document) == answers(edited));
    // A section that was one tag gets another end.
    constexpr std::size_t kTagEnd = 2;
    require(!isNew || kept(whole, edited.text()) + kTagEnd >= whole.size());

    document->removeKey(path, kEdited);
    require(!document->hasKey(path, kEdited));
    requireOthersUnchanged(before, answers(*document), path + '#' + kEdited);
    require(bool(document->serialise()));
    require(kept(document->text(), edited.text()) == document->text().size());

    editAll(*document, value);
    return 0;
}
