#include "suite/wdirutils.h"

#include "platform/environment.h"
#include "platform/installation.h"
#include "platform/paths.h"

#include <algorithm>
#include <string_view>

namespace Orv::WdirUtils {

namespace {

std::vector<std::string> splitEntries(std::string_view list) {
    std::vector<std::string> entries;
    for (bool first = true;; first = false) {
        const auto end = std::min(list.find(';'), list.size());
        // An empty first entry stays: without it the next directory, which the site shares, would be written
        // to.
        if (first || end > 0)
            entries.push_back(platform::asDirectoryEntry(list.substr(0, end)));
        if (end == list.size())
            return entries;
        list.remove_prefix(end + 1);
    }
}

/// A directory that came again would be read as a level below itself: what the user changed would be taken
/// for inherited, and no save would write it.
class DirectoryList {
public:
    explicit DirectoryList(std::vector<std::string>& directories) : directories_(directories) {}

    /// @return where the directory stands in the list, however it is spelled there.
    std::size_t obtain(const std::string& directory) {
        const platform::Place place(directory);
        const auto index = static_cast<std::size_t>(std::ranges::find(places_, place) - places_.begin());
        if (index == places_.size()) {
            places_.push_back(place);
            directories_.push_back(directory);
        }
        return index;
    }

private:
    std::vector<std::string>& directories_;
    std::vector<platform::Place> places_;
};

/// Where the installation has its own settings; empty without an installation.
std::string standardDirectory() {
    const std::string home = platform::asDirectoryEntry(platform::installationDirectory());
    return home.empty() ? std::string() : platform::MakeFilePath(home, "standard");
}

} // namespace

bool GetWDIRs(std::vector<std::string>& directories) {
    directories.clear();
    const auto list = platform::environmentVariable("WDIR");
    if (!list || list->empty())
        return false;
    DirectoryList found(directories);
    for (const std::string& entry : splitEntries(*list))
        found.obtain(entry);
    // In this spelling: whoever looks for the installation's name in the entry is to find it. One that stands
    // elsewhere than last stays there: whoever wrote the list chose its order, and the store, which wants the
    // installation last, refuses the list.
    if (const std::string standard = standardDirectory(); !standard.empty())
        directories[found.obtain(standard)] = standard;
    return true;
}

/// A project adds no directory of its own. That is meant for users, whose settings are the same in every
/// project.
bool GetWDIRs(std::vector<std::string>& directories, const std::string&) {
    return GetWDIRs(directories);
}

} // namespace Orv::WdirUtils
