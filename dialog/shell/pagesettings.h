#pragma once

#include <string>
#include <vector>

namespace ovsettings {

struct PageRow;

/// A setting, or one of its values, as a page shows it.
struct PageSetting {
    std::string name; ///< "KEY" or "KEY.FIELD"
    std::string
        value{}; ///< what a radio button or an entry of a list stands for; empty for the setting itself
    std::string label{}; ///< in English, as it stands on the page, marks of shortcuts included
};

/// What a page shows, in the order of its form, and behind that what its grids do. Nothing of the page is
/// made for that.
std::vector<PageSetting> settingsOf(const PageRow& page);

} // namespace ovsettings
