#include "dialog/pages/libraries/dirhandler.h"

#include "platform/paths.h"

namespace ovsettings {

bool CDirHandler::set(std::string_view path) {
    const auto existing = platform::resolveExisting(path);
    if (!existing || !platform::isDirectory(*existing)) {
        // The separator belongs to the directory, so that the one of "/file" is not empty.
        path.remove_suffix(platform::splitPath(path).name.size());
    }
    return before_.changeTo(path);
}

} // namespace ovsettings
