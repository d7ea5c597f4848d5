#include "details/shell/settingsxmlreader.h"

#include "details/platform/paths.h"
#include "details/platform/readfile.h"
#include "details/platform/xmldocument.h"
#include "details/shell/pagemanager.h"
#include "details/widgets/messagebox.h"

#include <QtWidgets/QApplication>
#include <libxml/parser.h>

#include <string_view>

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

platform::XmlDocument parseFile(const std::string& path) {
    const auto file = platform::resolveExisting(path);
    std::string bytes;
    if (!file || platform::readFile(*file, bytes))
        return nullptr;
    return platform::parseXml(bytes, XML_PARSE_NOCDATA);
}

} // namespace

CSettingsXmlReader::CSettingsXmlReader(CPageManager& manager) : manager_(manager) {
}

bool CSettingsXmlReader::read(const std::string& path) {
    if (!loaded_)
        xmlInitParser();
    loaded_ = false;
    const platform::XmlDocument document = parseFile(path);
    if (!document) {
        showMessage(QApplication::activeWindow(), QStringLiteral("File not found\n"));
        return false;
    }
    const xmlNode* root = xmlDocGetRootElement(document.get());
    if (!root)
        return false;
    loaded_ = true;
    for (const xmlNode* child = root->children; child; child = child->next) {
        if (child->type != XML_ELEMENT_NODE)
            continue;
        if (nameOf(*child) != "dialog") {
            showMessage(QApplication::activeWindow(), QStringLiteral("Error during XML parsing\n"));
            break;
        }
        if (!readDialog(*child))
            break;
    }
    // The parser itself is left as it is: host and suite use the same one.
    return true;
}

bool CSettingsXmlReader::readDialog(const xmlNode& dialog) {
    CCategoryNode* const parent = manager_.top();
    CCategoryNode* node = nullptr;
    for (const xmlNode* child = dialog.children; child; child = child->next) {
        if (child->type != XML_ELEMENT_NODE)
            continue;
        const ValueElement* value = valueElement(nameOf(*child));
        const bool isNested = nameOf(*child) == "dialog";
        if (!value && !isNested)
            continue;
        if (!node) {
            node = manager_.newNode(parent);
            manager_.push(node);
        }
        if (isNested) {
            readDialog(*child); // a failure in it does not fail this one
            continue;
        }
        const char* text = textOf(*child);
        if (!text)
            return false; // the chain of open categories stays as it is
        node->*(value->field) = text;
    }
    // Meant so: an element without content has opened nothing, and closes the category around it.
    manager_.pop();
    return true;
}

} // namespace ovsettings
