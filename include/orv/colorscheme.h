#pragma once

#include "ovsettings/export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace Orv {

/// One palette of the schematic editor: 16 colours for the screen and 16 for the printer, and which palette
/// entry the layers are drawn in. Colours are packed, red in the low byte, then green, then blue.
struct OVSETTINGS_API CColorScheme {
    static constexpr std::size_t kColors = 16;
    /// In `layerSlots`: the scheme says nothing of the layer.
    static constexpr std::int32_t kNoSlot = std::numeric_limits<std::int32_t>::min();
    /// The palette number that stands for the window colour of the system.
    static constexpr std::int32_t kSystemColor = 255;

    using Numbers = std::array<std::int32_t, kColors>;

    std::string name; ///< as it stands in the file, blanks included; any encoding
    Numbers screenColors{};
    Numbers printColors{};
    std::int32_t backgroundSlot = kSystemColor;
    /// The three numbers of a layer line, by slot; only slots 10 to 15 have one. The first is a palette
    /// number.
    Numbers layerSlots = none();
    Numbers layerSecond{};
    Numbers layerThird{};

private:
    static constexpr Numbers none() {
        Numbers numbers{};
        numbers.fill(kNoSlot);
        return numbers;
    }
};

/// Why the reading of a scheme file ended before its end.
enum class ColorSchemeError {
    none,
    unreadable, ///< the file is missing, is no regular file, or may not be read
    noPaletteNumber,
    paletteNumberOutOfRange,
    noColor,
    noLayerNumber,
    layerNumberOutOfRange,
    noSecondNumber,
    noThirdNumber,
    tooManySchemes, ///< more than 65,536
};

/// What a scheme file holds.
struct OVSETTINGS_API ColorSchemes {
    std::vector<CColorScheme> schemes; ///< those read to the end or to the error, in the file's order
    ColorSchemeError error = ColorSchemeError::none;
    std::size_t line = 0; ///< where the error is, from 1; 0 if it is not in a line
    std::string reason;   ///< the error in a line, with the file and the line; empty if there is none
};

/// Reads a scheme file (`.scm`, `colors.def`). Nothing in a file makes it throw, but for want of memory.
OVSETTINGS_API ColorSchemes readColorSchemes(const std::string& path);

/// A packed colour as the configuration spells it: "0x" and six digits, red first.
OVSETTINGS_API std::string packedColorText(std::int32_t color);

/// The word by which scheme files name the layer of a slot; empty for slots without one.
OVSETTINGS_API const char* colorSchemeLayer(std::size_t slot) noexcept;

} // namespace Orv
