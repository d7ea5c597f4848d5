#include "platform/pathwatch.h"

#include "platform/asciicase.h"
#include "platform/paths.h"

#include <sys/inotify.h>

#include <cstring>
#include <deque>
#include <filesystem>
#include <utility>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                                  IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
/// As many links as the system itself follows.
constexpr int kMostLinks = 40;
/// Somebody may lay the way anew all the time.
constexpr int kMostWalks = 10;

void prepend(std::deque<fs::path>& parts, const fs::path& path) {
    parts.insert(parts.begin(), path.begin(), path.end());
}

} // namespace

PathWatch::PathWatch(std::vector<std::string> paths)
    : paths_(std::move(paths)), notifier_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (notifier_.valid())
        watchAnew();
}

/// Walks a path as the system does, and notes each name on the way, in the directory where it is looked up;
/// up to one that is not there.
void PathWatch::addTrail(const std::string& path, Names& names) {
    std::error_code error;
    std::deque<fs::path> parts;
    prepend(parts, fs::absolute(platformPath(path), error));
    fs::path directory = "/";
    int links = 0;
    while (!parts.empty()) {
        const fs::path part = parts.front();
        parts.pop_front();
        if (part.is_absolute()) {
            directory = "/";
        } else if (part == "..") {
            directory = directory.parent_path();
        } else if (!part.empty() && part != ".") {
            names[directory.string()].insert(inLowerCase(part.string()));
            // In another case a name is found, too.
            const auto found = resolveExisting((directory / part).string());
            const fs::path here = found ? fs::path(*found) : directory / part;
            const auto status = fs::symlink_status(here, error);
            if (fs::is_symlink(status) && ++links <= kMostLinks)
                prepend(parts, fs::read_symlink(here, error));
            else if (fs::is_directory(status))
                directory = here;
            else
                return;
        }
    }
}

PathWatch::Names PathWatch::trails() const {
    Names names;
    for (const auto& path : paths_)
        addTrail(path, names);
    return names;
}

/// What appears on a way between the walk and the watch is told by nobody, so the way is walked again.
void PathWatch::watchAnew() {
    Names wanted;
    int walks = 0;
    for (auto now = trails(); now != wanted && walks < kMostWalks; now = trails(), ++walks) {
        wanted = now;
        watch(now);
    }
}

void PathWatch::watch(const Names& wanted) {
    std::map<int, std::set<std::string>> now;
    for (const auto& [directory, names] : wanted) {
        const int watch = inotify_add_watch(notifier_.get(), directory.c_str(), kEvents);
        if (watch >= 0)
            now[watch].insert(names.begin(), names.end());
    }
    for (const auto& [watch, names] : names_) {
        if (!now.contains(watch))
            inotify_rm_watch(notifier_.get(), watch);
    }
    names_ = std::move(now);
}

bool PathWatch::takeChanges() {
    alignas(inotify_event) char buffer[16384];
    bool isConcerned = false;
    for (;;) {
        const auto size = notifier_.valid() ? read(notifier_.get(), buffer, sizeof buffer) : -1;
        if (size <= 0)
            break;
        for (const char* at = buffer; at < buffer + size;) {
            inotify_event event;
            std::memcpy(&event, at, sizeof event);
            const std::string name(event.len > 0 ? at + sizeof event : "");
            const bool isLost = (event.mask & IN_Q_OVERFLOW) != 0;
            isConcerned = isConcerned || isLost || concerns(event.wd, name);
            at += sizeof event + event.len;
        }
    }
    // The way may lead elsewhere by now.
    if (isConcerned)
        watchAnew();
    return isConcerned;
}

/// An event without a name is about the directory itself.
bool PathWatch::concerns(int watch, const std::string& name) const {
    const auto names = names_.find(watch);
    return names != names_.end() && (name.empty() || names->second.contains(inLowerCase(name)));
}

} // namespace platform
