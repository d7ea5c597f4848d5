// The reader of scheme files, and its agreement with the writer.

#include "details/pages/display/schemefile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// A carriage return at the end of a name is the one thing that a line cannot hold.
std::string writtenName(const Orv::CColorScheme& scheme) {
    return scheme.name.substr(0, scheme.name.size() - (scheme.name.ends_with('\r') ? 1 : 0));
}

void requireSurvival(const Orv::CColorScheme& scheme) {
    const ovsettings::SchemeReading again = ovsettings::readSchemes(ovsettings::schemeText(scheme));
    require(again.error == Orv::ColorSchemeError::none && again.schemes.size() == 1);
    const Orv::CColorScheme& read = again.schemes.front();
    require(read.name == writtenName(scheme) && read.screenColors == scheme.screenColors);
    require(read.printColors == scheme.printColors && read.layerSlots == scheme.layerSlots);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
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
