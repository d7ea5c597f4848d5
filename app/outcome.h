#pragma once

#include <string_view>

namespace app {

/// Exit statuses of the program.
enum ExitStatus : int {
    kDone = 0,
    kRefused = 1, ///< the work could not or may not be done
    kMisuse = 2,  ///< the command line makes no sense
};

/// Tells, in one line on standard error, why something was not done. @return kRefused.
int refuse(std::string_view reason);

/// Tells, in one line on standard error, what is wrong with the command line. @return kMisuse.
int misuse(std::string_view reason);

} // namespace app
