#include "details/shell/settingsxmlreader.h"

#include "details/platform/paths.h"
#include "details/platform/readfile.h"
#include "details/shell/pagemanager.h"
#include "details/widgets/messagebox.h"

#include <QtWidgets/QApplication>
#include <libxml/parser.h>

#include <memory>
#include <string_view>

namespace ovsettings {

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

// Nothing is fetched, no entity is replaced by its content, and the parser's own limits on depth and growth
// stand.
constexpr int kParserOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NOCDATA;

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

Document parseFile(const std::string& path) {
    Document document(nullptr, &xmlFreeDoc);
    const auto file = platform::resolveExisting(path);
    std::string bytes;
    if (file && !platform::readFile(*file, bytes))
        document.reset(xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), file->c_str(), nullptr,
                                     kParserOptions));
    return document;
}

} // namespace

CSettingsXmlReader::CSettingsXmlReader(CPageManager& manager) : manager_(manager) {
}

bool CSettingsXmlReader::read(const std::string& path) {
    if (!loaded_)
        xmlInitParser();
    loaded_ = false;
    const Document document = parseFile(path);
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
