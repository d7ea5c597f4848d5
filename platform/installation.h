#pragma once

#include <string>

namespace platform {

/// `RSR_HOME`, or an empty text where it is not set. A relative name begins where the process stood when it
/// was first asked for, at the load of the configuration as a rule: the current directory moves, into
/// projects too, and the installation names code.
std::string installationDirectory();

} // namespace platform
