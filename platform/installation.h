#pragma once

#include <string>

namespace platform {

/// `RSR_HOME`, or an empty text where it is not set.
std::string installationDirectory();

/// Puts a relative `RSR_HOME` into the environment of the process as a path from the root. The current
/// directory moves, into projects too, and the installation names code. For where the settings are loaded and
/// where the dialog opens; a drive letter is a relative name here.
void fixInstallationDirectory();

} // namespace platform
