#pragma once

#include "ovsettings/updatehost.h"

#include <set>
#include <string>
#include <vector>

namespace Orv {
class IUpdater;
}

namespace ovsettings {

/// Tells the updaters after a commit, and answers which pages were changed.
class CSettingsUpdater : public IUpdateHost {
public:
    virtual ~CSettingsUpdater();

    /// Null and an updater that is registered already are ignored. Not owned.
    void addUpdater(Orv::IUpdater* updater);
    /// Calls each updater in order of registration.
    void notify();
    /// Empties the set of changed pages.
    void clear();
    void addPage(const std::string& pageName);
    bool isPageChanged(const std::string& pageName) const override;

private:
    std::vector<Orv::IUpdater*> updaters_;
    std::set<std::string> changed_; ///< names in upper case
};

} // namespace ovsettings
