#pragma once

#include "store/store.h"

#include <string>

namespace Orv {

/// Registers the catalogue, overlays the configurations of all working directories from the installation to
/// the user, rebuilds the caches and tells the sinks.
/// @return false if the directory list cannot be prepared; the caches then stay as they were.
bool loadStore(iAppConfiguration::Impl& store, const std::string& projectPath);

/// Writes what differs from the inherited defaults into the first working directory.
/// @return false if the directory list cannot be prepared or the directory yields no configuration.
bool saveStore(iAppConfiguration::Impl& store);

} // namespace Orv
