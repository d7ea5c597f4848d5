#include "suite/projects/projectfiletext.h"

#include "platform/asciicase.h"
#include "platform/atomicfile.h"
#include "platform/paths.h"
#include "platform/readfile.h"
#include "suite/files/projectlog.h"
#include "suite/files/textfile.h"
#include "suite/projects/projectsections.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace suite {

using platform::ProfileDocument;

namespace {

bool mayBeProject(const ProfileDocument& content) {
    const std::vector<std::string> names = content.sectionNames();
    return content.text().empty() ||
           std::ranges::find_first_of(names, kProjectSections, platform::equalsWithoutCase) != names.end();
}

} // namespace

std::optional<std::string> ProjectFileText::open(const std::string& path) {
    close();
    if (path.empty())
        return "no project file is named";
    const std::string full = platform::fullPath(path);
    std::string bytes;
    if (const auto error = readTextFile(full, bytes, platform::kLargestDocument))
        return error->text;
    path_ = full;
    content_ = ProfileDocument(bytes);
    bytes_ = std::move(bytes);
    return std::nullopt;
}

void ProjectFileText::openForChanges(const std::string& path) {
    close();
    path_ = platform::fullPath(path);
    mayCreate_ = true;
}

void ProjectFileText::close() {
    *this = {};
}

const ProfileDocument& ProjectFileText::content() {
    std::string bytes;
    if (!path_.empty() && !readTextFile(path_, bytes, platform::kLargestDocument))
        take(bytes);
    return content_;
}

void ProjectFileText::take(const std::string& bytes) {
    if (bytes == bytes_)
        return;
    content_ = ProfileDocument(bytes);
    bytes_ = bytes;
}

bool ProjectFileText::change(const Edit& edit) {
    const auto error = tryChange(edit);
    if (error)
        projectLog().report(*error);
    return !error;
}

std::optional<std::string> ProjectFileText::read(Bytes& bytes) const {
    std::string present;
    const auto error = readTextFile(path_, present, platform::kLargestDocument);
    if (error && !(mayCreate_ && error->missing))
        return error->text;
    bytes.reset();
    if (!error)
        bytes = std::move(present);
    return std::nullopt;
}

std::optional<std::string> ProjectFileText::lay(const Edit& edit, const Bytes& before) {
    take(before.value_or(""));
    std::error_code unknown;
    if (!mayCreate_ && std::filesystem::is_symlink(path_, unknown) && !mayBeProject(content_))
        return path_ + ": cannot store a project value: the link leads to something that is no project";
    if (!edit(content_)) {
        content_ = ProfileDocument(bytes_);
        return path_ + ": cannot store a name or value that a line of the file cannot hold";
    }
    bytes_ = content_.text();
    return std::nullopt;
}

std::optional<std::string> ProjectFileText::write(const Edit& edit, Bytes& before) {
    platform::AtomicFile file(path_);
    const auto failure = file.lock(patience_.timeout());
    patience_.note(failure);
    if (failure)
        return failure->text();
    Bytes now;
    if (auto error = read(now))
        return error;
    if (now != before) {
        before = std::move(now);
        if (auto error = lay(edit, before))
            return error;
    }
    if (bytes_.size() > platform::kLargestDocument)
        return platform::FileError{path_, "write", EFBIG, platform::kLargestDocument}.text();
    if (bytes_ != before) {
        if (const auto failed = file.write(bytes_))
            return failed->text();
    }
    return std::nullopt;
}

std::optional<std::string> ProjectFileText::tryChange(const Edit& edit) {
    if (path_.empty())
        return "cannot store a project value: no project is open";
    Bytes before;
    if (auto error = read(before))
        return error;
    if (auto error = lay(edit, before))
        return error;
    if (bytes_ == before)
        return std::nullopt;
    auto error = write(edit, before);
    if (error)
        take(before.value_or(""));
    return error;
}

} // namespace suite
