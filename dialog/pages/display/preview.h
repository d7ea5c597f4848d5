#pragma once

namespace ovsettings {

struct DrawItem;

/// A sample that the page "Objects" shows beside a grid, in the colours that the grid holds at the moment.
class IPreview {
public:
    virtual ~IPreview() = default;

    /// Draws the whole sample; an item of any other action than DrawAction::entire is left alone.
    virtual void draw(const DrawItem& item) = 0;
};

} // namespace ovsettings
