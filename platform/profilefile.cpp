#include "platform/profilefile.h"

#include "platform/atomicfile.h"
#include "platform/paths.h"
#include "platform/readfile.h"

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

std::optional<FileError> readIfThere(const std::string& path, std::string& bytes) {
    auto failure = readFile(path, bytes);
    if (failure && failure->code == ENOENT)
        return std::nullopt;
    if (!failure && isUtf16(bytes))
        return FileError{path, "read", EILSEQ};
    return failure;
}

} // namespace

ProfileFile::ProfileFile(std::string path, std::size_t valueLimit)
    : path_(std::move(path)), valueLimit_(valueLimit), document_({}, valueLimit) {
}

std::optional<FileError> ProfileFile::load() {
    changes_.clear();
    std::string bytes;
    auto failure = readIfThere(placeOf(path_), bytes);
    document_ = ProfileDocument(failure ? std::string_view() : bytes, valueLimit_);
    return failure;
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

std::optional<FileError> ProfileFile::readChanged(const std::string& path, ProfileDocument& document,
                                                  bool& differs) const {
    std::string bytes;
    if (auto failure = readIfThere(path, bytes))
        return failure;
    document = ProfileDocument(bytes, valueLimit_);
    for (const Change& change : changes_)
        document.set(change.section, change.key, change.value);
    differs = document.text() != bytes;
    return std::nullopt;
}

std::optional<FileError> ProfileFile::save(std::chrono::milliseconds timeout) {
    const std::string path = placeOf(path_);
    ProfileDocument document;
    bool differs = false;
    auto failure = readChanged(path, document, differs);
    if (!failure && differs) {
        AtomicFile file(path);
        failure = file.lock(timeout);
        if (!failure)
            failure = readChanged(path, document, differs);
        if (!failure && differs)
            failure = file.write(document.text());
    }
    if (failure)
        return failure;
    document_ = std::move(document);
    changes_.clear();
    return std::nullopt;
}

} // namespace platform
