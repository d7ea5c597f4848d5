#include "platform/profilefile.h"

#include "platform/editfile.h"
#include "platform/paths.h"

#include <cerrno>
#include <utility>

namespace platform {

namespace {

/// Where the file is on disk, or where it will be: its directory may be spelled in another case too.
std::string placeOf(std::string_view path) {
    if (const auto existing = resolveExisting(path))
        return *existing;
    const PathParts parts = splitPath(path);
    const auto directory = resolveExisting(parts.directory);
    return directory ? *directory + '/' + std::string(parts.name) : platformPath(path);
}

bool isUtf16(std::string_view bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

/// The text of a file that was found; a missing one has none.
Result<std::string> textOf(const std::string& path, const Result<std::string>& found) {
    if (found && isUtf16(*found))
        return systemError(path, "read", EILSEQ);
    return found.code() == ENOENT ? std::string() : found;
}

} // namespace

ProfileFile::ProfileFile(std::string path, std::size_t valueLimit)
    : path_(std::move(path)), valueLimit_(valueLimit), document_({}, valueLimit) {
}

Result<> ProfileFile::load() {
    changes_.clear();
    const std::string path = placeOf(path_);
    const auto text = textOf(path, readFile(path));
    document_ = ProfileDocument(text ? std::string_view(*text) : std::string_view(), valueLimit_);
    return text ? Result() : text.error();
}

std::string ProfileFile::get(std::string_view section, std::string_view key, std::string_view missing) const {
    return document_.value(section, key).value_or(std::string(missing));
}

bool ProfileFile::set(std::string_view section, std::string_view key, std::optional<std::string_view> value) {
    if (!document_.set(section, key, value))
        return false;
    // Also where it changes nothing here: the file may say something else by the time it is saved.
    changes_.push_back({std::string(section), std::string(key), std::optional<std::string>(value)});
    return true;
}

Result<> ProfileFile::save(std::chrono::milliseconds timeout) {
    const std::string path = placeOf(path_);
    LockPatience patience(timeout);
    ProfileDocument document;
    const auto saved = editFile(path, patience, {}, [&](const Result<std::string>& found) -> Result<Edited> {
        const auto text = textOf(path, found);
        if (!text)
            return text.error();
        document = ProfileDocument(*text, valueLimit_);
        for (const Change& change : changes_)
            document.set(change.section, change.key, change.value);
        return document.text() == *text ? Edited() : Edited{document.text()};
    });
    if (!saved)
        return saved.error();
    document_ = std::move(document);
    changes_.clear();
    return {};
}

} // namespace platform
