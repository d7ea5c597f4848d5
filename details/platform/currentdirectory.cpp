#include "details/platform/currentdirectory.h"

#include "details/platform/paths.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform {

// A descriptor and no path: it leads back to a directory that has lost its name, and knows no limit of
// length.
CurrentDirectory::CurrentDirectory() : before_(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
}

CurrentDirectory::~CurrentDirectory() {
    if (before_ < 0)
        return;
    // The directory is held open; there is nothing to be done if it refuses all the same.
    [[maybe_unused]] const int result = fchdir(before_);
    close(before_);
}

bool CurrentDirectory::changeTo(std::string_view path) {
    const auto existing = before_ < 0 || path.empty() ? std::nullopt : resolveExisting(path);
    return existing && chdir(existing->c_str()) == 0;
}

} // namespace platform
