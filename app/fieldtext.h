#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace app {

/// What the program calls a kind of property.
std::string_view kindName(int kind);

/// Why a field cannot hold a text, or nothing if it can.
/// @param kind  the property's kind.
/// @param field index of the field, from 0.
std::optional<std::string> objectionToText(int kind, std::size_t field, std::string_view text);

/// True if the two texts mean the same to the field: 0x00FF00 and 0x00ff00 do, and so do 1016000
/// and 1.016e+06.
bool sameMeaning(int kind, std::size_t field, std::string_view one, std::string_view other);

} // namespace app
