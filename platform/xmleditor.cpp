#include "platform/xmleditor.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace platform {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(char c) {
    return kBlanks.find(c) != std::string_view::npos;
}

/// Where the attributes of a start tag end, and those that there are.
struct WrittenAttribute {
    std::size_t begin; ///< of the blanks before it
    std::string_view name;
    std::size_t value;
    std::size_t valueEnd; ///< of the quote behind the value
};

std::vector<WrittenAttribute> attributesIn(std::string_view text, const XmlExtent& extent) {
    std::vector<WrittenAttribute> found;
    std::size_t at = text.find_first_of(" \t\r\n/>", extent.name);
    for (;;) {
        const auto name = text.find_first_not_of(kBlanks, at);
        if (text[name] == '>' || text[name] == '/')
            return found;
        const auto nameEnd = text.find_first_of(" \t\r\n=", name);
        const auto open = text.find_first_of("\"'", nameEnd);
        const auto close = text.find(text[open], open + 1);
        found.push_back({at, text.substr(name, nameEnd - name), open + 1, close});
        at = close + 1;
    }
}

/// Behind the name and the attributes of a start tag.
std::size_t endOfAttributes(std::string_view text, const XmlExtent& extent) {
    const auto written = attributesIn(text, extent);
    return written.empty() ? text.find_first_of(" \t\r\n/>", extent.name) : written.back().valueEnd + 1;
}

bool isOneTag(const XmlExtent& extent) {
    return extent.content == extent.end;
}

} // namespace

XmlEditor::Change& XmlEditor::changeOf(pugi::xml_node element) {
    return changes_.try_emplace(document_.extentOf(element).name, Change{element}).first->second;
}

void XmlEditor::setText(pugi::xml_node element, std::string_view text, std::string_view without) {
    std::string content;
    appendXmlText(content, text);
    changeOf(element).content = content + contentWithoutText(document_.extentOf(element), without);
}

void XmlEditor::setAttribute(pugi::xml_node element, std::string name, std::string value) {
    changeOf(element).attributes.emplace_back(std::move(name), std::move(value));
}

void XmlEditor::removeAttribute(pugi::xml_node element, std::string name) {
    changeOf(element).attributes.emplace_back(std::move(name), std::nullopt);
}

void XmlEditor::append(pugi::xml_node parent, XmlElement element) {
    changeOf(parent).appended.push_back(std::move(element));
}

std::string XmlEditor::text() const {
    Splices splices;
    for (const auto& [place, change] : changes_)
        splice(change, splices);
    std::ranges::stable_sort(splices, {}, &Splice::begin);
    const std::string& before = document_.text();
    std::string after;
    after.reserve(before.size() + before.size() / 8);
    std::size_t done = 0;
    for (const Splice& splice : splices) {
        assert(done <= splice.begin && splice.begin <= splice.end);
        after.append(before, done, splice.begin - done).append(splice.text);
        done = splice.end;
    }
    return after.append(before, done);
}

void XmlEditor::splice(const Change& change, Splices& splices) const {
    const XmlExtent extent = document_.extentOf(change.element);
    if (change.isRemoved) {
        spliceRemoval(extent, splices);
        return;
    }
    const std::size_t nameSize = std::string_view(change.element.name()).size();
    if (!change.name.empty()) {
        splices.push_back({extent.name, extent.name + nameSize, change.name});
        if (!isOneTag(extent) && !becomesOneTag(change))
            splices.push_back({extent.endTag + 2, extent.endTag + 2 + nameSize, change.name});
    }
    spliceAttributes(change, extent, splices);
    if (change.content || !change.appended.empty())
        spliceContent(change, extent, splices);
}

void XmlEditor::spliceRemoval(const XmlExtent& extent, Splices& splices) const {
    const std::string& text = document_.text();
    const std::string_view behind = std::string_view(text).substr(extent.end);
    // A remark behind the element stays and keeps the line.
    const bool endsItsLine = behind.starts_with('\n') || behind.starts_with('\r') || behind.starts_with("</");
    const std::size_t line = endsItsLine ? indentationBefore(extent).size() : 0;
    splices.push_back({extent.name - 1 - line, extent.end, {}});
}

