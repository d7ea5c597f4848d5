#pragma once

#include "store/store.h"

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

/// Gives a field, or a list, the value and the origin that it has without the most specific level.
void inherit(Record& record, std::size_t field, const std::vector<Level>& levels);

} // namespace Orv
