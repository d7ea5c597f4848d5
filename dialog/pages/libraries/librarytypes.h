#pragma once

#include <algorithm>
#include <iterator>

namespace ovsettings {

/// The types of a symbol library; the numbers are the project file's.
enum LibraryType : int { kPrimary = 0, kWriteable = 1, kReadonly = 2, kMegafile = 3 };

/// What the library list shows a type as. Colours are packed, red in the low byte.
struct LibraryTypeLook {
    static constexpr int kSystemColor = -1; ///< the palette's, for an item of a list

    LibraryType type;
    unsigned nameId; ///< of the string table
    const char* tag; ///< how texts abbreviate the type; rows of the list do without it
    int background;
    int selectedBackground;
};

inline constexpr LibraryTypeLook kLibraryTypes[] = {
    {kPrimary, 19, "[P]", 0xbbffff, 0x3d79},
    {kWriteable, 17, "[W]", 0xd6ffdb, 0x3e842f},
    {kReadonly, 16, "[R]", LibraryTypeLook::kSystemColor, LibraryTypeLook::kSystemColor},
    {kMegafile, 18, "[M]", 0xfff0d8, 0xd38d0a},
};

/// A number that is no type is shown as the type that forbids most.
constexpr const LibraryTypeLook& lookOfLibraryType(int type) {
    const auto* found = std::ranges::find(kLibraryTypes, type, &LibraryTypeLook::type);
    return found != std::end(kLibraryTypes) ? *found : kLibraryTypes[kReadonly];
}

} // namespace ovsettings
