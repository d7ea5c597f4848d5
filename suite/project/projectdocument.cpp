#include "suite/project/projectdocument.h"

#include "details/platform/atomicfile.h"
#include "details/platform/paths.h"
#include "details/platform/readfile.h"
#include "suite/project/projectlog.h"
#include "suite/project/textfile.h"

#include <cerrno>
#include <utility>

namespace suite {

using platform::ProfileDocument;

std::optional<std::string> ProjectDocument::open(const std::string& path) {
    close();
    if (path.empty())
        return "no project file is named";
    const std::string full = platform::fullPath(path);
    std::string bytes;
    if (const auto error = readTextFile(full, bytes))
        return error->text;
    path_ = full;
    content_ = ProfileDocument(bytes);
    bytes_ = std::move(bytes);
    return std::nullopt;
}

void ProjectDocument::openForChanges(const std::string& path) {
    close();
    path_ = platform::fullPath(path);
    mayCreate_ = true;
}

void ProjectDocument::close() {
    *this = {};
}

const ProfileDocument& ProjectDocument::content() {
    std::string bytes;
    if (!path_.empty() && !readTextFile(path_, bytes) && bytes != bytes_) {
        content_ = ProfileDocument(bytes);
        bytes_ = std::move(bytes);
    }
    return content_;
}

bool ProjectDocument::change(const Edit& edit) {
    const auto error = tryChange(edit);
    if (error)
        projectLog().report(*error);
    return !error;
}

std::optional<std::string> ProjectDocument::prepare(const Edit& edit, Change& change) const {
    std::string bytes;
    const auto error = readTextFile(path_, bytes);
    if (error && !(mayCreate_ && error->missing))
        return error->text;
    change.content = ProfileDocument(bytes);
    change.before.reset();
    if (!error)
        change.before = std::move(bytes);
    if (!edit(change.content))
        return path_ + ": cannot store a name or value that a line of the file cannot hold";
    change.after = change.content.text();
    return std::nullopt;
}

std::chrono::milliseconds ProjectDocument::patience() const {
    const bool isImpatient = gaveUp_ && std::chrono::steady_clock::now() - *gaveUp_ < platform::kLockTimeout;
    return isImpatient ? std::chrono::milliseconds(0) : platform::kLockTimeout;
}

std::optional<std::string> ProjectDocument::tryChange(const Edit& edit) {
    if (path_.empty())
        return "cannot store a project value: no project is open";
    Change change;
    if (auto error = prepare(edit, change))
        return error;
    if (change.after != change.before) {
        platform::AtomicFile file(path_);
        const auto failure = file.lock(patience());
        gaveUp_.reset();
        if (failure) {
            if (failure->code == ETIMEDOUT)
                gaveUp_ = std::chrono::steady_clock::now();
            return failure->text();
        }
        if (auto error = prepare(edit, change))
            return error;
        if (change.after.size() > platform::kLargestFile)
            return platform::FileError{path_, "write", EFBIG}.text();
        if (change.after != change.before) {
            if (const auto failure = file.write(change.after))
                return failure->text();
        }
    }
    content_ = std::move(change.content);
    bytes_ = std::move(change.after);
    return std::nullopt;
}

} // namespace suite
