#pragma once

#include "ovsettings/export.h"

#include <string>

namespace ovsettings {

/// Answers, during Orv::IUpdater::updateSettings, which pages the user has changed.
class OVSETTINGS_API IUpdateHost {
public:
    /// @param pageName the name a page reports ("Metrics", "Grid", ...), compared without regard to case.
    /// @return true if that page had unsaved edits when the commit began. A page that was never opened, and
    ///         a page that does not keep track of its edits, answers false.
    virtual bool isPageChanged(const std::string& pageName) const = 0;

protected:
    ~IUpdateHost() = default;
};

} // namespace ovsettings
