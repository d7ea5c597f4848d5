#include "suite/files/textfile.h"

#include <cerrno>

namespace suite {

std::optional<TextFileError> readTextFile(const std::string& path, std::string& bytes, std::size_t limit) {
    if (const auto failure = platform::readFile(path, bytes, limit))
        return TextFileError{failure->code == ENOENT, failure->text()};
    if (bytes.find('\0') == std::string::npos && !bytes.starts_with("\xFF\xFE") &&
        !bytes.starts_with("\xFE\xFF"))
        return std::nullopt;
    bytes.clear();
    return TextFileError{false, path + ": cannot read: it is no text file"};
}

} // namespace suite
