#include "platform/base64.h"
#include "platform/xmleditor.h"
#include "platform/xmlscanner.h"
#include "suite/configurations/document.h"
#include "suite/configurations/documentwords.h"

#include <algorithm>

namespace suite {

using namespace words;
using platform::Result;
using platform::XmlElement;
using platform::XmlNode;

namespace {

constexpr const char* kNewFile = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<configuration/>\n";

XmlElement elementOf(const char* name, const std::string& text) {
    XmlElement element{name};
    const bool isCarried = platform::isXmlText(text);
    if (!isCarried)
        element.attributes.emplace_back(kEncoding, kBase64);
    element.text = isCarried ? text : platform::toBase64(text);
    return element;
}

XmlElement namedElement(const char* kind, const std::string& name, const std::string& text) {
    XmlElement element = elementOf(kind, text);
    element.attributes.emplace(element.attributes.begin(), kName, name);
    return element;
}

} // namespace

/// Turns edits into changes of the text.
class ConfigurationDocument::Writer {
public:
    explicit Writer(const ConfigurationDocument& document)
        : document_(document), index_(document.index()), editor_(document.xml_) {}

    void note(const EditedName& name, const Edit& edit) {
        const auto& [path, type, key] = name;
        const std::uint32_t place = document_.placeOf(path, type, key);
        if (place == 0) {
            add(name, edit);
            return;
        }
        for (const auto& [counting, other] : index_.duplicates) {
            if (counting == place)
                editor_.remove(document_.xml_.node(other));
        }
        change(document_.xml_.node(place), edit);
    }

    /// @return as XmlEditor::apply.
    Result<bool> apply() {
        for (XmlElement& section : sections_)
            editor_.append(document_.xml_.root(), std::move(section));
        return editor_.apply();
    }

private:
    void add(const EditedName& name, const Edit& edit) {
        const auto& [path, type, key] = name;
        auto entry = newEntry(type, key, edit);
        if (!entry)
            return;
        const std::uint32_t section = index_.names.find(document_.xml_, {0, {}, path}).last;
        if (section != 0) {
            editor_.append(document_.xml_.node(section), std::move(*entry));
            return;
        }
        const auto [place, isNew] = sectionPlaces_.try_emplace(path, sections_.size());
        if (isNew)
            sections_.push_back({kSection, {{kPath, path}}});
        sections_[place->second].children.push_back(std::move(*entry));
    }

    static std::optional<XmlElement> newEntry(const std::string& type, const std::string& key,
                                              const Edit& edit) {
        if (edit.kind == Edit::Kind::removed)
            return std::nullopt;
        if (edit.kind == Edit::Kind::value)
            return namedElement(kValue, key, edit.values.front());
        if (edit.kind == Edit::Kind::list) {
            XmlElement list{kList, {{kName, key}}};
            for (const std::string& value : edit.values)
                list.children.push_back(elementOf(kItem, value));
            return list;
        }
        XmlElement group{kGroup, {{kType, type}, {kName, key}}};
        for (const auto& [name, text] : edit.attributes) {
            if (text)
                group.children.push_back(namedElement(kAttribute, name, *text));
        }
        if (group.children.empty() && edit.kind == Edit::Kind::attributes)
            return std::nullopt;
        return group;
    }

    void change(XmlNode entry, const Edit& edit) {
        switch (edit.kind) {
        case Edit::Kind::removed:
            editor_.remove(entry);
            break;
        case Edit::Kind::value:
            changeKind(entry, kValue);
            if (entry.child(kItem))
                replaceText(entry, edit.values.front());
            else
                changeText(entry, edit.values.front());
            break;
        case Edit::Kind::list:
            changeKind(entry, kList);
            changeList(entry, edit.values);
            break;
        case Edit::Kind::group:
            editor_.removeAttribute(entry, kLocked);
            changeGroup(entry, edit);
            break;
        case Edit::Kind::attributes:
            changeAttributes(entry, edit);
            break;
        }
    }

    void changeKind(XmlNode entry, const char* kind) {
        if (entry.name() != kind)
            editor_.rename(entry, kind);
    }

    void changeList(XmlNode entry, const Values& values) {
        XmlNode item = entry.child(kItem);
        if (!item)
            changeText(entry, {});
        for (const std::string& value : values) {
            if (item)
                changeText(item, value);
            else
                editor_.append(entry, elementOf(kItem, value));
            item = item.next(kItem);
        }
        for (; item; item = item.next(kItem))
            editor_.remove(item);
    }

    void changeGroup(XmlNode group, const Edit& edit) {
        auto missing = edit.attributes;
        for (const XmlNode item : group.children(kAttribute)) {
            if (const auto wanted = missing.extract(std::string(nameIn(item)))) {
                editor_.removeAttribute(item, kLocked);
                editor_.removeAttribute(item, kEmpty);
                changeText(item, *wanted.mapped());
            } else {
                editor_.remove(item);
            }
        }
        for (const auto& [name, text] : missing)
            editor_.append(group, namedElement(kAttribute, name, *text));
    }

    void changeAttributes(XmlNode group, const Edit& edit) {
        if (leavesNothing(group, edit)) {
            editor_.remove(group);
            return;
        }
        auto missing = edit.attributes;
        for (const XmlNode item : group.children(kAttribute)) {
            const auto wanted = edit.attributes.find(std::string(nameIn(item)));
            if (wanted == edit.attributes.end() || !item.attribute(kName))
                continue;
            const bool isFirst = missing.erase(wanted->first) != 0;
            if (isFirst && wanted->second)
                changeAttribute(item, *wanted->second);
            else
                editor_.remove(item);
        }
        for (const auto& [name, text] : missing) {
            if (text)
                editor_.append(group, namedElement(kAttribute, name, *text));
        }
    }

