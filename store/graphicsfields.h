#pragma once

#include "orv/graphics.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// @param kind   a kind with a graphics cache.
/// @param values the property's fields; missing ones read as 0.
Graphics graphicsFromFields(int kind, std::span<const std::string_view> values);

/// Rewrites the fields in normal form. Only fields that exist are touched.
void printGraphics(int kind, const Graphics& graphics, std::vector<std::string>& values);

} // namespace Orv
