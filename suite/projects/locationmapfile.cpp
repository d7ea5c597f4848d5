#include "suite/projects/locationmapfile.h"

#include "platform/filestamp.h"
#include "platform/paths.h"
#include "platform/profileview.h"
#include "platform/trim.h"
#include "suite/files/errorlog.h"
#include "suite/files/textfile.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace suite {

namespace {

constexpr char kFileName[] = "location.map";
/// A project's and those of a list of working directories.
constexpr std::size_t kMostKept = 16;

std::string_view unquoted(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

using File = std::shared_ptr<const LocationMapFile>;

/// The files that were read last, by the latest use.
class KeptFiles {
public:
    struct Kept {
        File file;
        platform::FileStamp stamp;
    };

    std::optional<Kept> find(const std::string& path, const std::string& directory) {
        const std::lock_guard guard(mutex_);
        const auto found = locate(path, directory);
        return found == kept_.end() ? std::nullopt : std::optional(*found);
    }

    void keep(Kept kept) {
        const std::lock_guard guard(mutex_);
        if (const auto known = locate(kept.file->path(), kept.file->directory()); known != kept_.end())
            kept_.erase(known);
        kept_.push_front(std::move(kept));
        if (kept_.size() > kMostKept)
            kept_.pop_back();
    }

private:
    std::deque<Kept>::iterator locate(const std::string& path, const std::string& directory) {
        return std::ranges::find_if(kept_, [&](const Kept& kept) {
            return kept.file->path() == path && kept.file->directory() == directory;
        });
    }

    std::mutex mutex_;
    std::deque<Kept> kept_;
};

KeptFiles& keptFiles() {
    static KeptFiles files;
    return files;
}

} // namespace

File LocationMapFile::of(const std::string& directory) {
    const auto path = platform::resolveExisting(platform::MakeFilePath(directory, kFileName));
    auto stamp = path ? platform::FileStamp::of(*path) : platform::FileStamp();
    if (!stamp.isOfFile())
        return nullptr;
    const auto known = keptFiles().find(*path, directory);
    if (known && known->stamp.isSettled() && known->stamp == stamp)
        return known->file;
    auto bytes = readTextFile(*path, platform::kLargestDocument);
    if (!bytes) {
        if (bytes.code() != ENOENT)
            errorLog().reportOnce(bytes.error());
        return nullptr;
    }
    File file = known && known->file->text() == *bytes
                    ? known->file
                    : std::make_shared<const LocationMapFile>(std::move(*bytes), *path, directory);
    keptFiles().keep({file, stamp});
    if (const int line = file->firstBadLine())
        errorLog().reportOnce({*path, "passed over: a line is \"$NAME DIRECTORY\"", line});
    return file;
}

LocationMapFile::LocationMapFile(std::string text, std::string path, std::string directory)
    : text_(std::move(text)), path_(std::move(path)), directory_(std::move(directory)) {
    std::string_view rest = text_;
    if (rest.starts_with(platform::kByteOrderMark))
        rest.remove_prefix(platform::kByteOrderMark.size());
    for (int number = 1; !rest.empty(); ++number) {
        const auto size = std::min(rest.find('\n'), rest.size() - 1) + 1;
        const bool understood = addLine(platform::trim(rest.substr(0, size), platform::kLineBlanks));
        if (!understood && firstBadLine_ == 0)
            firstBadLine_ = number;
        rest.remove_prefix(size);
    }
}

bool LocationMapFile::addLine(std::string_view line) {
    if (line.empty() || line.front() == '#')
        return true;
    const auto nameEnd = std::min(line.find_first_of(" \t="), line.size());
    const std::string_view name = line.substr(0, nameEnd);
    std::string_view value = platform::trim(line.substr(nameEnd), platform::kLineBlanks);
    if (value.starts_with('='))
        value = platform::trim(value.substr(1), platform::kLineBlanks);
    value = unquoted(value);
    if (name.size() <= 1 || name.front() != '$' || !platform::isBareName(name) || value.empty())
        return false;
    if (index_.try_emplace(name.substr(1), entries_.size()).second)
        entries_.push_back({name.substr(1), value});
    return true;
}

const LocationMapFile::Entry* LocationMapFile::find(std::string_view name) const {
    const auto found = index_.find(name);
    return found == index_.end() ? nullptr : &entries_[found->second];
}

} // namespace suite
