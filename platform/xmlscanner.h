#pragma once

#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The elements of a text in the order of their start tags, as offsets into it.
struct XmlTable {
    struct Element {
        std::uint32_t name;    ///< of the name in its start tag
        std::uint32_t nameEnd; ///< behind that
        std::uint32_t content; ///< behind its start tag
        std::uint32_t
            endTag;        ///< behind its content; of an element that is one tag, as the content and the end
        std::uint32_t end; ///< behind its end tag
        std::uint32_t parent; ///< the place of the one around it in the table; of the root, its own
        std::uint32_t behind; ///< the place behind its last descendant
        std::uint32_t
            attributes;  ///< the place of its first; its last stands before the first of the next element
        bool hasText;    ///< other than blanks, or a section of characters, outside of its children
        bool hasRemarks; ///< or instructions, outside of its children
        bool isPlain;    ///< whether its content stands for itself, and holds no markup

        bool isOneTag() const { return content == end; }
    };
    struct Attribute {
        std::uint32_t name;
        std::uint32_t nameEnd;
        std::uint32_t value; ///< behind the quote
        std::uint32_t valueEnd;
        bool isPlain; ///< whether the value stands for itself
    };

    std::vector<Element> elements;
    std::vector<Attribute> attributes;
};

/// Whether XML can carry a text: UTF-8 without most control characters.
bool isXmlText(std::string_view text);

/// In bytes: places are of 32 bits.
inline constexpr std::size_t kLargestXml = 0xffffffff;

/// Looks for what keeps a text from being XML, and for what no file of ours has: an inner part of the
/// document's type, elements more than 255 deep, more than 1000 attributes in one.
/// @param text UTF-8, with or without its mark.
/// @param table receives the elements, if it is not null; what it holds of a text that is refused is of no
/// use.
Result<> scanXml(const std::string& text, XmlTable* table = nullptr);

} // namespace platform
