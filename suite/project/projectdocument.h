#pragma once

#include "details/platform/profiledocument.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace suite {

/// A project file on disk, or a file that a project names. It is read again whenever its bytes have changed,
/// and replaced as a whole, under its lock, by each change.
class ProjectDocument {
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
    /// made twice or not at all, so it must depend on the content alone. A file that says the same already
    /// is not written.
    /// @return false, with the file as it was, if the change cannot be made; the project log is told.
    bool change(const Edit& edit);
    /// As change. @return why the change cannot be made, path included; the project log is not told.
    [[nodiscard]] std::optional<std::string> tryChange(const Edit& edit);

private:
    /// A change of a file; a missing one differs from every text.
    struct Change {
        std::optional<std::string> before;
        platform::ProfileDocument content;
        std::string after;
    };

    std::optional<std::string> prepare(const Edit& edit, Change& change) const;

    /// How long a change may wait for the file.
    std::chrono::milliseconds patience() const;

    std::string path_;
    bool mayCreate_ = false;
    std::string bytes_;
    /// When a change last waited for the file in vain: those that follow it at once do not wait again, each
    /// for its own.
    std::optional<std::chrono::steady_clock::time_point> gaveUp_;
    platform::ProfileDocument content_;
};

} // namespace suite
