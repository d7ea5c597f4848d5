#pragma once

#include <span>
#include <string>
#include <vector>

namespace ovsettings {

class CFactoryEx;

/// When a page is there.
enum class PageCondition : unsigned char { always, projectOpen };

/// A setting that a line of a grid stands for.
struct GridSetting {
    std::string key;
    const char* caption; ///< of the line, in English
};

/// A page of this library. What is not its own code's matter stands here, and can be asked without making it.
struct PageRow {
    const char* key = "";  ///< the `classid` of its category in the catalogue
    const char* name = ""; ///< by which it reports itself; empty if it only learns that later
    unsigned templateId = 0;
    PageCondition condition = PageCondition::always;
    const char* helpTopic = ""; ///< in helpBook(); empty if it has none
    const char* form = "";      ///< the resource that holds its form
    /// The keys of its form in the order in which the page writes them.
    std::span<const char* const> writes{};
    /// The settings of its grids, in the order in which the page writes them, before those of the form.
    std::vector<GridSetting> (*gridSettings)() = nullptr;
    void (*add)(CFactoryEx& factory, const char* key) = nullptr; ///< enters what makes it

    const char* helpBook() const { return *helpTopic ? "orvane_ref" : ""; }
};

} // namespace ovsettings
