#include "suite/projects/projectlibrarystate.h"

#include "orv/projectfiledata.h"
#include "platform/paths.h"

namespace suite {

bool ProjectLibraryState::IsAttached() {
    return platform::isFile(project_.GetCentralLibraryPath(1));
}

} // namespace suite
