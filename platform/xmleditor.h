#pragma once

#include "platform/xmldocument.h"
#include "platform/xmlelement.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// Changes of a document, as bytes that take the place of others: all that no change concerns stays to the
/// byte. The document says what it said until the new text is parsed.
class XmlEditor {
public:
    explicit XmlEditor(const XmlDocument& document) : document_(document) {}

    /// With its line if it stands alone on it.
    void remove(pugi::xml_node element) { changeOf(element).isRemoved = true; }
    void rename(pugi::xml_node element, std::string name) { changeOf(element).name = std::move(name); }
    /// Replaces the text, and leaves remarks and child elements where they are but for those of a name.
    void setText(pugi::xml_node element, std::string_view text, std::string_view without = {});
    void setAttribute(pugi::xml_node element, std::string name, std::string value);
    void removeAttribute(pugi::xml_node element, std::string name);
    /// As the last child, indented like its siblings.
    void append(pugi::xml_node parent, XmlElement element);

    /// The text of the document with all changes.
    std::string text() const;

private:
    struct Change {
        pugi::xml_node element;
        bool isRemoved = false;
        std::string name = {};
        std::optional<std::string> content = {};
        std::vector<std::pair<std::string, std::optional<std::string>>> attributes = {};
        std::vector<XmlElement> appended = {};
    };
    static bool becomesOneTag(const Change& change) {
        return change.content && change.content->empty() && change.appended.empty();
    }
    /// What takes the place of a piece of the text.
    struct Splice {
        std::size_t begin;
        std::size_t end;
        std::string text;
    };
    using Splices = std::vector<Splice>;

    Change& changeOf(pugi::xml_node element);
    void splice(const Change& change, Splices& splices) const;
    void spliceRemoval(const XmlExtent& extent, Splices& splices) const;
    void spliceAttributes(const Change& change, const XmlExtent& extent, Splices& splices) const;
    void spliceContent(const Change& change, const XmlExtent& extent, Splices& splices) const;
    std::string printed(const Change& change) const;
    std::string contentWithoutText(const XmlExtent& extent, std::string_view without) const;
    std::string_view indentationBefore(const XmlExtent& extent) const;
    std::string indentationOf(pugi::xml_node element) const;
    std::string indentationOfChildren(pugi::xml_node parent) const;
    std::string_view lineEnd() const;

    const XmlDocument& document_;
    std::map<std::uint32_t, Change> changes_; ///< by the place of the element's name
};

} // namespace platform
