#include "dialog/shell/categories.h"

#include "platform/xmldocument.h"

#include <cstddef>

namespace ovsettings {

namespace {

struct ValueElement {
    std::string_view name;
    std::string CCategoryNode::*field;
};

constexpr ValueElement kValueElements[] = {
    {"name", &CCategoryNode::name},
    {"classid", &CCategoryNode::classid},
    {"localization", &CCategoryNode::localization},
};

std::string_view nameOf(const xmlNode& node) {
    return reinterpret_cast<const char*>(node.name);
}

const ValueElement* valueElement(std::string_view name) {
    for (const ValueElement& element : kValueElements) {
        if (element.name == name)
            return &element;
    }
    return nullptr;
}

/// The text of a value element: the content of its first child, which must be a text.
const char* textOf(const xmlNode& element) {
    const xmlNode* child = element.children;
    return child && child->type == XML_TEXT_NODE ? reinterpret_cast<const char*>(child->content) : nullptr;
}

/// The parser limits how deep elements are nested, but a category that failed stays open, so that each one
/// behind it would stand a level deeper: this limits the levels.
constexpr std::size_t kDeepest = 255;

/// Turns elements into categories. It keeps the chain of the categories that are open, the innermost last.
class Reader {
public:
    explicit Reader(Catalogue& catalogue) : catalogue_(catalogue) {}

    CatalogueEnd readRoot(const xmlNode& root) {
        for (const xmlNode* child = root.children; child; child = child->next) {
            if (child->type != XML_ELEMENT_NODE)
                continue;
            if (nameOf(*child) != "dialog") {
                note(*child, "the element " + std::string(nameOf(*child)) + " is no category");
                return CatalogueEnd::foreignElement;
            }
            if (!readDialog(*child))
                return CatalogueEnd::incomplete;
        }
        return CatalogueEnd::whole;
    }

private:
    bool readDialog(const xmlNode& dialog) {
        CCategoryNode* const parent = open_.empty() ? nullptr : open_.back();
        CCategoryNode* node = nullptr;
        for (const xmlNode* child = dialog.children; child; child = child->next) {
            if (child->type != XML_ELEMENT_NODE)
                continue;
            const ValueElement* value = valueElement(nameOf(*child));
            const bool isNested = nameOf(*child) == "dialog";
            if (!value && !isNested)
                continue;
            if (!node && !(node = openCategory(parent, *child)))
                return false;
            if (isNested) {
                readDialog(*child); // a failure in it does not fail this one
                continue;
            }
            const char* text = textOf(*child);
            if (!text) {
                note(*child, "the element " + std::string(nameOf(*child)) + " has no text");
                return false; // the category stays open
            }
            node->*(value->field) = text;
        }
        // An element without content has opened nothing and closes the category around it all the same, so
        // that those behind it stand one level higher. It is meant, for the catalogues of existing
        // installations.
        if (!open_.empty())
            open_.pop_back();
        return true;
    }

    /// Null, and a note, where categories are nested too deeply.
    CCategoryNode* openCategory(CCategoryNode* parent, const xmlNode& place) {
        if (open_.size() == kDeepest) {
            note(place, "categories are nested too deeply");
            return nullptr;
        }
        CategoryNodes& siblings = parent ? parent->children : catalogue_.roots;
        siblings.push_back(std::make_unique<CCategoryNode>());
        siblings.back()->parent = parent;
        open_.push_back(siblings.back().get());
        return open_.back();
    }

    void note(const xmlNode& place, const std::string& cause) {
        if (catalogue_.problem.empty())
            catalogue_.problem = "line " + std::to_string(xmlGetLineNo(&place)) + ": " + cause;
    }

    Catalogue& catalogue_;
    std::vector<CCategoryNode*> open_;
};

} // namespace

Catalogue readCatalogue(std::string_view bytes) {
    Catalogue catalogue;
    const platform::XmlDocument document = platform::parseXml(bytes, 0, &catalogue.problem);
    if (!document)
        return catalogue;
    if (const xmlNode* root = xmlDocGetRootElement(document.get())) {
        catalogue.end = Reader(catalogue).readRoot(*root);
    } else {
        catalogue.end = CatalogueEnd::noRoot;
        catalogue.problem = "there is no element";
    }
    // The parser itself is left as it is: host and suite use the same one.
    return catalogue;
}

} // namespace ovsettings
