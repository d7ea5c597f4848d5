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
    const auto colorOf = [this](std::string_view key) {
        const CMappingRow* row = grid_.rowOfKey(key);
        return toQColor(row ? std::max(row->getColor(), 0) : 0); // negative: the cell is closed
    };
    paintSampleSchematic(item, {
                                   .background = colorOf("BACKGROUND_LAYER"),
                                   .border = colorOf("BORDER_LAYER"),
                                   .box = colorOf("BOX"),
                                   .pin = colorOf("PIN"),
                                   .net = colorOf("NET"),
                                   .label = colorOf("LABEL"),
                                   .attribute = colorOf("ATTRIBUTE"),
                                   .text = colorOf("TEXT"),
                                   .circle = colorOf("CIRCLE"),
                                   .grid = colorOf("GRID_LAYER"),
                               });
}

} // namespace ovsettings
