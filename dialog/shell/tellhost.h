#pragma once

#include <string>

namespace ovsettings {

/// Tells the host what keeps a part of the dialog away: the error handler that it has set, or else the
/// standard error stream.
/// @param trouble made printable, since a file may have had a say in it.
void tellHost(const std::string& trouble);

} // namespace ovsettings
