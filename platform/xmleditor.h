#pragma once

#include "platform/xmlelement.h"
#include "platform/xmltree.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// Changes of a tree's text, as bytes that take the place of others: all that no change concerns stays to the
/// byte. The tree says what it said until they are applied.
class XmlEditor {
public:
    explicit XmlEditor(XmlTree& tree) : tree_(tree) {}

    /// With its line if it stands alone on it.
    void remove(const XmlNode& element) { changeOf(element).isRemoved = true; }
    void rename(const XmlNode& element, std::string name) { changeOf(element).name = std::move(name); }
    /// Replaces the text, and leaves remarks and child elements where they are but for those of a name.
    void setText(const XmlNode& element, std::string_view text, std::string_view without = {});
    void setAttribute(const XmlNode& element, std::string name, std::string value);
    void removeAttribute(const XmlNode& element, std::string name);
    /// As the last child, indented like its siblings.
    void append(const XmlNode& parent, XmlElement element);

    /// @return whether elements and attributes have stayed where they are in the tree, which is made anew
    /// otherwise. An error, and the tree as it was, if the changes together make no XML.
    Result<bool> apply();

private:
    struct Change {
        XmlNode element;
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

    Change& changeOf(const XmlNode& element);
    static bool isOfContentOnly(const Change& change);
    std::string text() const;
    void splice(const Change& change, Splices& splices) const;
    void spliceRemoval(const XmlTable::Element& extent, Splices& splices) const;
    void spliceAttributes(const Change& change, Splices& splices) const;
    void spliceContent(const Change& change, Splices& splices) const;
    std::string printed(const Change& change) const;
    std::string contentWithoutText(const XmlNode& element, std::string_view without) const;
    std::string_view indentationBefore(const XmlTable::Element& extent) const;
    std::string indentationOf(const XmlNode& element) const;
    std::string indentationOfChildren(const XmlNode& parent) const;
    std::string_view lineEnd() const;

    XmlTree& tree_;
    std::map<std::uint32_t, Change> changes_; ///< by the place of the element
};

} // namespace platform
