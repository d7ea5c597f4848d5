#include "platform/error.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace platform {

std::string Error::text() const {
    if (path.empty())
        return cause;
    return path + ":" + (line > 0 ? std::to_string(line) + ":" : "") + " " + cause;
}

Error systemError(std::string path, const std::string& operation, int code, std::size_t limit) {
    // The system's own words for a time-out speak of a connection.
    const std::string cause =
        code == ETIMEDOUT ? "another program holds it" : std::generic_category().message(code);
    const std::string exceeded =
        code == EFBIG && limit > 0 ? " (the limit is " + sizeText(limit) + ")" : std::string();
    return {std::move(path), "cannot " + operation + ": " + cause + exceeded, 0, code};
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