    void changeAttribute(XmlNode item, const std::string& text) {
        changeText(item, text);
        // Without a word, an empty text that is locked would be no text.
        if (text.empty() && document_.isLocked(item))
            editor_.setAttribute(item, kEmpty, "yes");
        else
            editor_.removeAttribute(item, kEmpty);
    }

    /// Whether a group is without a mark, and without anything else when its edit is done.
    bool leavesNothing(XmlNode group, const Edit& edit) const {
        const auto isWritten = [](const auto& attribute) {
            return attribute.second.has_value();
        };
        const auto isTaken = [&](XmlNode child) {
            return child.name() == kAttribute && child.attribute(kName) &&
                   edit.attributes.contains(std::string(nameIn(child)));
        };
        bool isAllTaken = true;
        for (const XmlNode child : group.children())
            isAllTaken = isAllTaken && isTaken(child);
        return isAllTaken && !document_.isLocked(group) && std::ranges::none_of(edit.attributes, isWritten) &&
               !group.hasText() && !group.extent().hasRemarks;
    }

    void changeText(XmlNode element, const std::string& text) {
        std::string storage;
        std::string_view present;
        if (!document_.readText(element, storage, present) || present != text)
            replaceText(element, text);
    }

    /// Items go with the text.
    void replaceText(XmlNode element, const std::string& text) {
        const bool isCarried = platform::isXmlText(text);
        if (isCarried)
            editor_.removeAttribute(element, kEncoding);
        else
            editor_.setAttribute(element, kEncoding, kBase64);
        editor_.setText(element, isCarried ? text : platform::toBase64(text), kItem);
    }

    const ConfigurationDocument& document_;
    const Index& index_;
    platform::XmlEditor editor_;
    std::vector<XmlElement> sections_;
    std::map<std::string, std::size_t> sectionPlaces_;
};

void ConfigurationDocument::writeValue(const std::string& path, const std::string& key,
                                       const std::string& value) {
    edit(path, {}, key, Edit::Kind::value).values = {value};
}

void ConfigurationDocument::writeList(const std::string& path, const std::string& key, const Values& values) {
    edit(path, {}, key, Edit::Kind::list).values = values;
}

void ConfigurationDocument::removeKey(const std::string& path, const std::string& key) {
    edit(path, {}, key, Edit::Kind::removed);
}

void ConfigurationDocument::writeGroup(const std::string& path, const std::string& type,
                                       const std::string& key, const Attributes& attributes) {
    auto& wanted = edit(path, type, key, Edit::Kind::group).attributes;
    wanted.clear();
    wanted.insert(attributes.begin(), attributes.end());
}

void ConfigurationDocument::removeGroup(const std::string& path, const std::string& type,
                                        const std::string& key) {
    edit(path, type, key, Edit::Kind::removed);
}

void ConfigurationDocument::writeAttribute(const std::string& path, const std::string& type,
                                           const std::string& key, const std::string& name,
                                           const std::string& text) {
    editAttribute(path, type, key, name, text);
}

void ConfigurationDocument::removeAttribute(const std::string& path, const std::string& type,
                                            const std::string& key, const std::string& name) {
    editAttribute(path, type, key, name, std::nullopt);
}

Result<> ConfigurationDocument::serialise() const {
    beginFile();
    return applyEdits();
}

const ConfigurationDocument::Edit* ConfigurationDocument::pendingEdit(const std::string& path,
                                                                      const std::string& type,
                                                                      const std::string& key) const {
    if (edits_.empty())
        return nullptr;
    const auto known = edits_.find({std::string(sectionPath(path)), type, key});
    return known == edits_.end() ? nullptr : &known->second;
}

ConfigurationDocument::Edit& ConfigurationDocument::edit(const std::string& path, const std::string& type,
                                                         const std::string& key, Edit::Kind kind) {
    Edit& edit = edits_.try_emplace({std::string(sectionPath(path)), type, key}, Edit{edits_.size(), kind})
                     .first->second;
    edit.kind = kind;
    return edit;
}

void ConfigurationDocument::editAttribute(const std::string& path, const std::string& type,
                                          const std::string& key, const std::string& name,
                                          std::optional<std::string> text) {
    const Edit* pending = pendingEdit(path, type, key);
    if (pending && pending->kind != Edit::Kind::attributes)
        static_cast<void>(applyEdits());
    edit(path, type, key, Edit::Kind::attributes).attributes.insert_or_assign(name, std::move(text));
}

void ConfigurationDocument::beginFile() const {
    if (xml_.text().empty())
        xml_ = std::move(*platform::XmlTree::parse(kNewFile));
}

Result<> ConfigurationDocument::applyEdits() const {
    if (edits_.empty())
        return {};
    beginFile();
    std::vector<const std::pair<const EditedName, Edit>*> inTurn;
    for (const auto& edit : edits_)
        inTurn.push_back(&edit);
    std::ranges::sort(inTurn, {}, [](const auto* edit) { return edit->second.turn; });
    Writer writer(*this);
    for (const auto* edit : inTurn)
        writer.note(edit->first, edit->second);
    const auto hasKeptPlaces = writer.apply();
    if (!hasKeptPlaces)
        return hasKeptPlaces.error();
    if (!*hasKeptPlaces)
        index_.reset();
    foreign_.clear();
    edits_.clear();
    return {};
}

} // namespace suite
