#include "details/platform/xmldocument.h"

#include <libxml/parser.h>

#include <climits>

namespace platform {

namespace {

constexpr int kSafety = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;

std::string reasonOf(const xmlError* error) {
    if (!error || !error->message)
        return "not well-formed";
    // The library's messages end in a line break, and some go on with a dump of bytes.
    const std::string_view message = error->message;
    return "line " + std::to_string(error->line) + ": " + std::string(message.substr(0, message.find('\n')));
}

} // namespace

XmlDocument parseXml(std::string_view bytes, int layout, std::string* reason) {
    const Context context(xmlNewParserCtxt(), &xmlFreeParserCtxt);
    XmlDocument document;
    if (context && bytes.size() <= INT_MAX)
        document.reset(xmlCtxtReadMemory(context.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                         nullptr, kSafety | layout));
    if (!document && reason)
        *reason = context ? reasonOf(xmlCtxtGetLastError(context.get())) : "out of memory";
    return document;
}

} // namespace platform
