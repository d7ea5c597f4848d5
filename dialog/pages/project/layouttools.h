#pragma once

#include <map>
#include <string>
#include <vector>

namespace ovsettings {

/// A layout tool of the installation.
struct LayoutTool {
    bool visible = false; ///< offered in the list
    std::string displayName;
    std::string constraintsPath;   ///< default constraints file
    std::string configurationPath; ///< default PCB configuration
};

/// The tools that the installation's pcbsystem.ini describes.
class LayoutTools {
public:
    /// Reads the file anew; without one there are no tools.
    void read();

    /// The names of the visible tools, in the order of the file.
    const std::vector<std::string>& offered() const { return offered_; }
    /// A tool that is not there gets a record with nothing in it.
    const LayoutTool& operator[](const std::string& key) { return tools_[key]; }

    using Record = std::map<std::string, LayoutTool>::value_type;
    /// The first tool, in the order of the keys, with that name; null if there is none.
    const Record* findByDisplayName(const std::string& displayName) const;

private:
    std::map<std::string, LayoutTool> tools_;
    std::vector<std::string> offered_;
};

} // namespace ovsettings
