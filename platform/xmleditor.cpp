#include "platform/xmleditor.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <iterator>

namespace platform {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(char c) {
    return kBlanks.find(c) != std::string_view::npos;
}

/// Behind the name and the attributes of a start tag.
std::size_t endOfAttributes(const XmlNode& element) {
    const auto written = element.attributes();
    return written.empty() ? element.extent().nameEnd : written.back().valueEnd + 1;
}

} // namespace

XmlEditor::Change& XmlEditor::changeOf(const XmlNode& element) {
    return changes_.try_emplace(element.place(), Change{element}).first->second;
}

void XmlEditor::setText(const XmlNode& element, std::string_view text, std::string_view without) {
    std::string content;
    appendXmlText(content, text);
    changeOf(element).content = content + contentWithoutText(element, without);
}

void XmlEditor::setAttribute(const XmlNode& element, std::string name, std::string value) {
    changeOf(element).attributes.emplace_back(std::move(name), std::move(value));
}

void XmlEditor::removeAttribute(const XmlNode& element, std::string name) {
    if (element.attribute(name))
        changeOf(element).attributes.emplace_back(std::move(name), std::nullopt);
}

void XmlEditor::append(const XmlNode& parent, XmlElement element) {
    changeOf(parent).appended.push_back(std::move(element));
}

/// Whether nothing but the text of an element without markup is another.
bool XmlEditor::isOfContentOnly(const Change& change) {
    const auto& extent = change.element.extent();
    return change.content && !change.isRemoved && change.name.empty() && change.attributes.empty() &&
           change.appended.empty() && extent.isPlain && !extent.isOneTag() && !becomesOneTag(change);
}

Result<bool> XmlEditor::apply() {
    std::map<std::uint32_t, std::string> contents;
    std::size_t size = tree_.text().size();
    for (const auto& [place, change] : changes_) {
        if (isOfContentOnly(change))
            size += contents.emplace(place, *change.content).first->second.size();
    }
    if (contents.size() == changes_.size() && size <= kLargestXml) {
        tree_.replaceContents(contents);
        return true;
    }
    // The file is all that its owner has: what could not be read again is not to be written.
    auto made = XmlTree::parse(text());
    if (!made)
        return made.error();
    tree_ = std::move(*made);
    return false;
}

std::string XmlEditor::text() const {
    Splices splices;
    for (const auto& [place, change] : changes_)
        splice(change, splices);
    std::ranges::stable_sort(splices, {}, &Splice::begin);
    const std::string& before = tree_.text();
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
    const auto& extent = change.element.extent();
    if (change.isRemoved) {
        spliceRemoval(extent, splices);
        return;
    }
    if (!change.name.empty()) {
        splices.push_back({extent.name, extent.nameEnd, change.name});
        if (!extent.isOneTag() && !becomesOneTag(change))
            splices.push_back(
                {extent.endTag + 2, extent.endTag + 2 + extent.nameEnd - extent.name, change.name});
    }
    spliceAttributes(change, splices);
    if (change.content || !change.appended.empty())
        spliceContent(change, splices);
}

void XmlEditor::spliceRemoval(const XmlTable::Element& extent, Splices& splices) const {
    const std::string& text = tree_.text();
    const std::string_view behind = std::string_view(text).substr(extent.end);
    // A remark behind the element stays and keeps the line.
    const bool endsItsLine = behind.starts_with('\n') || behind.starts_with('\r') || behind.starts_with("</");
    const std::size_t line = endsItsLine ? indentationBefore(extent).size() : 0;
    splices.push_back({extent.name - 1 - line, extent.end, {}});
}

void XmlEditor::spliceAttributes(const Change& change, Splices& splices) const {
    const auto written = change.element.attributes();
    const std::string& text = tree_.text();
    std::string added;
    for (const auto& [name, value] : change.attributes) {
        const auto known = std::ranges::find_if(written, [&, &name = name](const auto& attribute) {
            return text.compare(attribute.name, attribute.nameEnd - attribute.name, name) == 0;
        });
        std::string whole;
        if (value)
            appendXmlAttribute(whole, name, *value);
        if (known == written.end()) {
            added += whole;
            continue;
        }
        // With the blanks before it.
        const std::size_t begin =
            known == written.begin() ? change.element.extent().nameEnd : std::prev(known)->valueEnd + 1;
        splices.push_back({begin, known->valueEnd + 1U, whole});
    }
    const std::size_t end = endOfAttributes(change.element);
    if (!added.empty())
        splices.push_back({end, end, added});
}

void XmlEditor::spliceContent(const Change& change, Splices& splices) const {
    const auto& extent = change.element.extent();
    const std::string& text = tree_.text();
    const std::string name(change.name.empty() ? change.element.name() : change.name);
    if (!extent.isOneTag() && becomesOneTag(change)) {
        splices.push_back({extent.content - 1, extent.end, "/>"});
        return;
    }
    if (extent.isOneTag() || change.content) {
        std::string content = change.content.value_or("") + printed(change);
        if (!change.appended.empty())
            content += indentationOf(change.element);
        if (extent.isOneTag() && !content.empty())
            splices.push_back(
                {endOfAttributes(change.element), extent.end, '>' + content + "</" + name + '>'});
        else if (!extent.isOneTag())
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

std::string XmlEditor::contentWithoutText(const XmlNode& element, std::string_view without) const {
    const std::string& text = tree_.text();
    const auto& extent = element.extent();
    XmlNode child = element.child({});
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
                                : isElement ? child.extent().end
                                            : endOf(at, "?>");
        const bool isDropped = isElement && child.name() == without;
        if (isElement)
            child = child.next();
        if (!isSection && !isDropped)
            kept.append(text, at, end - at);
        at = text.find('<', end);
    }
    return kept;
}

/// The line end and the blanks before an element, or nothing if it does not begin a line.
std::string_view XmlEditor::indentationBefore(const XmlTable::Element& extent) const {
    const std::string_view before = std::string_view(tree_.text()).substr(0, extent.name - 1);
    auto line = before.find_last_not_of(" \t");
    if (line == std::string_view::npos || before[line] != '\n')
        return {};
    line -= line > 0 && before[line - 1] == '\r' ? 1 : 0;
    return before.substr(line);
}

std::string XmlEditor::indentationOf(const XmlNode& element) const {
    const auto own = indentationBefore(element.extent());
    return std::string(own.empty() ? lineEnd() : own);
}

std::string XmlEditor::indentationOfChildren(const XmlNode& parent) const {
    XmlNode last;
    for (const XmlNode child : parent.children())
        last = child;
    const auto siblings = last ? indentationBefore(last.extent()) : std::string_view();
    return siblings.empty() ? indentationOf(parent).append(kXmlIndentStep) : std::string(siblings);
}

std::string_view XmlEditor::lineEnd() const {
    const auto first = tree_.text().find('\n');
    return first != std::string::npos && first > 0 && tree_.text()[first - 1] == '\r' ? "\r\n" : "\n";
}

} // namespace platform
