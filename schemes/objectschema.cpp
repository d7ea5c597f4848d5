#include "schemes/objectschema.h"

#include "platform/asciicase.h"
#include "platform/atomicfile.h"
#include "platform/paths.h"
#include "platform/readfile.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace ovsettings {

namespace {

constexpr const char* kDeclaration = "<?xml version=\"1.0\"?>\n";
constexpr const char* kRoot = "Schema_file";
constexpr const char* kVersion = "1.2";
constexpr const char* kSchema = "schema";
/// A file made to annoy may hold any number of strange elements; more of them are passed over in silence.
constexpr int kMostTold = 10;

struct ItemAttribute {
    std::string_view name;
    std::string CObjectSchemaItem::*field;
};

constexpr ItemAttribute kItemAttributes[] = {
    {"name", &CObjectSchemaItem::name},
    {"color", &CObjectSchemaItem::color},
    {"text", &CObjectSchemaItem::text},
};

/// Objects whose one colour stands in the attribute "text".
constexpr std::string_view kTextItems[] = {"LABEL", "TEXT"};

CObjectSchemaItem itemFrom(pugi::xml_node element) {
    CObjectSchemaItem item;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const auto known =
            std::ranges::find(kItemAttributes, std::string_view(attribute.name()), &ItemAttribute::name);
        if (known != std::end(kItemAttributes))
            item.*known->field = attribute.value();
    }
    return item;
}

/// Readers of these files need not know of encodings: letters beyond ASCII are written by their numbers.
std::string inAscii(std::string_view text) {
    std::string written;
    for (char32_t character = 0; !text.empty();) {
        const std::size_t size = platform::utf8Character(text, character);
        if (size == 1) {
            written += text.front();
        } else {
            char number[16];
            std::snprintf(number, sizeof number, "&#x%X;", static_cast<unsigned>(character));
            written += number;
        }
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return written;
}

} // namespace

CObjectSchema::CObjectSchema(std::function<void(const std::string& text)> tell) : tell_(std::move(tell)) {
}

bool CObjectSchema::read(const std::string& path) {
    const auto file = platform::resolveExisting(path);
    if (!file)
        return false;
    auto bytes = platform::readFile(*file, platform::kLargestDocument);
    if (!bytes) {
        if (bytes.code() != ENOENT)
            error_ = bytes.errorText();
        return false;
    }
    if (parse(std::move(*bytes)))
        return true;
    error_ = *file + ": " + error_;
    return false;
}

bool CObjectSchema::parse(std::string bytes) {
    const auto document = platform::XmlDocument::parse(std::move(bytes));
    if (!document) {
        error_ = platform::located(document.error());
        return false;
    }
    int told = 0;
    for (const pugi::xml_node child : document->root()) {
        if (child.type() != pugi::node_element)
            continue;
        if (std::string_view(child.name()) == kSchema)
            readSchema(child);
        else if (tell_ && told++ < kMostTold)
            tell_("Error during XML parsing\n");
    }
    return true;
}

void CObjectSchema::readSchema(pugi::xml_node schema) {
    for (const pugi::xml_node section : schema) {
        for (const pugi::xml_node item : section) {
            if (item.type() == pugi::node_element)
                addItem(section.name(), itemFrom(item));
        }
    }
}

void CObjectSchema::addItem(const std::string& section, CObjectSchemaItem item) {
    const CObjectSchemaItem& added = items_.emplace_back(std::move(item));
    sections_[section][added.name] = &added;
}

const CObjectSchemaItem* CObjectSchema::item(std::string_view section, std::string_view name) const {
    const auto items = sections_.find(section);
    if (items == sections_.end())
        return nullptr;
    const auto found = items->second.find(platform::inUpperCase(std::string(name)));
    return found == items->second.end() ? nullptr : found->second;
}

platform::Result<> CObjectSchema::write(const std::string& path) {
    // The words of the page for its grids are not those of the file. That is meant for users, who have files
    // with these words.
    const platform::XmlElement schema{
        kSchema, {}, {}, {writtenSection("schematic", "OV"), writtenSection("ict", "ICT")}};
    std::string bytes = kDeclaration;
    print(platform::XmlElement{kRoot, {{"version", kVersion}}, {}, {schema}}, "\n", bytes);
    if (!platform::isXmlText(bytes))
        return platform::Error{path, "cannot write: a name or a colour holds control characters or no UTF-8"};
    return platform::writeFileAtomically(platform::platformPath(path), inAscii(bytes) + '\n');
}

platform::XmlElement CObjectSchema::writtenSection(const char* element, std::string_view section) {
    platform::XmlElement written{element};
    const bool hasTextColors = section == "ICT";
    for (const auto& [name, item] : sections_[std::string(section)]) {
        const bool isText = !hasTextColors && std::ranges::find(kTextItems, name) != std::end(kTextItems);
        auto& added = written.children.emplace_back(
            platform::XmlElement{"item", {{"name", name}, {isText ? "text" : "color", item->color}}});
        if (hasTextColors)
            added.attributes.emplace_back("text", item->text);
    }
    return written;
}

bool CObjectSchema::isPrinterSchema(const platform::XmlDocument& document) {
    const pugi::xml_node root = document.root();
    return std::string_view(root.name()) == "Color_schema_file" &&
           platform::attributeOf(root, "name") == "printer.ovc" &&
           platform::attributeOf(root, "version") == "1.0";
}

std::string schemaItemName(std::string_view caption) {
    return platform::inUpperCase(std::string(caption == "Name" ? "LABEL" : caption));
}

} // namespace ovsettings
