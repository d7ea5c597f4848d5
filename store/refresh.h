#pragma once

#include "store/store.h"

namespace Orv {

/// Reads the levels anew and takes over what others wrote, under what is unsaved here; then tells the sinks.
/// A level that cannot be read keeps what it said.
/// @return a result that is not done, and no change, inside a notification and where no load has succeeded.
RefreshResult refreshStore(iAppConfiguration::Impl& store);

} // namespace Orv
