#include "suite/wdirutils.h"

#include "details/platform/environment.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace Orv::WdirUtils {

namespace {

std::string directoryEntry(std::string_view text) {
    std::string directory(text);
    std::replace(directory.begin(), directory.end(), '\\', '/');
    while (directory.size() > 1 && directory.back() == '/')
        directory.pop_back();
    return directory;
}

std::vector<std::string> splitEntries(std::string_view list) {
    std::vector<std::string> entries;
    for (bool first = true;; first = false) {
        const auto end = std::min(list.find(';'), list.size());
        // An empty first entry stays: without it the next directory, which the site shares, would be written
        // to.
        if (first || end > 0)
            entries.push_back(directoryEntry(list.substr(0, end)));
        if (end == list.size())
            return entries;
        list.remove_prefix(end + 1);
    }
}

bool isSameDirectory(const std::string& one, const std::string& other) {
    return std::filesystem::path(one).lexically_normal() == std::filesystem::path(other).lexically_normal();
}

void appendInstallation(std::vector<std::string>& directories) {
    const std::string home = directoryEntry(platform::environmentVariable("RSR_HOME").value_or(""));
    if (home.empty())
        return;
    const std::string standard = home == "/" ? "/standard" : home + "/standard";
    const auto same = [&](const std::string& entry) {
        return isSameDirectory(entry, standard);
    };
    if (std::none_of(directories.begin(), directories.end(), same))
        directories.push_back(standard);
}

} // namespace

bool GetWDIRs(std::vector<std::string>& directories) {
    directories.clear();
    const auto list = platform::environmentVariable("WDIR");
    if (!list || list->empty())
        return false;
    directories = splitEntries(*list);
    appendInstallation(directories);
    return true;
}

bool GetWDIRs(std::vector<std::string>& directories, const std::string&) {
    return GetWDIRs(directories);
}

} // namespace Orv::WdirUtils
