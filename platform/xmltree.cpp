#include "platform/xmltree.h"

#include "platform/trim.h"
#include "platform/utf8.h"
#include "platform/xmlencoding.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>

namespace platform {

namespace {

// A guess: an element and an attribute on a line of their own take more bytes than these as a rule.
constexpr std::size_t kUsualElement = 28;

struct Entity {
    std::string_view name;
    char character;
};
constexpr Entity kEntities[] = {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"apos", '\''}, {"quot", '"'}};

constexpr std::string_view kSection = "<![CDATA[";
constexpr std::string_view kSectionEnd = "]]>";
constexpr std::string_view kRemark = "<!--";
constexpr std::string_view kRemarkEnd = "-->";

std::string_view piece(const std::string& text, std::uint32_t begin, std::uint32_t end) {
    return {text.data() + begin, end - begin};
}

/// What a reference of a scanned text, without & and ;, stands for.
void appendReferred(std::string& text, std::string_view reference) {
    if (!reference.starts_with('#')) {
        text += std::ranges::find(kEntities, reference, &Entity::name)->character;
        return;
    }
    const bool isHexadecimal = reference[1] == 'x';
    std::uint32_t number = 0;
    const auto digits = reference.substr(isHexadecimal ? 2 : 1);
    std::from_chars(digits.data(), digits.data() + digits.size(), number, isHexadecimal ? 16 : 10);
    appendUtf8(text, number);
}

/// Line ends as the one that XML knows.
void appendLines(std::string& text, std::string_view piece) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
        if (piece[i] != '\r')
            text += piece[i];
        else if (!piece.substr(i + 1).starts_with('\n'))
            text += '\n';
    }
}

void appendDecoded(std::string& text, std::string_view piece) {
    for (;;) {
        const auto begin = piece.find('&');
        appendLines(text, piece.substr(0, begin));
        if (begin == std::string_view::npos)
            return;
        const auto end = piece.find(';', begin);
        appendReferred(text, piece.substr(begin + 1, end - begin - 1));
        piece.remove_prefix(end + 1);
    }
}

/// Line ends and tabs of an attribute are blanks, unless references stand for them.
std::string decodedValue(std::string_view written) {
    std::string lines;
    appendLines(lines, written);
    std::ranges::replace_if(
        lines, [](char c) { return c == '\n' || c == '\t'; }, ' ');
    std::string value;
    appendDecoded(value, lines);
    return value;
}

} // namespace

Result<XmlTree> XmlTree::parse(std::string bytes, std::string* foreign) {
    if (auto isRead = toUtf8(bytes, foreign); !isRead)
        return isRead.error();
    XmlTree tree;
    tree.text_ = std::move(bytes);
    if (auto isXml = tree.scan(); !isXml)
        return isXml.error();
    return tree;
}

Result<> XmlTree::scan() {
    table_.elements.reserve(text_.size() / kUsualElement);
    table_.attributes.reserve(text_.size() / kUsualElement);
    auto isXml = scanXml(text_, &table_);
    for (std::uint32_t place = 0; isXml && place < table_.attributes.size(); ++place) {
        const auto& attribute = table_.attributes[place];
        if (!attribute.isPlain)
            decoded_.emplace_back(place, decodedValue(piece(text_, attribute.value, attribute.valueEnd)));
    }
    return isXml;
}

std::string_view XmlTree::valueOf(std::uint32_t attribute) const {
    const auto& written = table_.attributes[attribute];
    if (written.isPlain)
        return piece(text_, written.value, written.valueEnd);
    return std::ranges::lower_bound(decoded_, attribute, {}, &std::pair<std::uint32_t, std::string>::first)
        ->second;
}

bool XmlTree::holds(std::string_view piece) const {
    const std::less_equal<> isBefore;
    return isBefore(text_.data(), piece.data()) && isBefore(piece.data(), text_.data() + text_.size());
}

std::size_t XmlTree::footprint() const {
    std::size_t bytes = text_.capacity() + table_.elements.capacity() * sizeof(XmlTable::Element) +
                        table_.attributes.capacity() * sizeof(XmlTable::Attribute);
    for (const auto& [place, value] : decoded_)
        bytes += sizeof(decoded_.front()) + value.capacity();
    return bytes;
}

XmlNode XmlTree::root() const {
    return table_.elements.empty() ? XmlNode() : XmlNode(*this, 0);
}

XmlNode XmlTree::node(std::uint32_t place) const {
    return {*this, place};
}

long XmlTree::lineOf(const XmlNode& node) const {
    const std::size_t offset = node.extent().name;
    if (offset < line_.first)
        line_ = {0, 1};
    const auto at = [this](std::size_t place) {
        return text_.begin() + static_cast<std::ptrdiff_t>(place);
    };
    line_ = {offset, line_.second + std::count(at(line_.first), at(offset), '\n')};
    return line_.second;
}

std::string_view XmlNode::name() const {
    return tree_ ? piece(tree_->text_, extent().name, extent().nameEnd) : std::string_view();
}

