#include "dialog/shell/categories.h"

#include "platform/xmldocument.h"

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

/// As deep as the parser lets categories be nested. A category that failed stays open, so that those behind
/// it would make a chain without end.
constexpr std::size_t kDeepest = 255;

void note(std::string& problem, const xmlNode& place, const std::string& cause) {
    if (problem.empty())
        problem = "line " + std::to_string(xmlGetLineNo(&place)) + ": " + cause;
}

bool readDialog(const xmlNode& dialog, CCategories& categories, std::string& problem) {
    CCategoryNode* const parent = categories.top();
    CCategoryNode* node = nullptr;
    for (const xmlNode* child = dialog.children; child; child = child->next) {
        if (child->type != XML_ELEMENT_NODE)
            continue;
        const ValueElement* value = valueElement(nameOf(*child));
        const bool isNested = nameOf(*child) == "dialog";
        if (!value && !isNested)
            continue;
        if (!node) {
            if (categories.openCount() == kDeepest) {
                note(problem, *child, "categories are nested too deeply");
                return false;
            }
            node = categories.newNode(parent);
            categories.push(node);
        }
        if (isNested) {
            readDialog(*child, categories, problem); // a failure in it does not fail this one
            continue;
        }
        const char* text = textOf(*child);
        if (!text) {
            note(problem, *child, "the element " + std::string(nameOf(*child)) + " has no text");
            return false; // the chain of open categories stays as it is
        }
        node->*(value->field) = text;
    }
    // This is meant: an element without content has opened nothing, and closes the category around it.
    categories.pop();
    return true;
}

} // namespace

CCategoryNode* CCategories::newNode(CCategoryNode* parent) {
    Nodes& siblings = parent ? parent->children : roots_;
    siblings.push_back(std::make_unique<CCategoryNode>());
    siblings.back()->parent = parent;
    return siblings.back().get();
}

void CCategories::push(CCategoryNode* node) {
    stack_.push_back(node);
}

CCategoryNode* CCategories::pop() {
    CCategoryNode* node = top();
    if (node)
        stack_.pop_back();
    return node;
}

CCategoryNode* CCategories::top() const {
    return stack_.empty() ? nullptr : stack_.back();
}

CCategories::Nodes CCategories::take() {
    stack_.clear();
    return std::exchange(roots_, {});
}

CatalogueEnd readCatalogue(std::string_view bytes, CCategories& categories, std::string& problem) {
    const platform::XmlDocument document = platform::parseXml(bytes, 0, &problem);
    if (!document)
        return CatalogueEnd::noDocument;
    const xmlNode* root = xmlDocGetRootElement(document.get());
    if (!root) {
        problem = "there is no element";
        return CatalogueEnd::noRoot;
    }
    for (const xmlNode* child = root->children; child; child = child->next) {
        if (child->type != XML_ELEMENT_NODE)
            continue;
        if (nameOf(*child) != "dialog") {
            note(problem, *child, "the element " + std::string(nameOf(*child)) + " is no category");
            return CatalogueEnd::foreignElement;
        }
        if (!readDialog(*child, categories, problem))
            return CatalogueEnd::incomplete;
    }
    // The parser itself is left as it is: host and suite use the same one.
    return CatalogueEnd::whole;
}

} // namespace ovsettings
