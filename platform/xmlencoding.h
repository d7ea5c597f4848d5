#pragma once

#include "platform/result.h"

#include <cerrno>
#include <string>

namespace platform {

/// The code of an error that says that a file may be whole: it is in an encoding that is not read.
inline constexpr int kForeignEncoding = EILSEQ;

/// Turns the bytes of an XML file into UTF-8, and its declaration into one that says so. Read are UTF-8,
/// UTF-16 with its mark and ISO-8859-1; a mark counts for more than a declaration.
/// @param foreign receives the bytes that were not in UTF-8, if it is not null.
/// @return an error with the line; the bytes are then as they were. That of an encoding that is not read has
/// the code kForeignEncoding.
Result<> toUtf8(std::string& bytes, std::string* foreign);

} // namespace platform
