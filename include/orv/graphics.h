#pragma once

namespace Orv {

/// The typed form of an object, a layer or an object of the interconnectivity table, as the store's cache
/// holds it. Colours are packed, red in the low byte, then green, then blue. A layer uses `colour`,
/// `fillStyle` and `lineStyle`; an object of the interconnectivity table has its text colour in `fillStyle`;
/// what a kind does not use is 0.
struct Graphics {
    int visible = 0;
    int selectable = 0;
    int colour = 0;
    int fillStyle = 0;
    int lineStyle = 0;
    int lineThickness = 0;

    bool operator==(const Graphics&) const = default;
};

} // namespace Orv
