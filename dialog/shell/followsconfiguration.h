#pragma once

#include "orv/appconfiguration.h"

#include <vector>

namespace ovsettings {

/// The fields whose edits on a page were given up.
using DroppedEdits = std::vector<Orv::RefreshResult::Field>;

/// A second base of pages whose controls show values of the configuration, which other programs may change
/// while the page is there. It is not an operation of CPropDialogTemplate, because add-ins derive from that
/// class, and a new operation would change their binary contract.
class IFollowsConfiguration {
public:
    /// Called when the configuration may hold other values or locks than before: controls that the user has
    /// left alone show them, edits stay, and what was locked meanwhile loses its edit and looks locked. A
    /// page that is not filled does nothing.
    virtual DroppedEdits followConfiguration() = 0;

protected:
    ~IFollowsConfiguration() = default;
};

} // namespace ovsettings
