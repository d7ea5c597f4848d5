#pragma once

#include "dialog/pages/display/preview.h"

namespace ovsettings {

class CMappingGrid;

/// A piece of schematic in the colours of a grid of schematic objects.
class COvPreview : public IPreview {
public:
    /// @param grid must outlive the preview.
    explicit COvPreview(const CMappingGrid& grid);

    void draw(const DrawItem& item) override;

private:
    const CMappingGrid& grid_;
};

} // namespace ovsettings
