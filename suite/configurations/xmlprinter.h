#pragma once

#include <libxml/tree.h>

#include <string>

namespace suite::xml {

/// The text of a document, to the byte what xmlDocDumpMemory gives, at a tenth of its cost: the library tests
/// and copies one character at a time, which was most of what a save cost beside its flushes. Empty for lack
/// of memory.
std::string print(xmlDoc& document);

} // namespace suite::xml
