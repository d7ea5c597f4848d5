// The names of libraries.

#include "suite/zec.h"

#include "platform/asciicase.h"
#include "platform/environment.h"
#include "platform/paths.h"
#include "platform/remotefile.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

constexpr char kAliases[] = "OV_LIBRARY_ALIASES";

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view{}
                                           : text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

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
    std::error_code none;
    return one == other || (!platform::IsRemotePath(one) && std::filesystem::equivalent(one, other, none));
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
        const std::string name(trimmed(entry.substr(0, equals)));
        const std::string_view location = trimmed(entry.substr(equals + 1));
        const bool counts = ZECIsValidAlias(name) && !location.empty();
        if (counts && isSameLocation(comparable(location), wanted))
            return name;
    }
    return {};
}
