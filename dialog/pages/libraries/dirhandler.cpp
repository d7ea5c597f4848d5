#include "dialog/pages/libraries/dirhandler.h"

#include "platform/paths.h"

#include <string>

namespace ovsettings {

bool CDirHandler::set(std::string_view path) {
    const auto existing = platform::resolveExisting(path);
    const bool isThere = existing && platform::isDirectory(*existing);
    return before_.changeTo(isThere ? std::string(path) : platform::directoryOf(path));
}

} // namespace ovsettings
