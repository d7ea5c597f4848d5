#pragma once

#include <libxml/tree.h>

#include <optional>
#include <string>
#include <string_view>

/// What the configuration needs of an XML tree beyond libxml2: exact texts, and edits that leave the rest of
/// a file as its author laid it out.
namespace suite::xml {

/// The bytes of a string of the tree.
inline std::string_view view(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

bool isElement(const xmlNode* node, std::string_view name);

/// The first child element, or the next sibling element, of that name; of any name if it is empty.
xmlNode* firstChild(const xmlNode* parent, std::string_view name = {});
xmlNode* nextSibling(const xmlNode* node, std::string_view name = {});

/// A view into the tree.
std::optional<std::string_view> attribute(const xmlNode* element, std::string_view name);
void setAttribute(xmlNode* element, const char* name, const std::string& value);
void removeAttribute(xmlNode* element, const char* name);

/// True if an element holds text outside of its child elements that is not blank.
bool hasOwnText(const xmlNode* element);

/// True if an element holds anything but blanks: elements, text, remarks.
bool hasContent(const xmlNode* element);

/// True if XML can carry the text: UTF-8 without most control characters.
bool isCarried(std::string_view text);

/// The text of an element itself, character data sections included, every blank of it. An element with
/// encoding="base64" is decoded.
/// @return false if the encoding is unknown or the text not valid in it; the text is then as it stands.
bool readText(const xmlNode* element, std::string& text);

/// Replaces the text, encoded if XML could not carry it, and leaves comments and child elements alone. An
/// element that says this already stays untouched.
void writeText(xmlNode* element, const std::string& text);

/// Appends a child element on a line of its own, indented like its siblings.
xmlNode* appendElement(xmlNode* parent, const char* name);

/// Removes an element and frees it, with its line if it stands alone on it.
void removeElement(xmlNode* element);

} // namespace suite::xml
