#pragma once

#include "platform/xmlscanner.h"

#include <optional>
#include <string>

namespace platform {

/// Turns the bytes of an XML file into UTF-8, and its declaration into one that says so. Read are UTF-8,
/// UTF-16 with its mark and ISO-8859-1; a mark counts for more than a declaration.
/// @param foreign receives the bytes that were not in UTF-8, if it is not null.
/// @return what is wrong; the bytes are then as they were.
std::optional<XmlProblem> toUtf8(std::string& bytes, std::string* foreign);

} // namespace platform
