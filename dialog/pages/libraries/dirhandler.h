#pragma once

#include "platform/currentdirectory.h"

#include <string_view>

namespace ovsettings {

/// Makes a directory the current one for as long as it lives. The current directory belongs to the whole
/// process; use on the user-interface thread only.
class CDirHandler {
public:
    /// @param path a directory, or a file in it. What leads to no directory changes nothing.
    explicit CDirHandler(std::string_view path) { set(path); }

    /// Moves on; the way back stays the one of construction. @return true if the directory is current now.
    bool set(std::string_view path);

private:
    platform::CurrentDirectory before_;
};

} // namespace ovsettings
