#pragma once

#include "platform/readfile.h"

#include <cstddef>
#include <optional>
#include <string>

namespace suite {

struct TextFileError {
    bool missing = false;
    std::string text; ///< one line with path and cause
};

/// Reads a text file. What is no text of single bytes, such as a program or a file in UTF-16, is refused,
/// and so is one of more than `limit` bytes.
[[nodiscard]] std::optional<TextFileError> readTextFile(const std::string& path, std::string& bytes,
                                                        std::size_t limit = platform::kLargestFile);

} // namespace suite
