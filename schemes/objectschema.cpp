#include "schemes/objectschema.h"

#include "platform/asciicase.h"
#include "platform/atomicfile.h"
#include "platform/paths.h"
#include "platform/readfile.h"

#include <libxml/parser.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ovsettings {

namespace {

constexpr const char* kXmlVersion = "1.0";
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

const xmlChar* xml(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

std::string_view view(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : "";
}

/// The first element from a node on, itself or a sibling.
const xmlNode* elementFrom(const xmlNode* node) {
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

/// References to entities are left out.
std::string valueOf(const xmlAttr& attribute) {
    std::string value;
    for (const xmlNode* piece = attribute.children; piece; piece = piece->next) {
        if (piece->type == XML_TEXT_NODE)
            value += view(piece->content);
    }
    return value;
}

CObjectSchemaItem itemFrom(const xmlNode& element) {
    CObjectSchemaItem item;
    for (const xmlAttr* attribute = element.properties; attribute; attribute = attribute->next) {
        const auto known = std::ranges::find(kItemAttributes, view(attribute->name), &ItemAttribute::name);
        if (known != std::end(kItemAttributes))
            item.*known->field = valueOf(*attribute);
    }
    return item;
}

bool hasAttribute(const xmlNode& element, std::string_view name, std::string_view value) {
    for (const xmlAttr* attribute = element.properties; attribute; attribute = attribute->next) {
        if (view(attribute->name) == name)
            return valueOf(*attribute) == value;
    }
    return false;
}

void setAttribute(xmlNode& element, const char* name, const std::string& value) {
    xmlSetProp(&element, xml(name), xml(value.c_str()));
}

std::string bytesOf(xmlDoc& document) {
    xmlChar* bytes = nullptr;
    int size = 0;
    constexpr int kFormatted = 1;
    xmlDocDumpFormatMemory(&document, &bytes, &size, kFormatted);
    std::string text(view(bytes));
    xmlFree(bytes);
    return text;
}

} // namespace

CObjectSchema::CObjectSchema(std::function<void(const std::string& text)> tell) : tell_(std::move(tell)) {
}

bool CObjectSchema::read(const std::string& path) {
    const auto file = platform::resolveExisting(path);
    if (!file)
        return false;
    const auto bytes = platform::readFile(*file, platform::kLargestDocument);
    if (!bytes) {
        if (bytes.code() != ENOENT)
            error_ = bytes.errorText();
        return false;
    }
    if (parse(*bytes))
        return true;
    error_ = *file + ": " + error_;
    return false;
}

bool CObjectSchema::parse(std::string_view bytes) {
    xmlInitParser();
    document_ = platform::parseXml(bytes, XML_PARSE_NOBLANKS, &error_);
    if (!document_)
        return false;
    const xmlNode* root = xmlDocGetRootElement(document_.get());
    int told = 0;
    for (const xmlNode* child = elementFrom(root ? root->children : nullptr); child;
         child = elementFrom(child->next)) {
        if (view(child->name) == kSchema)
            readSchema(*child);
        else if (tell_ && told++ < kMostTold)
            tell_("Error during XML parsing\n");
    }
    return true;
}

void CObjectSchema::readSchema(const xmlNode& schema) {
    for (const xmlNode* section = elementFrom(schema.children); section;
         section = elementFrom(section->next)) {
        for (const xmlNode* item = elementFrom(section->children); item; item = elementFrom(item->next))
            addItem(std::string(view(section->name)), itemFrom(*item));
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
    document_.reset(xmlNewDoc(xml(kXmlVersion)));
    xmlNode* root = xmlNewDocNode(document_.get(), nullptr, xml(kRoot), nullptr);
    xmlDocSetRootElement(document_.get(), root);
    setAttribute(*root, "version", kVersion);
    xmlNode* schema = xmlNewChild(root, nullptr, xml(kSchema), nullptr);
    // The words of the page for its grids are not those of the file. That is meant for users, who have files
    // with these words.
    writeSection(*schema, "schematic", "OV");
    writeSection(*schema, "ict", "ICT");
    const std::string bytes = bytesOf(*document_);
    if (bytes.empty())
        return platform::systemError(path, "write", ENOMEM);
    return platform::writeFileAtomically(platform::platformPath(path), bytes);
}

void CObjectSchema::writeSection(xmlNode& schema, const char* element, std::string_view section) {
    xmlNode* node = xmlNewChild(&schema, nullptr, xml(element), nullptr);
    const bool hasTextColors = section == "ICT";
    for (const auto& [name, item] : sections_[std::string(section)]) {
        xmlNode* written = xmlNewChild(node, nullptr, xml("item"), nullptr);
        setAttribute(*written, "name", name);
        const bool isText = !hasTextColors && std::ranges::find(kTextItems, name) != std::end(kTextItems);
        setAttribute(*written, isText ? "text" : "color", item->color);
        if (hasTextColors)
            setAttribute(*written, "text", item->text);
    }
}

bool CObjectSchema::isPrinterSchema(const xmlDoc& document) {
    const xmlNode* root = elementFrom(document.children);
    return root && view(root->name) == "Color_schema_file" && hasAttribute(*root, "name", "printer.ovc") &&
           hasAttribute(*root, "version", "1.0");
}

std::string schemaItemName(std::string_view caption) {
    return platform::inUpperCase(std::string(caption == "Name" ? "LABEL" : caption));
}

} // namespace ovsettings
