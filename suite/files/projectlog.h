#pragma once

#include "suite/configurations/errorlog.h"

namespace suite {

/// Where project files, location maps and the files that a project names are complained about.
ErrorLog& projectLog();

} // namespace suite
