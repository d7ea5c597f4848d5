#include "suite/projects/projectfiletext.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/readfile.h"
#include "suite/files/errorlog.h"
#include "suite/files/textfile.h"
#include "suite/projects/projectsections.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace suite {

using platform::Edited;
using platform::Error;
using platform::ProfileDocument;
using platform::Result;

namespace {

bool mayBeProject(const ProfileDocument& content) {
    const std::vector<std::string> names = content.sectionNames();
    return content.text().empty() ||
           std::ranges::find_first_of(names, kProjectSections, platform::equalsWithoutCase) != names.end();
}

} // namespace

Result<> ProjectFileText::open(const std::string& path) {
    close();
    if (path.empty())
        return Error{.cause = "no project file is named"};
    const std::string full = platform::fullPath(path);
    const auto bytes = readTextFile(full, platform::kLargestDocument);
    if (!bytes)
        return bytes.error();
    path_ = full;
    content_ = ProfileDocument(*bytes);
    bytes_ = *bytes;
    return {};
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
    if (path_.empty())
        return content_;
    if (const auto bytes = readTextFile(path_, platform::kLargestDocument))
        take(*bytes);
    return content_;
}

void ProjectFileText::take(const std::string& bytes) {
    if (bytes == bytes_)
        return;
    content_ = ProfileDocument(bytes);
    bytes_ = bytes;
}

bool ProjectFileText::change(const Edit& edit) {
    const auto changed = tryChange(edit);
    if (!changed)
        errorLog().report(changed.error());
    return static_cast<bool>(changed);
}

Result<Edited> ProjectFileText::lay(const Edit& edit, const std::string& before) {
    take(before);
    std::error_code unknown;
    if (!mayCreate_ && std::filesystem::is_symlink(path_, unknown) && !mayBeProject(content_))
        return Error{path_, "cannot store a project value: the link leads to something that is no project"};
    if (!edit(content_)) {
        content_ = ProfileDocument(bytes_);
        return Error{path_, "cannot store a name or value that a line of the file cannot hold"};
    }
    bytes_ = content_.text();
    return Edited{bytes_};
}

Result<> ProjectFileText::tryChange(const Edit& edit) {
    if (path_.empty())
        return Error{.cause = "cannot store a project value: no project is open"};
    std::string before = bytes_;
    const auto changed = platform::editFile(path_, patience_, {.limit = platform::kLargestDocument},
                                            [&](const Result<std::string>& found) -> Result<Edited> {
                                                const auto text = asText(path_, found);
                                                if (!text && !(mayCreate_ && text.code() == ENOENT))
                                                    return text.error();
                                                before = text ? *text : std::string();
                                                return lay(edit, before);
                                            });
    if (changed)
        return {};
    take(before);
    return changed.error();
}

} // namespace suite
