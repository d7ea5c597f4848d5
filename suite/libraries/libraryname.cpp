// The names of libraries.

#include "suite/zec.h"

#include "platform/asciicase.h"
#include "platform/environment.h"
#include "platform/environmentreferences.h"
#include "platform/paths.h"
#include "platform/remotefile.h"
#include "platform/trim.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr char kAliases[] = "OV_LIBRARY_ALIASES";
constexpr char kSpace[] = " ";

/// The spelling in which two locations are compared.
std::string comparable(std::string_view text) {
    // A location on a server, too: it is compared, and sent to nobody.
    std::string path = platform::tryExpandEnvironmentReferences(text).value_or(std::string(text));
    const bool isRemote = platform::IsRemotePath(path);
    path = isRemote ? platform::platformPath(path) : platform::fullPath(path);
    if (isRemote)
        std::erase(path, '"'); // as the server never gets to see one
    ZECRemoveLastSlash(path);
    return path;
}

bool isSameLocation(const std::string& one, const std::string& other) {
    return one == other || (!platform::IsRemotePath(one) && platform::isSameOnDisk(one, other));
}

} // namespace

int ZECIsValidAlias(const std::string& name) {
    const auto isLegal = [](char c) {
        return platform::isLetter(c) || (c >= '0' && c <= '9') || c == '_';
    };
    return !name.empty() && platform::isLetter(name.front()) && std::ranges::all_of(name, isLegal) ? 1 : 0;
}

std::string ZECFindAlias(const std::string& path) {
    const auto aliases = platform::environmentVariable(kAliases);
    if (path.empty() || path.size() > platform::kLongestPath || !aliases)
        return {};
    const std::string wanted = comparable(path);
    for (std::string_view rest = *aliases; !rest.empty();) {
        const std::string_view entry = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
        const auto equals = entry.find('=');
        if (equals == std::string_view::npos)
            continue;
        std::string name(platform::trim(entry.substr(0, equals), kSpace));
        const std::string_view location = platform::trim(entry.substr(equals + 1), kSpace);
        const bool counts = ZECIsValidAlias(name) && !location.empty();
        if (counts && isSameLocation(comparable(location), wanted))
            return name;
    }
    return {};
}
