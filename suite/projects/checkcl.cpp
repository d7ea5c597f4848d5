#include "suite/checkcl.h"

#include "platform/profilefile.h"
#include "suite/projects/centrallibraryrelease.h"

namespace NOrvUtils {

bool COrvCheckCL::CheckCLFlowVersion(const std::string& path) {
    platform::CProfileFile index(path);
    return !index.load() && index.get("CentralLibrary", "Release") == suite::kCentralLibraryRelease;
}

} // namespace NOrvUtils
