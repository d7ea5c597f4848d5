#pragma once

#include <string>

namespace ovsettings {

/// The navigator of a running schematic editor, on the session bus. It is told of a new top-level block and
/// never waited for; where there is no bus, or nobody of its name, nothing happens.
class Navigator {
public:
    /// Looks for a session bus.
    Navigator();

    /// Asks the navigator to show its tree anew.
    void refresh() const;

private:
    std::string address_; ///< of the bus; empty if none is announced
};

} // namespace ovsettings
