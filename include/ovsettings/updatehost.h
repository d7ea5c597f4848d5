#pragma once

#include "ovsettings/export.h"

#include <string>

namespace ovsettings {

/// Answers, during Orv::IUpdater::updateSettings, which pages the user has changed.
class OVSETTINGS_API IUpdateHost {
public:
    /// @param pageName the name a page reports ("Metrics", "Grid", ...), compared without regard to case.
    /// @return true if that page had unsaved edits when the commit began. A page that was never opened, and
    ///         a page that does not report itself, answers false.
    virtual bool isPageChanged(const std::string& pageName) const = 0;

protected:
    ~IUpdateHost() = default;
};

/// How a page of this library stands in the reports.
struct PageReport {
    const char* pageKey; ///< the `classid` of its category in the catalogue
    const char* name;    ///< what isPageChanged knows it by
    /// Whether the page says that it was changed: from the first edit that makes a difference until it is
    /// stored. A host reads the settings of the other pages anew at each commit.
    bool reports;
};

/// The pages of this library. Besides these there is a page for each design of the project, which reports
/// under the design's name, and there are those of add-ins, which report as they say themselves.
///
/// "Symbol Libraries" and "Fixed Functions" tell the updaters themselves while an Apply stores them, and
/// their own names are missing in that report and in the one at the commit's end; so a host compares these
/// two lists.
inline constexpr PageReport kPageReports[] = {
    {"Pan and Zoom", "Pan and Zoom", true},
    {"Advanced", "Advanced", false},
    {"Metrics", "Metrics", true},
    {"Grid", "Grid", true},
    {"Nets", "Nets", true},
    {"PCB", "PCB", false},
    {"Color Schemes", "Color Schemes", false},
    {"Font Mappings", "Font Mappings", true},
    {"New Sheet", "New Sheet", true},
    {"Global Nets", "Global Nets", false},
    {"Run on Startup", "Run on Startup", true},
    {"New Object", "New Object", true},
    {"Empty", "Empty", false},
    {"Special Components", "Special Components", true},
    {"Central Library", "Design", true},
    {"Netlist Project", "Netlist Project", true},
    {"Borders", "Borders", true},
    {"Symbol Libraries", "Symbol Libraries", true},
    {"NetNameDelimiter", "NetNameDelimiter", true},
    {"Fixed Functions", "Fixed Functions", true},
    {"PartBookDialog", "PartBook", true},
    {"Display", "Display", false},
    {"Objects", "Objects", true},
};

} // namespace ovsettings
