// The reader of scheme files, and its agreement with the writer.

#include "fuzz/support.h"
#include "schemes/schemefile.h"

#include <algorithm>

using fuzz::require;

namespace {

/// What a line holds of a long name, at least.
constexpr std::size_t kShortName = 240;

/// A carriage return at the end is the one thing that a line cannot hold of a short name.
bool isWrittenName(std::string_view read, std::string_view name) {
    return name.size() <= kShortName ? read == name.substr(0, name.size() - (name.ends_with('\r') ? 1 : 0))
                                     : name.starts_with(read) && read.size() + 4 > kShortName;
}

void requireSurvival(const Orv::CColorScheme& scheme) {
    const ovsettings::SchemeReading again = ovsettings::readSchemes(ovsettings::schemeText(scheme));
    require(again.error == Orv::ColorSchemeError::none && again.schemes.size() == 1);
    const Orv::CColorScheme& read = again.schemes.front();
    require(isWrittenName(read.name, scheme.name) && read.screenColors == scheme.screenColors);
    require(read.printColors == scheme.printColors && read.layerSlots == scheme.layerSlots);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    const ovsettings::SchemeReading reading = ovsettings::readSchemes(text);
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    require(reading.line <= lines);
    require((reading.error == Orv::ColorSchemeError::none) == (reading.line == 0));
    for (const Orv::CColorScheme& scheme : reading.schemes) {
        require(std::ranges::all_of(scheme.layerSlots, [](int slot) {
            return slot == Orv::CColorScheme::kNoSlot || (slot >= 0 && slot < 16);
        }));
        requireSurvival(scheme);
    }
    return 0;
}
