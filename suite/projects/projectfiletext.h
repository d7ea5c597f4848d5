#pragma once

#include "platform/editfile.h"
#include "platform/profiledocument.h"

#include <functional>
#include <string>

namespace suite {

/// The text of a project file, or of a file that a project names, as it is on disk. It is read again whenever
/// its bytes have changed, and replaced as a whole, under its lock, by each change.
class ProjectFileText {
public:
    /// Without success none is open.
    platform::Result<> open(const std::string& path);
    /// Names a file for changes alone: it is not read before the first of them, which makes it if it is
    /// missing.
    void openForChanges(const std::string& path);
    void close();

    /// Full path; empty if no file is open.
    const std::string& path() const { return path_; }

    /// The content as it is on disk now; while the file cannot be read, what it was before.
    const platform::ProfileDocument& content();

    /// Makes a change in a content. @return false if the content cannot hold it.
    using Edit = std::function<bool(platform::ProfileDocument& content)>;

    /// Makes the change in the file as it is on disk, so that what other programs wrote there stays. It is
    /// made once, twice or not at all, so it must depend on the content alone. A file that says the same
    /// already is not written.
    /// @return false, with the file as it was, if the change cannot be made; the error log is told.
    bool change(const Edit& edit);
    /// As change, and the error log is not told.
    platform::Result<> tryChange(const Edit& edit);

private:
    /// Makes the change in the content of these bytes. Without success the content is theirs.
    platform::Result<platform::Edited> lay(const Edit& edit, const std::string& before);
    /// Parses bytes, unless they are those parsed last.
    void take(const std::string& bytes);

    std::string path_;
    bool mayCreate_ = false;
    std::string bytes_; ///< the text of the content
    platform::LockPatience patience_;
    platform::ProfileDocument content_;
};

} // namespace suite
