#include "suite/projects/projectlibrarystate.h"

#include "orv/projectfiledata.h"

#include <filesystem>
#include <system_error>

namespace suite {

bool ProjectLibraryState::IsAttached() {
    std::error_code missing;
    return std::filesystem::is_regular_file(project_.GetCentralLibraryPath(1), missing);
}

} // namespace suite
