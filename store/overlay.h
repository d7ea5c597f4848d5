#pragma once

#include "store/level.h"
#include "store/record.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Orv {

/// Lays what one level says of a property over what the levels behind it say.
///
/// Levels are laid from the least to the most specific one, so a lock of the installation is in force before
/// the user's value is seen. What any but the most specific level says becomes the default as well. A level
/// that does not mention the property changes nothing.
/// @param place the level's place in the list of directories; 0 for the most specific one.
void overlay(Record& record, const Statement& statement, std::size_t place);

/// A property as the levels give it, from the catalogue's default on.
/// @param lowest the most specific level that counts: 0 for all, 1 for what the user inherits.
Record recordOf(std::size_t row, const std::vector<Level>& levels, std::size_t lowest = 0);
/// The same, into the memory of a record that there is.
void layRecord(std::size_t row, const std::vector<Level>& levels, std::size_t lowest, Record& record);

/// The values of a property as the levels give it, without a record: what a load needs of most rows.
/// @param fields receives views into the levels and the catalogue.
/// @return false, with nothing to go by, where a level gives a list of another length than the default.
bool layValues(std::size_t row, const std::vector<Level>& levels, std::vector<std::string_view>& fields);

/// Gives a field, or a list, the value and the origin that it has without the most specific level.
void inherit(Record& record, std::size_t field, const std::vector<Level>& levels);

} // namespace Orv
