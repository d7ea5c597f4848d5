#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// An element that is to be written: with a text, or with children, each on a line of its own.
struct XmlElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes = {};
    std::string text = {};
    std::vector<XmlElement> children = {};
};

/// How far an element is indented beyond the one that it is in.
constexpr std::string_view kXmlIndentStep = "  ";

/// @param indentation a line end and the blanks before the element, which is written without them.
void print(const XmlElement& element, const std::string& indentation, std::string& text);

/// With references in place of what means something else there.
void appendXmlText(std::string& text, std::string_view content);
void appendXmlAttribute(std::string& text, std::string_view name, std::string_view value);

} // namespace platform
