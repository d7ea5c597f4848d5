#include "platform/currentdirectory.h"

#include "platform/nameservices.h"
#include "platform/paths.h"
#include "platform/remotefile.h"

#include <fcntl.h>
#include <unistd.h>

#include <mutex>

namespace platform {

namespace {

/// Code that is loaded late would be looked for in the new directory, wherever the user's environment or a
/// run path has an empty entry; and the new one may be a project that somebody sent.
void loadLateCode() {
    static std::once_flag once;
    std::call_once(once, [] {
        loadUrlModules();
        loadNameServices();
    });
}

} // namespace

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
    if (before_ < 0 || !mayBeCurrent(path))
        return false;
    loadLateCode();
    const auto existing = resolveExisting(path);
    return existing && chdir(existing->c_str()) == 0;
}

bool mayBeCurrent(std::string_view path) {
    const auto existing = path.empty() ? std::nullopt : resolveExisting(path);
    return existing && isDirectory(*existing) &&
           faccessat(AT_FDCWD, existing->c_str(), X_OK, AT_EACCESS) == 0;
}

} // namespace platform
