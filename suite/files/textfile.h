#pragma once

#include "platform/readfile.h"

#include <cstddef>
#include <string>

namespace suite {

/// What was found in a file, unless it is no text of single bytes, but a program say, or a file in UTF-16.
platform::Result<std::string> asText(const std::string& path, platform::Result<std::string> found);

/// Reads a text file, as asText and platform::readFile have it.
platform::Result<std::string> readTextFile(const std::string& path,
                                           std::size_t limit = platform::kLargestFile);

} // namespace suite
