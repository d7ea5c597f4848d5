#include "details/platform/xmldocument.h"

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

/// Where a tag ends; counts its attributes.
std::size_t endOfTag(std::string_view bytes, std::size_t begin, int& attributes) {
    char quote = '\0';
    for (std::size_t at = begin + 1; at < bytes.size(); ++at) {
        const char c = bytes[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
        else
            attributes += c == '=';
    }
    return bytes.size();
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

} // namespace

long lineOfCrowdedElement(std::string_view bytes) {
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

XmlDocument parseXml(std::string_view bytes, int layout, std::string* reason) {
    if (const long line = lineOfCrowdedElement(bytes)) {
        if (reason)
            *reason = "line " + std::to_string(line) + ": too many attributes";
        return {};
    }
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
