#pragma once

#include <string_view>

namespace platform {

/// Keeps the process's current directory: what it was at construction it is again at destruction, even if
/// that directory was renamed or deleted in between. The current directory belongs to the whole process; use
/// on one thread only. What this library loads late is loaded before the first change.
class CurrentDirectory {
public:
    CurrentDirectory();
    ~CurrentDirectory();
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

    /// @param path as it was given: "\" is a separator, and case is not looked at where the exact name is
    ///             missing.
    /// @return true on success. An empty path fails, and so does every path where the way back could not be
    ///         kept.
    [[nodiscard]] bool changeTo(std::string_view path);

private:
    int before_; ///< descriptor of the directory to return to; -1 if there is none
};

/// Whether a path can be made the current directory, by the rules of CurrentDirectory; nothing is changed.
bool mayBeCurrent(std::string_view path);

} // namespace platform
