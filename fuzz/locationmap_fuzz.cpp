// The reader of location maps, and both directions of names.

#include "fuzz/support.h"
#include "suite/projects/softnames.h"

#include <algorithm>

using fuzz::require;
using suite::SoftNames;

namespace {

constexpr std::size_t kMostNames = 2;

/// The first names of a text, as far as they are plain.
std::vector<std::string> namesIn(std::string_view text) {
    std::vector<std::string> names;
    for (auto at = text.find('$'); at != std::string_view::npos && names.size() < kMostNames;
         at = text.find('$', at + 1))
        names.emplace_back(text.substr(at, text.find_first_of(" \t\r\n=", at) - at));
    return names;
}

void checkName(const SoftNames& map, const std::string& name) {
    const auto hard = map.hardName(name);
    if (!hard)
        return;
    require(!hard->empty() && !SoftNames::isSoftName(*hard));
    if (name.find_first_of("/\\") != std::string::npos)
        return;
    const auto below = map.hardName(name + "/below");
    require(below && below->ends_with("/below"));
    // A shorter way may lead to the same place, but it does lead there.
    const auto soft = map.softName(*below);
    require(soft && SoftNames::isSoftName(*soft) && map.hardName(*soft).has_value());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    SoftNames map;
    const int badLine = map.add(text, "/base");
    require(badLine >= 0 && badLine <= std::ranges::count(text, '\n') + 1);
    for (const std::string& name : namesIn(text))
        checkName(map, name);
    require(map.hardName("/hard") == "/hard");
    return 0;
}
