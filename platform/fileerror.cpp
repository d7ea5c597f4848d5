#include "platform/fileerror.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace platform {

std::string FileError::text() const {
    // The system's own words for a time-out speak of a connection.
    const std::string cause =
        code == ETIMEDOUT ? "another program holds it" : std::generic_category().message(code);
    const std::string exceeded =
        code == EFBIG && limit > 0 ? " (the limit is " + sizeText(limit) + ")" : std::string();
    return path + ": cannot " + operation + ": " + cause + exceeded;
}

std::string sizeText(std::size_t bytes) {
    struct Unit {
        std::size_t size;
        const char* name;
    };
    constexpr std::array kUnits{Unit{std::size_t{1} << 20, " MiB"}, Unit{std::size_t{1} << 10, " KiB"}};
    for (const Unit& unit : kUnits) {
        if (bytes >= unit.size && bytes % unit.size == 0)
            return std::to_string(bytes / unit.size) + unit.name;
    }
    return std::to_string(bytes) + " bytes";
}

} // namespace platform
