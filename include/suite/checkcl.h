#pragma once

#include "suite/export.h"

#include <string>

namespace NOrvUtils {

class OVSUITE_API COrvCheckCL {
public:
    /// Whether a central library is of the current release.
    /// @param path the library's index, a ".lmc" file, UTF-8.
    static bool CheckCLFlowVersion(const std::string& path);
};

} // namespace NOrvUtils
