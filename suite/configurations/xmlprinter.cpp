#include "suite/configurations/xmlprinter.h"

#include "suite/configurations/xmltext.h"

#include <libxml/parserInternals.h>

#include <array>
#include <memory>
#include <string_view>

namespace suite::xml {

namespace {

struct BufferRelease {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

constexpr std::size_t kUsualSize = 16U << 10; // of a user's file, with room

/// What stands in for a character, by the character; empty for those that stand for themselves.
using Replacements = std::array<std::string_view, 128>;

constexpr Replacements textReplacements() {
    Replacements table{};
    table['<'] = "&lt;";
    table['>'] = "&gt;";
    table['&'] = "&amp;";
    table['\r'] = "&#13;";
    return table;
}

constexpr Replacements attributeReplacements() {
    Replacements table = textReplacements();
    table['"'] = "&quot;";
    table['\n'] = "&#10;";
    table['\t'] = "&#9;";
    return table;
}

constexpr Replacements kInText = textReplacements();
constexpr Replacements kInAttributes = attributeReplacements();

bool isPlain(const xmlNode& node) {
    return node.type == XML_TEXT_NODE && node.name == xmlStringText;
}

bool isPlain(const xmlAttr& attribute) {
    const xmlNode* value = attribute.children;
    return !attribute.ns && (!value || (isPlain(*value) && !value->next));
}

/// An element without anything that only the library knows how to print.
bool isPlainElement(const xmlNode& node) {
    if (node.type != XML_ELEMENT_NODE || node.ns || node.nsDef)
        return false;
    for (const xmlAttr* attribute = node.properties; attribute; attribute = attribute->next) {
        if (!isPlain(*attribute))
            return false;
    }
    return true;
}

class Printer {
public:
    explicit Printer(xmlDoc& document) : document_(document) {}

    std::string print() {
        text_.reserve(kUsualSize);
        text_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        for (xmlNode* node = document_.children; node; node = node->next) {
            printNode(*node);
            text_ += '\n';
        }
        return isWhole_ ? std::move(text_) : std::string();
    }

private:
    void printNode(xmlNode& node) {
        if (isPlain(node))
            append(view(node.content), kInText);
        else if (isPlainElement(node))
            printElement(node);
        else
            printForeign(node);
    }

    void printElement(xmlNode& node) {
        const auto name = view(node.name);
        text_.append(1, '<').append(name);
        for (const xmlAttr* attribute = node.properties; attribute; attribute = attribute->next) {
            text_.append(1, ' ').append(view(attribute->name)).append("=\"");
            if (attribute->children)
                append(view(attribute->children->content), kInAttributes);
            text_ += '"';
        }
        if (!node.children) {
            text_ += "/>";
            return;
        }
        text_ += '>';
        for (xmlNode* child = node.children; child; child = child->next)
            printNode(*child);
        text_.append("</").append(name).append(1, '>');
    }

    void printForeign(xmlNode& node) {
        const std::unique_ptr<xmlBuffer, BufferRelease> buffer(xmlBufferCreate());
        if (!buffer || xmlNodeDump(buffer.get(), &document_, &node, 0, 0) < 0)
            isWhole_ = false;
        else
            text_ += view(xmlBufferContent(buffer.get()));
    }

    void append(std::string_view content, const Replacements& replacements) {
        std::size_t done = 0;
        for (std::size_t at = 0; at < content.size(); ++at) {
            const auto c = static_cast<unsigned char>(content[at]);
            if (c >= replacements.size() || replacements[c].empty())
                continue;
            text_.append(content, done, at - done).append(replacements[c]);
            done = at + 1;
        }
        text_.append(content, done);
    }

    xmlDoc& document_;
    std::string text_;
    bool isWhole_ = true;
};

std::string printByLibrary(xmlDoc& document) {
    xmlChar* bytes = nullptr;
    int size = 0;
    xmlDocDumpMemory(&document, &bytes, &size);
    std::string text;
    if (bytes && size > 0)
        text.assign(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    xmlFree(bytes);
    return text;
}

} // namespace

std::string print(xmlDoc& document) {
    // Of a tree that was not parsed, nobody has said whether it stands alone, nor of most that were: -1, -2.
    const bool isUsual =
        view(document.encoding) == "UTF-8" && view(document.version) == "1.0" && document.standalone < 0;
    return isUsual ? Printer(document).print() : printByLibrary(document);
}

} // namespace suite::xml