void XmlEditor::spliceAttributes(const Change& change, const XmlExtent& extent, Splices& splices) const {
    if (change.attributes.empty())
        return;
    const auto written = attributesIn(document_.text(), extent);
    std::string added;
    for (const auto& [name, value] : change.attributes) {
        const auto known = std::ranges::find(written, name, &WrittenAttribute::name);
        if (known == written.end()) {
            if (value)
                appendXmlAttribute(added, name, *value);
        } else if (value) {
            std::string whole;
            appendXmlAttribute(whole, name, *value);
            splices.push_back({known->begin, known->valueEnd + 1, whole});
        } else {
            splices.push_back({known->begin, known->valueEnd + 1, {}});
        }
    }
    const std::size_t end = endOfAttributes(document_.text(), extent);
    if (!added.empty())
        splices.push_back({end, end, added});
}

void XmlEditor::spliceContent(const Change& change, const XmlExtent& extent, Splices& splices) const {
    const std::string& text = document_.text();
    const std::string name = change.name.empty() ? change.element.name() : change.name;
    if (!isOneTag(extent) && becomesOneTag(change)) {
        splices.push_back({extent.content - 1, extent.end, "/>"});
        return;
    }
    if (isOneTag(extent) || change.content) {
        std::string content = change.content.value_or("") + printed(change);
        if (!change.appended.empty())
            content += indentationOf(change.element);
        if (isOneTag(extent) && !content.empty())
            splices.push_back({endOfAttributes(text, extent), extent.end, '>' + content + "</" + name + '>'});
        else if (!isOneTag(extent))
            splices.push_back({extent.content, extent.endTag, content});
        return;
    }
    std::size_t place = extent.endTag;
    while (place > extent.content && isBlank(text[place - 1]))
        --place;
    const bool isLineLeft = place < extent.endTag && text[place - 1] == '>';
    if (isLineLeft)
        splices.push_back({place, place, printed(change)});
    else
        splices.push_back({extent.endTag, extent.endTag, printed(change) + indentationOf(change.element)});
}

/// The elements that are appended, each with the line end and the blanks before it.
std::string XmlEditor::printed(const Change& change) const {
    std::string text;
    const std::string indentation =
        change.appended.empty() ? std::string() : indentationOfChildren(change.element);
    for (const XmlElement& element : change.appended) {
        text += indentation;
        print(element, indentation, text);
    }
    return text;
}

std::string XmlEditor::contentWithoutText(const XmlExtent& extent, std::string_view without) const {
    const std::string& text = document_.text();
    const auto endOf = [&](std::size_t begin, std::string_view end) {
        return text.find(end, begin) + end.size();
    };
    std::string kept;
    for (std::size_t at = text.find('<', extent.content); at < extent.endTag;) {
        const std::string_view here = std::string_view(text).substr(at);
        const bool isSection = here.starts_with("<![CDATA[");
        const bool isRemark = here.starts_with("<!--");
        const bool isElement = !isSection && !isRemark && !here.starts_with("<?");
        const std::size_t end = isSection   ? endOf(at, "]]>")
                                : isRemark  ? endOf(at + 4, "-->")
                                : isElement ? document_.extentAt(at + 1).end
                                            : endOf(at, "?>");
        const bool isDropped = isElement && here.substr(1, here.find_first_of(" \t\r\n/>") - 1) == without;
        if (!isSection && !isDropped)
            kept.append(text, at, end - at);
        at = text.find('<', end);
    }
    return kept;
}

/// The line end and the blanks before an element, or nothing if it does not begin a line.
std::string_view XmlEditor::indentationBefore(const XmlExtent& extent) const {
    const std::string_view before = std::string_view(document_.text()).substr(0, extent.name - 1);
    auto line = before.find_last_not_of(" \t");
    if (line == std::string_view::npos || before[line] != '\n')
        return {};
    line -= line > 0 && before[line - 1] == '\r' ? 1 : 0;
    return before.substr(line);
}

std::string XmlEditor::indentationOf(pugi::xml_node element) const {
    const auto own = indentationBefore(document_.extentOf(element));
    return std::string(own.empty() ? lineEnd() : own);
}

std::string XmlEditor::indentationOfChildren(pugi::xml_node parent) const {
    pugi::xml_node child = parent.last_child();
    while (child && child.type() != pugi::node_element)
        child = child.previous_sibling();
    const auto siblings = child ? indentationBefore(document_.extentOf(child)) : std::string_view();
    return siblings.empty() ? indentationOf(parent).append(kXmlIndentStep) : std::string(siblings);
}

std::string_view XmlEditor::lineEnd() const {
    const auto first = document_.text().find('\n');
    return first != std::string::npos && first > 0 && document_.text()[first - 1] == '\r' ? "\r\n" : "\n";
}

} // namespace platform
