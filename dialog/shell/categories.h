#pragma once

#include <memory>
#include <string>
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

using CategoryNodes = std::vector<std::unique_ptr<CCategoryNode>>;

/// How the reading of a catalogue ended.
enum class CatalogueEnd {
    noDocument,     ///< nothing was read: no well-formed text
    foreignElement, ///< at one that is no category and stands among the top-level ones
    incomplete,     ///< at a category without the text of one of its elements
    whole,
};

/// What a catalogue says, as far as it could be read.
struct Catalogue {
    CategoryNodes roots; ///< the top-level categories, in the order of the file
    CatalogueEnd end = CatalogueEnd::noDocument;
    std::string problem; ///< the first thing that is wrong, "line 7: cause"; empty where nothing is
};

/// @param bytes of the file.
Catalogue readCatalogue(std::string bytes);

} // namespace ovsettings
