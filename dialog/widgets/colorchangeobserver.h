#pragma once

namespace ovsettings {

/// Told when the user has given a colour cell another colour.
class IColorChangeObserver {
public:
    virtual ~IColorChangeObserver() = default;

    /// The cell has the new text already.
    /// @param color packed, red in the low byte.
    virtual void onColorChanged(int row, int column, int color) = 0;
};

} // namespace ovsettings
