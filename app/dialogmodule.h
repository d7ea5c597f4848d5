#pragma once

#include "app/commands.h"

namespace app {

/// What the module of the commands that show or make a page exports, by these names. Program and module are
/// built together.
struct DialogModule {
    static constexpr char kFile[] = "libOvSettingsCommands.so";
    static constexpr char kOpenDialog[] = "orvaneOpenDialog";
    static constexpr char kTour[] = "orvaneTour";

    using Command = int (*)(const Options& options, Arguments arguments);
};

} // namespace app
