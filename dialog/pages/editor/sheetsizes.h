#pragma once

#include "orv/bordersymbols.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

/// A size that a new sheet may have. Its sides are lengths in units of 10 nm; where the catalogue names a
/// size, the first one is the larger.
struct SheetSize {
    std::string label;
    long first = 0;
    long second = 0;
    /// Both sides as the size of a border is stored; empty for any other size.
    std::array<std::string, 2> storedSides;

    /// Whether a sheet of these sides has this size, lying or standing.
    bool hasSides(long width, long height) const;
};

/// The key that holds the size of a sheet that is not named in the catalogue: the user's own, or a border's.
inline constexpr const char* kCustomSizeKey = "Z_SIZE_HR";
/// Where the sizes of borders begin; every size from here on is stored as this index.
inline constexpr int kFirstBorder = 10;

/// The sizes on offer, by index: the named ones, one for each border symbol that carries a size in its name,
/// and last the custom one.
/// @param borders by name; null if there are none.
std::vector<SheetSize> sheetSizes(const Orv::iAppConfiguration& appConfig,
                                  const Orv::IBorderSymbols::Table* borders);

} // namespace ovsettings
