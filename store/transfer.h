#pragma once

#include "store/store.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Orv {

/// A row that a save has dealt with.
struct Transferred {
    std::size_t row;
    std::optional<Statement> statement; ///< what the configuration says of it from then on
    std::vector<std::size_t> refused;   ///< the fields that were changed and may not be written
};

/// Writes what the store changed since its load or last save, field by field, and takes out what the user's
/// level held although it inherits the same. What stands under a lock from above is left as it is, and so is
/// an empty value or list, and a value under a lock of its own.
std::vector<Transferred> writeChanges(iAppConfiguration::Impl& store, IOvConfiguration& configuration);

/// Writes all that a level said into a configuration that says nothing. Lock marks cannot be written.
void restoreLevel(const Level& level, IOvConfiguration& configuration);

/// Notes that these rows are in the file.
void settle(iAppConfiguration::Impl& store, std::vector<Transferred>&& rows);

} // namespace Orv
