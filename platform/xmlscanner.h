#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A place in a file and what is wrong there.
struct XmlProblem {
    long line = 0; ///< from 1; 0 if it concerns the file as a whole
    std::string text;
    /// The file may be whole: it is in an encoding that is not read.
    bool isForeign = false;
};

/// Where an element stands in a text, as offsets.
struct XmlExtent {
    std::uint32_t name;    ///< of the name in its start tag
    std::uint32_t content; ///< behind its start tag
    std::uint32_t endTag;  ///< behind its content; of an element that is one tag, as the content and the end
    std::uint32_t end;
};

/// Whether XML can carry a text: UTF-8 without most control characters.
bool isXmlText(std::string_view text);

/// Looks for what keeps a text from being XML, and for what no file of ours has: an inner part of the
/// document's type, elements more than 255 deep, more than 1000 attributes in one. The parser passes over
/// most of it in silence, and keeps no trace of where elements end.
/// @param text UTF-8, with or without its mark, of less than 4 GiB.
/// @param extents receives the elements in the order of their start tags, if it is not null.
std::optional<XmlProblem> scanXml(const std::string& text, std::vector<XmlExtent>* extents = nullptr);

} // namespace platform
