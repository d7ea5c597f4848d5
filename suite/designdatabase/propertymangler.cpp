#include "suite/propertymangler.h"

#include <string_view>

namespace Orv::Utils {

namespace {

char letterOf(DataModel::PropertyType type) {
    switch (type) {
    case DataModel::PropertyType::text:
        return 'T';
    case DataModel::PropertyType::number:
        return 'N';
    case DataModel::PropertyType::length:
        return 'L';
    }
    return 'T';
}

// Not isalnum, whose answer depends on the locale.
bool staysAsItIs(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

} // namespace

void CPropertyMangler::Mangle(const char* name, DataModel::PropertyType type, std::string& mangled) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    mangled = {letterOf(type), '_'};
    for (const char c : std::string_view(name ? name : "")) {
        if (staysAsItIs(c)) {
            mangled += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        mangled += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
    }
}

} // namespace Orv::Utils
