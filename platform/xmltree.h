#pragma once

#include "platform/result.h"
#include "platform/xmlscanner.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

class XmlNode;

/// A text of XML, and where its elements stand in it. It is no copy of what they say: names and texts are
/// views into the text, but for those few in which something stands for something else.
class XmlTree {
public:
    /// Without an element.
    XmlTree() = default;
    XmlTree(XmlTree&&) = default;
    XmlTree& operator=(XmlTree&&) = default;
    /// @param bytes of a file, in any of the encodings that are read.
    /// @return an error with the line if they are no XML.
    /// @param foreign receives the bytes of a file that is not in UTF-8, if it is not null.
    static Result<XmlTree> parse(std::string bytes, std::string* foreign = nullptr);

    /// In UTF-8; the bytes of the file, if these are.
    const std::string& text() const { return text_; }
    /// Whether a text is a piece of that.
    bool holds(std::string_view piece) const;
    /// How much memory it takes, in bytes.
    std::size_t footprint() const;
    /// How many elements there are.
    std::size_t size() const { return table_.elements.size(); }
    XmlNode root() const;
    XmlNode node(std::uint32_t place) const;
    /// From 1. Fast for nodes that are asked for in their order.
    long lineOf(const XmlNode& node) const;

    /// Gives elements another content, by their places, and keeps everything else where it stands in the
    /// tree.
    /// @param contents as they are to be written: without markup, and in place of such.
    void replaceContents(const std::map<std::uint32_t, std::string>& contents);

private:
    friend class XmlNode;

    Result<> scan();
    std::string_view valueOf(std::uint32_t attribute) const;

    std::string text_;
    XmlTable table_;
    std::vector<std::pair<std::uint32_t, std::string>> decoded_; ///< values that do not stand for themselves
    mutable std::pair<std::size_t, long> line_{0, 1};            ///< a place in the text, and its line
};

/// An element of a tree, or none: then it has no name, no attributes and no children. Good as long as the
/// tree stays where it is.
class XmlNode {
public:
    class Iterator;
    class Children;

    XmlNode() = default;

    explicit operator bool() const { return tree_ != nullptr; }
    bool operator==(const XmlNode&) const = default;

    /// In its tree.
    std::uint32_t place() const { return place_; }
    const XmlTable::Element& extent() const { return tree_->table_.elements[place_]; }
    std::string_view name() const;
    std::optional<std::string_view> attribute(std::string_view name) const;
    /// As they are written.
    std::vector<XmlTable::Attribute> attributes() const;

    /// None of the root.
    XmlNode parent() const;
    /// The elements in it; those of a name if one is given, which has to outlive the answer.
    Children children(std::string_view name = {}) const;
    /// The first of that name.
    XmlNode child(std::string_view name) const;
    /// The next one beside it, of a name if one is given.
    XmlNode next(std::string_view name = {}) const;

    /// The text of the element itself, without that of its children, every blank of it; a view into the tree
    /// where it stands there in one piece, or else into `storage`.
    std::string_view text(std::string& storage) const;
    /// Whether there is any that is not blank.
    bool hasText() const;

private:
    friend class XmlTree;
    friend class Iterator;
    XmlNode(const XmlTree& tree, std::uint32_t place) : tree_(&tree), place_(place) {}

    /// The first of the elements in it that begin at a place or behind it and have the name.
    XmlNode onwards(std::uint32_t place, std::string_view name) const;

    const XmlTree* tree_ = nullptr;
    std::uint32_t place_ = 0;
};

class XmlNode::Iterator {
public:
    Iterator(XmlNode node, std::string_view name) : node_(node), name_(name) {}

    XmlNode operator*() const { return node_; }
    Iterator& operator++() {
        node_ = node_.next(name_);
        return *this;
    }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

private:
    XmlNode node_;
    std::string_view name_;
};

class XmlNode::Children {
public:
    Children(XmlNode first, std::string_view name) : first_(first, name) {}

    Iterator begin() const { return first_; }
    Iterator end() const { return {XmlNode(), {}}; }

private:
    Iterator first_;
};

} // namespace platform
