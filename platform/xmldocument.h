#pragma once

#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <memory>
#include <string>
#include <string_view>

namespace platform {

struct XmlDocumentRelease {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using XmlDocument = std::unique_ptr<xmlDoc, XmlDocumentRelease>;

/// While one lives, the library prints nothing of what this thread parses: some errors of encodings go past
/// the handlers of a parser.
class XmlSilence {
public:
    XmlSilence();
    ~XmlSilence();
    XmlSilence(const XmlSilence&) = delete;
    XmlSilence& operator=(const XmlSilence&) = delete;

private:
    xmlStructuredErrorFunc handler_;
    void* context_;
};

/// The line, from 1, of an element with more attributes than any file of ours has; 0 if there is none. The
/// parser compares each attribute of an element with all the others, so that a small file could keep it busy
/// for hours.
long lineOfCrowdedElement(std::string_view bytes);

/// Parses a file from a stranger: nothing is fetched, no entity is replaced by its content, nothing is
/// printed, and the parser's own limits on depth and size stand.
/// @param layout further options of the parser, on blanks and sections: XML_PARSE_NOBLANKS,
///               XML_PARSE_NOCDATA.
/// @param reason receives the line and what is wrong there, if it is not null and there is no document.
XmlDocument parseXml(std::string_view bytes, int layout = 0, std::string* reason = nullptr);

} // namespace platform
