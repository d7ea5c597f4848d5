#include "suite/checkcl.h"

#include "platform/paths.h"
#include "platform/profileview.h"
#include "platform/readfile.h"
#include "suite/projects/centrallibraryrelease.h"

namespace NOrvUtils {

// An index may have a hundred thousand symbols, and is looked at whenever the page is left.
bool COrvCheckCL::CheckCLFlowVersion(const std::string& path) {
    const auto file = platform::resolveExisting(path);
    const auto bytes = platform::readFile(file.value_or(""));
    return bytes &&
           platform::ProfileView(*bytes).value("CentralLibrary", "Release") == suite::kCentralLibraryRelease;
}

} // namespace NOrvUtils
