#include "dialog/shell/categories.h"

#include "platform/xmldocument.h"

#include <cstddef>
#include <utility>

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

const ValueElement* valueElement(std::string_view name) {
    for (const ValueElement& element : kValueElements) {
        if (element.name == name)
            return &element;
    }
    return nullptr;
}

/// Files are limited in how deep elements are nested, but a category that failed stays open, so that each one
/// behind it would stand a level deeper: this limits the levels.
constexpr std::size_t kDeepest = 255;

/// Turns elements into categories. It keeps the chain of the categories that are open, the innermost last.
class Reader {
public:
    Reader(Catalogue& catalogue, const platform::XmlDocument& document)
        : catalogue_(catalogue), document_(document) {}

    CatalogueEnd read() {
        for (const pugi::xml_node child : document_.root()) {
            if (child.type() != pugi::node_element)
                continue;
            const std::string_view name = child.name();
            if (name != "dialog") {
                note(child, "the element " + std::string(name) + " is no category");
                return CatalogueEnd::foreignElement;
            }
            if (!readDialog(child))
                return CatalogueEnd::incomplete;
        }
        return CatalogueEnd::whole;
    }

private:
    bool readDialog(pugi::xml_node dialog) {
        CCategoryNode* const parent = open_.empty() ? nullptr : open_.back();
        CCategoryNode* node = nullptr;
        for (const pugi::xml_node child : dialog) {
            if (child.type() != pugi::node_element)
                continue;
            const std::string_view name = child.name();
            const ValueElement* value = valueElement(name);
            const bool isNested = name == "dialog";
            if (!value && !isNested)
                continue;
            if (!node && !(node = openCategory(parent, child)))
                return false;
            if (isNested) {
                readDialog(child); // a failure in it does not fail this one
                continue;
            }
            const char* text = platform::firstText(document_, child, storage_);
            if (!text) {
                note(child, "the element " + std::string(name) + " has no text");
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
    CCategoryNode* openCategory(CCategoryNode* parent, pugi::xml_node place) {
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

    void note(pugi::xml_node place, const std::string& cause) {
        if (catalogue_.problem.empty())
            catalogue_.problem = platform::located({{}, cause, document_.lineOf(place)});
    }

    Catalogue& catalogue_;
    const platform::XmlDocument& document_;
    std::vector<CCategoryNode*> open_;
    std::string storage_;
};

} // namespace

Catalogue readCatalogue(std::string bytes) {
    Catalogue catalogue;
    const auto document = platform::XmlDocument::parse(std::move(bytes));
    if (document)
        catalogue.end = Reader(catalogue, *document).read();
    else
        catalogue.problem = platform::located(document.error());
    return catalogue;
}

} // namespace ovsettings
