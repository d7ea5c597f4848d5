#pragma once

#include "ovsettings/export.h"

namespace ovsettings {

/// Counts the changes of the binary contract between the dialog and add-ins: the classes and the order of
/// operations in these headers.
inline constexpr int kInterfaceVersion = 2;

} // namespace ovsettings

/// What an add-in was built against. It stands in each library that includes these headers, and the dialog
/// asks for it: an add-in of another version is told as an error and left out.
extern "C" [[gnu::used]] OVSETTINGS_API inline int ovsettingsInterfaceVersion() {
    return ovsettings::kInterfaceVersion;
}
