#pragma once

#include "platform/filelock.h"
#include "platform/profiledocument.h"

#include <functional>
#include <optional>
#include <string>

namespace suite {

/// The text of a project file, or of a file that a project names, as it is on disk. It is read again whenever
/// its bytes have changed, and replaced as a whole, under its lock, by each change.
class ProjectFileText {
public:
    /// @return why the file cannot be opened, path included; then none is open.
    [[nodiscard]] std::optional<std::string> open(const std::string& path);
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
    /// @return false, with the file as it was, if the change cannot be made; the project log is told.
    bool change(const Edit& edit);
    /// As change. @return why the change cannot be made, path included; the project log is not told.
    [[nodiscard]] std::optional<std::string> tryChange(const Edit& edit);

private:
    /// Of a file; a missing one has none, and differs from every text.
    using Bytes = std::optional<std::string>;

    // As tryChange, those that return a text.
    std::optional<std::string> read(Bytes& bytes) const;
    /// Makes the change in the content of these bytes. Without success the content is theirs.
    std::optional<std::string> lay(const Edit& edit, const Bytes& before);
    /// Writes the content, which was changed from these bytes; it is changed anew if by now the file has
    /// others, which are then given back.
    std::optional<std::string> write(const Edit& edit, Bytes& before);
    /// Parses bytes, unless they are those parsed last.
    void take(const std::string& bytes);

    std::string path_;
    bool mayCreate_ = false;
    std::string bytes_; ///< the text of the content
    platform::LockPatience patience_;
    platform::ProfileDocument content_;
};

} // namespace suite
