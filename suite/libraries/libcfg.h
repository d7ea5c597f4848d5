#pragma once

#include <string>

namespace platform {

/// How many lines of a lib.cfg are read, of 255 bytes at most: one without end must not take one's time.
constexpr int kMostLibCfgLines = 65536;

/// The alias that the file "lib.cfg" of a library, local or remote, gives it: what follows "alias " in the
/// first line that begins with it, when the blanks at the line's ends are gone. Of a line longer than 255
/// bytes the rest counts as a line of its own.
/// @return empty without such a line or file.
std::string readLibraryAlias(const std::string& libraryPath);

} // namespace platform
