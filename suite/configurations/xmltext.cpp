#include "suite/configurations/xmltext.h"

#include "platform/base64.h"
#include "platform/utf8.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace suite::xml {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kIndentStep = "  ";
constexpr const char* kEncoding = "encoding";
constexpr std::string_view kBase64 = "base64";

const xmlChar* chars(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

bool isText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

bool isBlank(const xmlNode* node) {
    return node && node->type == XML_TEXT_NODE &&
           view(node->content).find_first_not_of(kBlanks) == std::string_view::npos;
}

xmlNode* elementFrom(xmlNode* node, std::string_view name) {
    while (node && !(node->type == XML_ELEMENT_NODE && (name.empty() || view(node->name) == name)))
        node = node->next;
    return node;
}

std::string rawText(const xmlNode* element) {
    std::string text;
    for (const xmlNode* child = element->children; child; child = child->next) {
        if (isText(child))
            text += view(child->content);
    }
    return text;
}

bool decodeBase64(std::string& text) {
    auto decoded = platform::fromBase64(text);
    if (decoded)
        text = std::move(*decoded);
    return decoded.has_value();
}

xmlNode* makeText(xmlDoc* document, std::string_view text) {
    return xmlNewDocTextLen(document, chars(text.data()),
                            static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX)));
}

// The line break and the blanks before a node, or nothing if it does not begin a line.
std::string_view indentationBefore(const xmlNode* node) {
    if (!node || !isBlank(node->prev))
        return {};
    const auto blanks = view(node->prev->content);
    const auto lineBreak = blanks.rfind('\n');
    return lineBreak == std::string_view::npos ? std::string_view() : blanks.substr(lineBreak);
}

std::string indentationOf(const xmlNode* element) {
    const auto own = indentationBefore(element);
    return own.empty() ? "\n" : std::string(own);
}

std::string indentationOfChildren(const xmlNode* parent) {
    for (const xmlNode* child = parent->last; child; child = child->prev) {
        if (child->type == XML_ELEMENT_NODE) {
            if (const auto indentation = indentationBefore(child); !indentation.empty())
                return std::string(indentation);
            break;
        }
    }
    return indentationOf(parent).append(kIndentStep);
}

bool endsItsLine(const xmlNode* node) {
    return !node->next || (node->next->type == XML_TEXT_NODE && view(node->next->content).starts_with('\n'));
}

// Leaves no two texts side by side: a tree that was edited is the one that its file gives.
void freeNode(xmlNode* node) {
    xmlNode* before = node->prev;
    xmlNode* behind = node->next;
    xmlUnlinkNode(node);
    xmlFreeNode(node);
    if (before && behind && before->type == XML_TEXT_NODE && behind->type == XML_TEXT_NODE)
        xmlTextMerge(before, behind);
}

void removeLineBefore(xmlNode* element) {
    const auto indentation = indentationBefore(element);
    if (indentation.empty())
        return;
    xmlNode* blanks = element->prev;
    const auto kept = view(blanks->content).size() - indentation.size();
    if (kept == 0) {
        freeNode(blanks);
    } else {
        const std::string rest(view(blanks->content).substr(0, kept));
        xmlNodeSetContent(blanks, chars(rest.c_str()));
    }
}

} // namespace

bool isElement(const xmlNode* node, std::string_view name) {
    return node->type == XML_ELEMENT_NODE && view(node->name) == name;
}

xmlNode* firstChild(const xmlNode* parent, std::string_view name) {
    return elementFrom(parent->children, name);
}

xmlNode* nextSibling(const xmlNode* node, std::string_view name) {
    return elementFrom(node->next, name);
}

std::optional<std::string_view> attribute(const xmlNode* element, std::string_view name) {
    for (const xmlAttr* candidate = element->properties; candidate; candidate = candidate->next) {
        if (view(candidate->name) == name)
            return candidate->children ? view(candidate->children->content) : std::string_view();
    }
    return std::nullopt;
}

void setAttribute(xmlNode* element, const char* name, const std::string& value) {
    xmlSetProp(element, chars(name), chars(value.c_str()));
}

void removeAttribute(xmlNode* element, const char* name) {
    xmlUnsetProp(element, chars(name));
}

bool hasContent(const xmlNode* element) {
    for (const xmlNode* child = element->children; child; child = child->next) {
        if (!isBlank(child))
            return true;
    }
    return false;
}

bool hasOwnText(const xmlNode* element) {
    for (const xmlNode* child = element->children; child; child = child->next) {
        const bool isText = child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE;
        if (isText && !xmlIsBlankNode(child))
            return true;
    }
    return false;
}

bool isCarried(std::string_view text) {
    return platform::isUtf8Of(text, [](char32_t c) {
        return (c >= 0x20 || c == '\t' || c == '\n' || c == '\r') && c != 0xfffe && c != 0xffff;
    });
}

bool readText(const xmlNode* element, std::string& text) {
    const xmlNode* only = element->children;
    if (only && !only->next && isText(only))
        text.assign(view(only->content));
    else
        text = rawText(element);
    const auto encoding = attribute(element, kEncoding);
    return !encoding || (*encoding == kBase64 && decodeBase64(text));
}

void writeText(xmlNode* element, const std::string& text) {
    std::string present;
    if (readText(element, present) && present == text)
        return;
    for (xmlNode* child = element->children; child;) {
        xmlNode* next = child->next;
        if (isText(child))
            freeNode(child);
        child = next;
    }
    const bool carried = isCarried(text);
    if (carried)
        removeAttribute(element, kEncoding);
    else
        setAttribute(element, kEncoding, std::string(kBase64));
    const std::string written = carried ? text : platform::toBase64(text);
    if (written.empty())
        return;
    xmlNode* node = makeText(element->doc, written);
    if (element->children)
        xmlAddPrevSibling(element->children, node);
    else
        xmlAddChild(element, node);
}

xmlNode* appendElement(xmlNode* parent, const char* name) {
    const std::string indentation = indentationOfChildren(parent);
    xmlNode* element = xmlNewDocNode(parent->doc, nullptr, chars(name), nullptr);
    if (isBlank(parent->last)) {
        xmlAddPrevSibling(parent->last, element);
    } else {
        xmlAddChild(parent, element);
        xmlAddNextSibling(element, makeText(parent->doc, indentationOf(parent)));
    }
    xmlAddPrevSibling(element, makeText(parent->doc, indentation));
    return element;
}

void removeElement(xmlNode* element) {
    // A remark behind the element stays and keeps the line.
    if (endsItsLine(element))
        removeLineBefore(element);
    freeNode(element);
}

} // namespace suite::xml
