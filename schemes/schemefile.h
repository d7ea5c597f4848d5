#pragma once

#include "orv/colorscheme.h"
#include "ovsettings/export.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

constexpr std::size_t kPaletteSize = Orv::CColorScheme::kColors;
constexpr std::size_t kFirstLayerSlot = 10;
constexpr std::size_t kBackgroundSlot = 12;
constexpr std::size_t kMostSchemes = std::size_t{1} << 16;

/// The words of a scheme file by slot. Those below kFirstLayerSlot have no line in a file.
constexpr std::array<std::string_view, kPaletteSize> kSlotWords{
    "LINE",
    "BOX",
    "TEXT",
    "CIRCLE",
    "ARC",
    "NET",
    "PROPERTY",
    "COMPONENT",
    "NAME",
    "PIN",
    "ANNO_LAYER",
    "SELECTION_LAYER",
    "WINDOW_BACKGROUND",
    "VALUE_LAYER",
    "BORDER_LAYER",
    "HIGHLIGHT",
};

/// How far the reading of a scheme file came.
struct SchemeReading {
    std::vector<Orv::CColorScheme> schemes;
    Orv::ColorSchemeError error = Orv::ColorSchemeError::none; ///< where it is not none, the reading ended
    std::size_t line = 0;                                      ///< the line that ended it, from 1
};

/// Reads the text of a scheme file, whatever its bytes are.
OVSETTINGS_API SchemeReading readSchemes(std::string_view text);

/// The text of a scheme file with this one scheme. The name ends at a line break, if it has one.
OVSETTINGS_API std::string schemeText(const Orv::CColorScheme& scheme);

/// The name of the scheme that a file of this path is to hold: the file's own, up to the first dot; empty if
/// it has no dot.
OVSETTINGS_API std::string schemeNameOf(std::string_view path);

} // namespace ovsettings
