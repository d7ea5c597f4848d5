#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Why something could not be done, mostly with a file.
struct Error {
    std::string path = {}; ///< empty where no file is concerned
    std::string cause;     ///< as in "cannot read: Permission denied"
    long line = 0;         ///< from 1; 0 if it concerns the file as a whole
    int code = 0;          ///< an `errno` value where the system has refused something, or would have

    /// One line with the path, the line and the cause.
    std::string text() const;
};

/// What the system has refused.
/// @param operation what was tried, as in "read" or "rename the temporary file".
/// @param code      an `errno` value.
/// @param limit     in bytes; what a file that is too large exceeds, if there is such a limit.
Error systemError(std::string path, const std::string& operation, int code, std::size_t limit = 0);

/// A size as a message tells it, as in "8 MiB".
std::string sizeText(std::size_t bytes);

} // namespace platform
