#include "platform/environment.h"

#include <cstdlib>

namespace platform {

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    if (!value)
        return std::nullopt;
    return value;
}

} // namespace platform
