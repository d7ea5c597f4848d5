#pragma once

#include "benchmarks/peers/peer.h"

#include <memory>

namespace bench {

/// QSettings, in INI files, with the fallback from the user's file to two of the system.
std::unique_ptr<Peer> makeQSettingsPeer(const std::filesystem::path& directory);

} // namespace bench
