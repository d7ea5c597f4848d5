#pragma once

#include "benchmarks/levels.h"
#include "benchmarks/peers/peer.h"

#include <map>

namespace bench {

/// The key that is set and saved. The user's level states it.
inline constexpr const char* kSavedKey = "GRID_HR";
inline constexpr int kSavedValue = 508000;

enum class Installation {
    complete, ///< states every key there is, as peers without built-in defaults need it
    sample    ///< states what is to differ from the built-in defaults
};

/// What the levels say. The user contradicts each lock. Writes it to the store's files as well.
/// @param size as in Levels.
Statements stateLevels(const Levels& levels, Installation installation, int size);

/// The values in force.
std::map<std::string, std::vector<std::string>> cascade(const Statements& statements, bool withLocks);

} // namespace bench
