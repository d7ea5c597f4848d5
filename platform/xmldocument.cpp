#include "platform/xmldocument.h"

#include "platform/xmlencoding.h"

#include <algorithm>
#include <new>

namespace platform {

namespace {

constexpr unsigned kExact =
    pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol | pugi::parse_wconv_attribute;
/// Remarks and instructions show where a text is in several pieces.
constexpr unsigned kUsual =
    kExact | pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata | pugi::parse_comments | pugi::parse_pi;

void load(pugi::xml_document& tree, std::string_view text, unsigned options) {
    // What was scanned is well-formed, so that nothing fails but the allocation.
    if (!tree.load_buffer(text.data(), text.size(), options, pugi::encoding_utf8))
        throw std::bad_alloc();
}

/// The element by itself, with all blanks and remarks.
void loadExactly(pugi::xml_document& tree, const XmlDocument& document, pugi::xml_node element) {
    load(tree, document.writtenAt(element),
         kExact | pugi::parse_ws_pcdata | pugi::parse_comments | pugi::parse_pi);
}

} // namespace

Result<XmlDocument> XmlDocument::parse(std::string bytes) {
    if (auto isRead = toUtf8(bytes, nullptr); !isRead)
        return isRead.error();
    if (auto isXml = scanXml(bytes); !isXml)
        return isXml.error();
    XmlDocument document;
    document.text_ = std::move(bytes);
    document.tree_ = std::make_unique<pugi::xml_document>();
    load(*document.tree_, document.text_, kUsual);
    return document;
}

pugi::xml_node XmlDocument::root() const {
    return tree_ ? tree_->document_element() : pugi::xml_node();
}

long XmlDocument::lineOf(pugi::xml_node element) const {
    const auto offset = static_cast<std::size_t>(element.offset_debug());
    if (offset < place_.offset)
        place_ = {};
    const auto at = [this](std::size_t place) {
        return text_.begin() + static_cast<std::ptrdiff_t>(place);
    };
    place_ = {offset, place_.line + std::count(at(place_.offset), at(offset), '\n')};
    return place_.line;
}

std::string_view XmlDocument::writtenAt(pugi::xml_node element) const {
    if (table_.elements.empty())
        static_cast<void>(scanXml(text_, &table_));
    const auto name = static_cast<std::uint32_t>(element.offset_debug());
    const auto& extent = *std::ranges::lower_bound(table_.elements, name, {}, &XmlTable::Element::name);
    return std::string_view(text_).substr(extent.name - 1, extent.end - extent.name + 1);
}

std::string located(const Error& error) {
    return "line " + std::to_string(error.line) + ": " + error.cause;
}

std::optional<std::string_view> attributeOf(pugi::xml_node element, const char* name) {
    if (const auto found = element.attribute(name))
        return found.value();
    return std::nullopt;
}

const char* firstText(const XmlDocument& document, pugi::xml_node element, std::string& storage) {
    if (!element.first_child())
        return *element.value() == '\0' ? nullptr : element.value();
    pugi::xml_document exact;
    loadExactly(exact, document, element);
    const pugi::xml_node first = exact.document_element().first_child();
    storage = first.value();
    return first.type() == pugi::node_pcdata ? storage.c_str() : nullptr;
}

} // namespace platform
