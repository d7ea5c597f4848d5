#include "suite/files/textfile.h"

#include <utility>

namespace suite {

platform::Result<std::string> asText(const std::string& path, platform::Result<std::string> found) {
    const bool isText = !found || (found->find('\0') == std::string::npos &&
                                   !found->starts_with("\xFF\xFE") && !found->starts_with("\xFE\xFF"));
    return isText ? std::move(found) : platform::Error{path, "cannot read: it is no text file"};
}

platform::Result<std::string> readTextFile(const std::string& path, std::size_t limit) {
    return asText(path, platform::readFile(path, limit));
}

} // namespace suite
