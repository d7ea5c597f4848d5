#include "dialog/shell/pagesettings.h"

#include "dialog/shell/pagerow.h"
#include "dialog/widgets/formkeys.h"

#include <QtCore/QFile>

#include <map>
#include <pugixml.hpp>
#include <string_view>

namespace ovsettings {

namespace {

/// What a property of a form's element holds; empty if it has none of that name.
std::string property(const pugi::xml_node& element, const char* name) {
    return element.find_child_by_attribute("property", "name", name).first_child().text().as_string();
}

/// Goes through a form's file.
class FormReader {
public:
    explicit FormReader(const pugi::xml_node& root) {
        readLabels(root);
        readSettings(root, {});
    }

    std::vector<PageSetting> settings;

private:
    /// The text of each label, by the name of the control whose buddy it is.
    void readLabels(const pugi::xml_node& element) {
        if (const std::string buddy = property(element, "buddy"); !buddy.empty())
            labels_[buddy] = property(element, "text");
        for (const pugi::xml_node& child : element.children())
            readLabels(child);
    }

    /// @param name of the setting that the elements around this one stand for.
    void readSettings(const pugi::xml_node& element, std::string name) {
        const std::string own = property(element, kKeyProperty);
        const std::string value = property(element, kValueProperty);
        if (!own.empty())
            name = own;
        if (!own.empty() || !value.empty())
            settings.push_back({name, value, labelOf(element)});
        int index = 0;
        for (const pugi::xml_node& item : element.children("item")) {
            if (!own.empty() && item.child("property"))
                settings.push_back({name, std::to_string(index++), property(item, "text")});
        }
        for (const pugi::xml_node& child : element.children())
            readSettings(child, name);
    }

    std::string labelOf(const pugi::xml_node& element) const {
        for (const char* name : {"text", "title"}) {
            if (std::string text = property(element, name); !text.empty())
                return text;
        }
        const auto label = labels_.find(element.attribute("name").as_string());
        return label == labels_.end() ? std::string() : label->second;
    }

    std::map<std::string, std::string> labels_;
};

} // namespace

std::vector<PageSetting> settingsOf(const PageRow& page) {
    QFile form(QString::fromLatin1(page.form));
    form.open(QIODevice::ReadOnly);
    const QByteArray text = form.readAll();
    pugi::xml_document document;
    document.load_buffer(text.data(), static_cast<std::size_t>(text.size()));
    std::vector<PageSetting> settings = FormReader(document).settings;
    if (page.gridSettings) {
        for (GridSetting& row : page.gridSettings())
            settings.push_back({.name = std::move(row.key), .label = row.caption});
    }
    return settings;
}

} // namespace ovsettings
