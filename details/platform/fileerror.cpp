#include "details/platform/fileerror.h"

#include <cerrno>
#include <system_error>

namespace platform {

std::string FileError::text() const {
    // The system's own words for a time-out speak of a connection.
    const std::string cause =
        code == ETIMEDOUT ? "another program holds it" : std::generic_category().message(code);
    return path + ": cannot " + operation + ": " + cause;
}

} // namespace platform
