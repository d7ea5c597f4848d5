#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Why a file could not be read or written.
struct FileError {
    std::string path;
    std::string operation; ///< what was tried, as in "read" or "rename the temporary file"
    int code = 0;          ///< an `errno` value
    std::size_t limit = 0; ///< in bytes; what a file that is too large exceeds, if there is such a limit

    /// One line with the path, the operation and the cause.
    std::string text() const;
};

/// A size as a message tells it, as in "8 MiB".
std::string sizeText(std::size_t bytes);

} // namespace platform
