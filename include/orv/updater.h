#pragma once

#include "ovsettings/export.h"

namespace ovsettings {
class IUpdateHost;
}

namespace Orv {

/// What a host or an add-in implements to be told that settings were committed.
///
/// The library never owns an updater; it must live until showSettingsDialog has returned. It is called on the
/// user-interface thread, from within the click on OK or Apply while the modal dialog is still open, so it
/// must not wait for anything that needs the dialog closed. The configuration has been saved by then.
class OVSETTINGS_API IUpdater {
public:
    /// Called once for each successful commit, after the last save.
    ///
    /// @param host answers which pages were changed; valid only during this call, never null.
    /// @return not used. An exception ends the dialog and leaves through showSettingsDialog.
    virtual bool updateSettings(ovsettings::IUpdateHost* host) = 0;

    virtual ~IUpdater() = default;
};

} // namespace Orv
