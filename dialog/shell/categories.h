#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

class CPropertyPageSupplier;

/// One category of the catalogue.
struct CCategoryNode {
    std::string classid;
    std::string localization;
    std::string name;
    CPropertyPageSupplier* supplier = nullptr; ///< set when the tree is built; not owned
    CCategoryNode* parent = nullptr;           ///< null for a top-level category
    std::vector<std::unique_ptr<CCategoryNode>> children;
};

/// The categories of a catalogue, and which of them are open while it is read.
class CCategories {
public:
    using Nodes = std::vector<std::unique_ptr<CCategoryNode>>;

    const Nodes& roots() const { return roots_; }

    /// A new category under `parent`, or a top-level one. Owned here.
    CCategoryNode* newNode(CCategoryNode* parent);
    /// The reader's chain of open categories; pop and top of an empty chain do nothing and give null.
    void push(CCategoryNode* node);
    CCategoryNode* pop();
    CCategoryNode* top() const;
    std::size_t openCount() const { return stack_.size(); }

    /// Ends the reading and hands the categories over.
    Nodes take();

private:
    std::vector<CCategoryNode*> stack_;
    Nodes roots_;
};

/// How the reading of a catalogue ended.
enum class CatalogueEnd {
    noDocument,     ///< nothing was read: no well-formed text
    noRoot,         ///< nothing was read
    foreignElement, ///< at one that is no category and stands among the top-level ones
    incomplete,     ///< at a category without the text of one of its elements
    whole,
};

/// Adds what a catalogue says.
/// @param bytes   of the file.
/// @param problem receives what is wrong with it, the first thing if there are several, with its line: "line
/// 7:
///                cause". It stays as it is where nothing is.
CatalogueEnd readCatalogue(std::string_view bytes, CCategories& categories, std::string& problem);

} // namespace ovsettings
