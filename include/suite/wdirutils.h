#pragma once

#include "suite/export.h"

#include <string>
#include <vector>

namespace Orv::WdirUtils {

/// Fills the list with the working directories, the user's first, the installation's `standard` directory
/// last. They come from the environment variable `WDIR`, split at ";", with forward slashes; the
/// installation's directory is appended if the list lacks it, and named as in `RSR_HOME` if it is there. Of
/// entries that lead to one directory, by whatever names, the first counts.
/// @return false, with the list empty, if `WDIR` is not set.
OVSUITE_API bool GetWDIRs(std::vector<std::string>& directories);

/// As above, for a project. A project adds no directory of its own here.
OVSUITE_API bool GetWDIRs(std::vector<std::string>& directories, const std::string& projectPath);

} // namespace Orv::WdirUtils
