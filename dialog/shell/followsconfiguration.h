#pragma once

#include "orv/appconfiguration.h"

#include <vector>

namespace ovsettings {

/// The fields whose edits on a page were given up.
using DroppedEdits = std::vector<Orv::RefreshResult::Field>;

/// What a page is besides, if its controls show values of the configuration, which other programs may change
/// while the page is there. Not an operation of the page itself: those are in the table of an add-in's class,
/// too, and stay where they are.
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
