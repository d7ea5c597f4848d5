#include "suite/projects/locationbuffer.h"

#include "suite/locationmap.h"

#include <cstring>

namespace suite {

bool writeLocation(const std::string& text, char* buffer) {
    if (text.size() >= kLocationBufferSize)
        return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

} // namespace suite
