#pragma once

#include "platform/result.h"
#include "platform/xmlscanner.h"

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A file of XML: its text and the tree of it. Nothing is fetched for it, and nothing that it defines is
/// replaced.
///
/// In the tree the first text of an element is the element's own value; texts of blanks are nodes only where
/// there is nothing else in an element.
class XmlDocument {
public:
    /// Without an element.
    XmlDocument() = default;

    /// @param bytes of a file, in any of the encodings that are read.
    /// @return an error with the line if they are no XML.
    static Result<XmlDocument> parse(std::string bytes);

    /// Null only where there is no text. Views of names and texts are good as long as the document.
    pugi::xml_node root() const;
    /// From 1. Fast for nodes that are asked for in their order.
    long lineOf(pugi::xml_node element) const;
    /// The element by itself, as it is written.
    std::string_view writtenAt(pugi::xml_node element) const;

private:
    struct Place {
        std::size_t offset = 0;
        long line = 1;
    };

    std::string text_;
    std::unique_ptr<pugi::xml_document> tree_;
    mutable XmlTable table_; ///< filled when somebody asks for an extent
    mutable Place place_;    ///< that was asked for last
};

/// As a message has it: "line 7: cause".
std::string located(const Error& error);

/// A view into the tree; nothing if there is no such attribute.
std::optional<std::string_view> attributeOf(pugi::xml_node element, const char* name);

/// The text that an element begins with, every blank of it; null if it begins with something else, a section
/// of characters included.
/// It is a view into the tree, or else into `storage`.
const char* firstText(const XmlDocument& document, pugi::xml_node element, std::string& storage);

} // namespace platform
