#include "platform/xmldocument.h"

#include <libxml/SAX2.h>
#include <libxml/encoding.h>
#include <libxml/parser.h>

#include <algorithm>
#include <climits>
#include <cstddef>

namespace platform {

namespace {

constexpr int kMostAttributes = 1000;

struct Passage {
    std::string_view begin;
    std::string_view end;
};
/// What may hold anything, tags and quotes included.
constexpr Passage kPassages[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/// Where the passage that begins at a place ends, or that place if none begins there.
std::size_t endOfPassage(std::string_view bytes, std::size_t begin) {
    for (const Passage& passage : kPassages) {
        if (bytes.substr(begin).starts_with(passage.begin)) {
            const auto end = bytes.find(passage.end, begin + passage.begin.size());
            return end == std::string_view::npos ? bytes.size() : end + passage.end.size();
        }
    }
    return begin;
}

/// Where a tag ends, or a declaration of the document's type begins its inner part; counts the attributes.
std::size_t endOfTag(std::string_view bytes, std::size_t begin, int& attributes) {
    const bool isDeclaration = bytes.substr(begin).starts_with("<!");
    char quote = '\0';
    for (std::size_t at = begin + 1; at < bytes.size(); ++at) {
        const char c = bytes[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>' || (c == '[' && isDeclaration))
            return at + 1;
        else
            attributes += c == '=';
    }
    return bytes.size();
}

struct BufferRelease {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};
using Buffer = std::unique_ptr<xmlBuffer, BufferRelease>;

std::string declaredEncoding(std::string_view bytes) {
    const auto declaration = bytes.substr(0, bytes.find('>'));
    const auto word = declaration.find("encoding");
    const auto open = declaration.find_first_of("\"'", word);
    if (!declaration.starts_with("<?xml") || word == std::string_view::npos || open == std::string_view::npos)
        return {};
    const auto name = declaration.substr(open + 1);
    return std::string(name.substr(0, name.find_first_of("\"'")));
}

/// How the parser is going to decode the text; null where a tag is made of the bytes that it is made of in
/// ASCII.
xmlCharEncodingHandler* decoderOf(std::string_view bytes) {
    const auto* begin = reinterpret_cast<const xmlChar*>(bytes.data());
    const auto detected =
        xmlDetectCharEncoding(begin, static_cast<int>(std::min<std::size_t>(bytes.size(), 4)));
    if (detected == XML_CHAR_ENCODING_NONE || detected == XML_CHAR_ENCODING_UTF8) {
        const auto name = declaredEncoding(bytes);
        const auto known = xmlParseCharEncoding(name.c_str());
        return name.empty() || known == XML_CHAR_ENCODING_UTF8 || known == XML_CHAR_ENCODING_8859_1
                   ? nullptr
                   : xmlFindCharEncodingHandler(name.c_str());
    }
    return xmlGetCharEncodingHandler(detected);
}

/// As much of a text as can be decoded.
Buffer decoded(xmlCharEncodingHandler& decoder, std::string_view bytes) {
    const XmlSilence silence;
    const Buffer input(xmlBufferCreateStatic(const_cast<char*>(bytes.data()), bytes.size()));
    Buffer output(xmlBufferCreate());
    if (!input || !output)
        return nullptr;
    while (xmlBufferLength(input.get()) > 0) {
        const int before = xmlBufferLength(input.get());
        if (xmlCharEncInFunc(&decoder, output.get(), input.get()) < 0 ||
            xmlBufferLength(input.get()) == before)
            break;
    }
    return output;
}

long lineOfCrowdedTag(std::string_view bytes) {
    for (auto at = bytes.find('<'); at != std::string_view::npos; at = bytes.find('<', at)) {
        if (const auto end = endOfPassage(bytes, at); end != at) {
            at = end;
            continue;
        }
        int attributes = 0;
        const auto end = endOfTag(bytes, at, attributes);
        if (attributes > kMostAttributes)
            return std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1;
        at = end;
    }
    return 0;
}

/// Attributes that are declared once count at every element, without standing there.
void refuseAttributeDeclaration(void* context, const xmlChar*, const xmlChar*, int, int, const xmlChar*,
                                xmlEnumeration* words) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    xmlFreeEnumeration(words);
    *static_cast<long*>(parser->_private) = xmlSAX2GetLineNumber(parser);
    xmlStopParser(parser);
}

constexpr int kSafety = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;

std::string reasonOf(const xmlError* error) {
    if (!error || !error->message)
        return "not well-formed";
    // The library's messages end in a line break, and some go on with a dump of bytes.
    const std::string_view message = error->message;
    return "line " + std::to_string(error->line) + ": " + std::string(message.substr(0, message.find('\n')));
}

void ignoreError(void*, xmlErrorPtr) {
}

} // namespace

XmlSilence::XmlSilence() : handler_(xmlStructuredError), context_(xmlStructuredErrorContext) {
    xmlSetStructuredErrorFunc(nullptr, &ignoreError);
}

XmlSilence::~XmlSilence() {
    xmlSetStructuredErrorFunc(context_, handler_);
}

long lineOfCrowdedElement(std::string_view bytes) {
    auto* decoder = decoderOf(bytes);
    if (!decoder)
        return lineOfCrowdedTag(bytes);
    const Buffer text = decoded(*decoder, bytes);
    xmlCharEncCloseFunc(decoder);
    if (!text)
        return 1;
    return lineOfCrowdedTag({reinterpret_cast<const char*>(xmlBufferContent(text.get())),
                             static_cast<std::size_t>(xmlBufferLength(text.get()))});
}

XmlDocument parseXml(std::string_view bytes, int layout, std::string* reason) {
    if (const long line = lineOfCrowdedElement(bytes)) {
        if (reason)
            *reason = "line " + std::to_string(line) + ": too many attributes";
        return {};
    }
    const XmlSilence silence;
    const Context context(xmlNewParserCtxt(), &xmlFreeParserCtxt);
    XmlDocument document;
    long refusedLine = 0;
    if (context && bytes.size() <= INT_MAX) {
        context->_private = &refusedLine;
        context->sax->attributeDecl = &refuseAttributeDeclaration;
        document.reset(xmlCtxtReadMemory(context.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                         nullptr, kSafety | layout));
    }
    if (refusedLine != 0)
        document.reset();
    if (!document && reason) {
        if (refusedLine != 0)
            *reason = "line " + std::to_string(refusedLine) + ": attribute declarations are not allowed";
        else
            *reason = context ? reasonOf(xmlCtxtGetLastError(context.get())) : "out of memory";
    }
    return document;
}

} // namespace platform
