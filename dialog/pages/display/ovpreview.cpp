#include "dialog/pages/display/ovpreview.h"

#include "dialog/pages/display/mappinggrid.h"
#include "dialog/pages/display/mappingrow.h"
#include "dialog/pages/display/sampleschematic.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/ownerdrawbutton.h"

#include <algorithm>
#include <string_view>

namespace ovsettings {

COvPreview::COvPreview(const CMappingGrid& grid) : grid_(grid) {
}

void COvPreview::draw(const DrawItem& item) {
    if (item.action != DrawAction::entire)
        return;
    const auto colourOf = [this](std::string_view key) {
        const CMappingRow* row = grid_.rowOfKey(key);
        return toQColor(row ? std::max(row->getColor(), 0) : 0); // negative: the cell is closed
    };
    paintSampleSchematic(item, {
                                   .background = colourOf("BACKGROUND_LAYER"),
                                   .border = colourOf("BORDER_LAYER"),
                                   .box = colourOf("BOX"),
                                   .pin = colourOf("PIN"),
                                   .net = colourOf("NET"),
                                   .label = colourOf("LABEL"),
                                   .attribute = colourOf("ATTRIBUTE"),
                                   .text = colourOf("TEXT"),
                                   .circle = colourOf("CIRCLE"),
                                   .grid = colourOf("GRID_LAYER"),
                               });
}

} // namespace ovsettings
