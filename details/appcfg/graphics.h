#pragma once

#include <string>
#include <vector>

namespace Orv {

/// The typed form of an object, a layer or an object of the interconnectivity table. The last keeps its text
/// colour in the fill style; what a kind does not use is 0. Colours have red in the low byte.
struct Graphics {
    int visible = 0;
    int selectable = 0;
    int colour = 0;
    int fillStyle = 0;
    int lineStyle = 0;
    int lineThickness = 0;
};

/// @param kind   a kind with a graphics cache.
/// @param values the property's fields; missing ones read as 0.
Graphics graphicsFromFields(int kind, const std::vector<std::string>& values);

/// Rewrites the fields in normal form. Only fields that exist are touched.
void printGraphics(int kind, const Graphics& graphics, std::vector<std::string>& values);

} // namespace Orv
