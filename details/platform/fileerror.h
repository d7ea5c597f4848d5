#pragma once

#include <string>

namespace platform {

/// Why a file could not be read or written.
struct FileError {
    std::string path;
    std::string operation; ///< what was tried, as in "read" or "rename the temporary file"
    int code = 0;          ///< an `errno` value

    /// One line with the path, the operation and the cause.
    std::string text() const;
};

} // namespace platform