std::vector<XmlTable::Attribute> XmlNode::attributes() const {
    const auto& all = tree_->table_;
    const auto first = all.attributes.begin() + extent().attributes;
    const bool isLast = place_ + 1 == all.elements.size();
    return {first,
            isLast ? all.attributes.end() : all.attributes.begin() + all.elements[place_ + 1].attributes};
}

std::optional<std::string_view> XmlNode::attribute(std::string_view name) const {
    if (!tree_)
        return std::nullopt;
    const auto& all = tree_->table_;
    const auto end = place_ + 1 == all.elements.size() ? static_cast<std::uint32_t>(all.attributes.size())
                                                       : all.elements[place_ + 1].attributes;
    for (auto place = extent().attributes; place < end; ++place) {
        const auto& attribute = all.attributes[place];
        if (piece(tree_->text_, attribute.name, attribute.nameEnd) == name)
            return tree_->valueOf(place);
    }
    return std::nullopt;
}

XmlNode XmlNode::parent() const {
    return tree_ && place_ != 0 ? XmlNode(*tree_, extent().parent) : XmlNode();
}

XmlNode XmlNode::onwards(std::uint32_t place, std::string_view name) const {
    const auto end = extent().behind;
    while (place < end) {
        const XmlNode node(*tree_, place);
        if (name.empty() || node.name() == name)
            return node;
        place = node.extent().behind;
    }
    return {};
}

XmlNode::Children XmlNode::children(std::string_view name) const {
    return {child(name), name};
}

XmlNode XmlNode::child(std::string_view name) const {
    return tree_ ? onwards(place_ + 1, name) : XmlNode();
}

XmlNode XmlNode::next(std::string_view name) const {
    return tree_ && place_ != 0 ? parent().onwards(extent().behind, name) : XmlNode();
}

std::string_view XmlNode::text(std::string& storage) const {
    if (!tree_)
        return {};
    const auto& here = extent();
    const std::string_view content = std::string_view(tree_->text_).substr(0, here.endTag);
    if (here.isPlain)
        return content.substr(here.content);
    storage.clear();
    auto child = place_ + 1;
    for (std::size_t at = here.content; at < content.size();) {
        const auto markup = std::min(content.find('<', at), content.size());
        appendDecoded(storage, content.substr(at, markup - at));
        const auto rest = content.substr(markup);
        if (rest.starts_with(kSection)) {
            at = content.find(kSectionEnd, markup);
            appendLines(storage, content.substr(markup + kSection.size(), at - markup - kSection.size()));
            at += kSectionEnd.size();
        } else if (rest.starts_with(kRemark)) {
            at = content.find(kRemarkEnd, markup + kRemark.size()) + kRemarkEnd.size();
        } else if (rest.starts_with("<?")) {
            at = content.find("?>", markup) + 2;
        } else if (!rest.empty()) {
            const auto& inner = tree_->table_.elements[child];
            at = inner.end;
            child = inner.behind;
        } else {
            at = markup;
        }
    }
    return storage;
}

bool XmlNode::hasText() const {
    std::string storage;
    return tree_ && extent().hasText && !trim(text(storage), kLineBlanks).empty();
}

void XmlTree::replaceContents(const std::map<std::uint32_t, std::string>& contents) {
    struct Moved {
        std::uint32_t begin; ///< of a content, as it was
        std::uint32_t end;
        std::uint32_t by; ///< how far what stands behind it moves, modulo its range
    };
    std::vector<Moved> moves;
    std::string after;
    after.reserve(text_.size() + text_.size() / 8);
    std::uint32_t done = 0;
    for (const auto& [place, content] : contents) {
        auto& element = table_.elements[place];
        after.append(text_, done, element.content - done).append(content);
        done = element.endTag;
        const auto written = static_cast<std::uint32_t>(after.size());
        moves.push_back({element.content, element.endTag, written - element.endTag});
        element.isPlain = content.find_first_of("&\r") == std::string::npos;
        element.hasText = !trim(content, kLineBlanks).empty();
    }
    text_ = std::move(after.append(text_, done));
    if (moves.empty())
        return;
    // A content begins where it began, and may have been empty.
    const auto move = [&moves](std::uint32_t& offset, bool isBegin) {
        if (offset < moves.front().begin)
            return;
        const auto behind = std::ranges::partition_point(
            moves, [&](const Moved& moved) { return isBegin ? moved.begin < offset : moved.end <= offset; });
        if (behind != moves.begin())
            offset += std::prev(behind)->by;
    };
    for (auto& element : table_.elements) {
        for (auto* begin : {&element.name, &element.nameEnd, &element.content})
            move(*begin, true);
        for (auto* end : {&element.endTag, &element.end})
            move(*end, false);
    }
    for (auto& attribute : table_.attributes) {
        for (auto* offset : {&attribute.name, &attribute.nameEnd, &attribute.value, &attribute.valueEnd})
            move(*offset, true);
    }
    line_ = {0, 1};
}

} // namespace platform
