#pragma once

#include "platform/descriptor.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace platform {

/// Watches what some paths lead to: files and directories that are written, appear, vanish, are replaced by
/// another, or are reached through a link that is laid anew. It has no thread; whoever owns it waits for its
/// descriptor.
class PathWatch {
public:
    /// @param paths from the root or from the current directory; none of them has to exist.
    explicit PathWatch(std::vector<std::string> paths);

    /// Readable, for poll and the like, when takeChanges has something to say or to pass over; -1 where the
    /// system has no watch to give.
    int descriptor() const { return notifier_.get(); }

    /// Reads all that came since the last call, without waiting.
    /// @return whether any of it concerns a path.
    bool takeChanges();

private:
    /// The names, in lower case, that count in each directory.
    using Names = std::map<std::string, std::set<std::string>>;

    static void addTrail(const std::string& path, Names& names);
    Names trails() const;
    void watchAnew();
    void watch(const Names& wanted);
    bool concerns(int watch, const std::string& name) const;

    const std::vector<std::string> paths_;
    Descriptor notifier_;
    std::map<int, std::set<std::string>> names_; ///< by watch
};

} // namespace platform
