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

std::optional<std::string> ProjectDocument::readChanged(const Edit& edit, std::string& before,
                                                        ProfileDocument& content) const {
    if (const auto error = readTextFile(path_, before))
        return error->text;
    content = ProfileDocument(before);
    if (!edit(content))
        return path_ + ": cannot store a name or value that a line of the file cannot hold";
    return std::nullopt;
}

std::chrono::milliseconds ProjectDocument::patience() const {
    const bool isImpatient = gaveUp_ && std::chrono::steady_clock::now() - *gaveUp_ < platform::kLockTimeout;
    return isImpatient ? std::chrono::milliseconds(0) : platform::kLockTimeout;
}

std::optional<std::string> ProjectDocument::tryChange(const Edit& edit) {
    if (path_.empty())
        return "cannot store a project value: no project is open";
    std::string before;
    ProfileDocument content;
    if (auto error = readChanged(edit, before, content))
        return error;
    std::string after = content.text();
    if (after != before) {
        platform::AtomicFile file(path_);
        const auto failure = file.lock(patience());
        gaveUp_.reset();
        if (failure) {
            if (failure->code == ETIMEDOUT)
                gaveUp_ = std::chrono::steady_clock::now();
            return failure->text();
        }
        if (auto error = readChanged(edit, before, content))
            return error;
        after = content.text();
        if (after.size() > platform::kLargestFile)
            return platform::FileError{path_, "write", EFBIG}.text();
        if (after != before) {
            if (const auto failure = file.write(after))
                return failure->text();
        }
    }
    content_ = std::move(content);
    bytes_ = std::move(after);
    return std::nullopt;
}

} // namespace suite
