#pragma once

#include "platform/remotefile.h"
#include "suite/zec.h"

#include <array>

namespace suite {

/// What lies in the directory of a library.
struct LibraryMark {
    ZECContent content;
    const char* name;
    platform::PathKind kind;
    bool alsoForMegafile; ///< makes a library, too, where megafiles do not count
};

/// In the order in which a library is known by them.
inline constexpr std::array kLibraryMarks{
    LibraryMark{ZECContent::symbols, "sym", platform::PathKind::directory, true},
    LibraryMark{ZECContent::schematics, "sch", platform::PathKind::directory, true},
    LibraryMark{ZECContent::symbolMegafile, "sym.lib", platform::PathKind::file, false},
    LibraryMark{ZECContent::schematicMegafile, "sch.lib", platform::PathKind::file, false},
};

/// How the name of a symbol's file ends in the directory of symbols.
inline constexpr char kSymbolFileEnd[] = ".1";

/// What a library says of itself. A server need not list its directories, so a remote library is known by
/// this file, too.
inline constexpr char kLibraryFile[] = "lib.cfg";

} // namespace suite
