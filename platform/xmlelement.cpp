#include "platform/xmlelement.h"

#include <array>
#include <cstddef>

namespace platform {

namespace {

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

void append(std::string& text, std::string_view content, const Replacements& replacements) {
    std::size_t done = 0;
    for (std::size_t at = 0; at < content.size(); ++at) {
        const auto c = static_cast<unsigned char>(content[at]);
        if (c >= replacements.size() || replacements[c].empty())
            continue;
        text.append(content, done, at - done).append(replacements[c]);
        done = at + 1;
    }
    text.append(content, done);
}

} // namespace

void appendXmlText(std::string& text, std::string_view content) {
    append(text, content, kInText);
}

void appendXmlAttribute(std::string& text, std::string_view name, std::string_view value) {
    text.append(1, ' ').append(name).append("=\"");
    append(text, value, kInAttributes);
    text += '"';
}

void print(const XmlElement& element, const std::string& indentation, std::string& text) {
    text.append(1, '<').append(element.name);
    for (const auto& [name, value] : element.attributes)
        appendXmlAttribute(text, name, value);
    if (element.text.empty() && element.children.empty()) {
        text += "/>";
        return;
    }
    text += '>';
    appendXmlText(text, element.text);
    const std::string inner = indentation + std::string(kXmlIndentStep);
    for (const XmlElement& child : element.children) {
        text += inner;
        print(child, inner, text);
    }
    if (!element.children.empty())
        text += indentation;
    text.append("</").append(element.name).append(1, '>');
}

} // namespace platform
