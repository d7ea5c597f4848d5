#include "dialog/pages/project/layouttools.h"

#include "platform/installation.h"
#include "platform/profilefile.h"

#include <algorithm>
#include <cstddef>

namespace ovsettings {

namespace {

/// Bytes that a value, and the list of all section names, may have, each text with a null character behind
/// it.
constexpr std::size_t kBufferSize = 2048;
constexpr char kSectionPrefix[] = "PCBSYSTEM ";
/// The reference stays in the paths, which a project may take over as they are.
constexpr char kConstraintsBase[] = "%RSR_HOME%\\standard\\isis\\";
constexpr char kConfigurationBase[] = "%RSR_HOME%\\standard\\";

std::string fileName() {
    return platform::installationDirectory() + "\\standard\\pcbsystem.ini";
}

/// The keys in the order of the file. A section that the list of names has no room for is not there, nor is
/// any behind it.
std::vector<std::string> toolKeys(const platform::ProfileFile& file) {
    std::vector<std::string> keys;
    std::size_t size = 1;
    for (const std::string& section : file.sectionNames()) {
        size += section.size() + 1;
        if (size > kBufferSize)
            break;
        if (section.find(kSectionPrefix) != std::string::npos)
            keys.push_back(section.substr(section.find(' ') + 1));
    }
    return keys;
}

LayoutTool readTool(const platform::ProfileFile& file, const std::string& key) {
    const std::string section = kSectionPrefix + key;
    return {.visible = file.get(section, "display", "true") == "true",
            .displayName = file.get(section, "display_name", "xxx"),
            .constraintsPath = kConstraintsBase + file.get(section, "cns"),
            .configurationPath = kConfigurationBase + file.get(section, "cfg")};
}

} // namespace

void LayoutTools::read() {
    platform::ProfileFile file(fileName(), kBufferSize - 1);
    tools_.clear();
    offered_.clear();
    if (!file.load()) // a file that cannot be read offers no tools, as one that is not there
        return;
    for (const std::string& key : toolKeys(file)) {
        const LayoutTool& tool = tools_[key] = readTool(file, key);
        if (tool.visible)
            offered_.push_back(tool.displayName);
    }
}

const LayoutTools::Record* LayoutTools::findByDisplayName(const std::string& displayName) const {
    const auto found = std::ranges::find(tools_, displayName, [](const Record& record) -> const std::string& {
        return record.second.displayName;
    });
    return found == tools_.end() ? nullptr : &*found;
}

} // namespace ovsettings
