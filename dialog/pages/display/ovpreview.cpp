#include "dialog/pages/display/ovpreview.h"

#include "dialog/pages/display/mappinggrid.h"
#include "dialog/pages/display/mappingrow.h"
#include "dialog/pages/display/objectcolordialog.h"
#include "dialog/pages/display/sampleschematic.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/ownerdrawbutton.h"

#include <algorithm>
#include <string_view>

namespace ovsettings {

COvPreview::COvPreview(const CObjectColorDialog& page) : page_(page) {
}

void COvPreview::draw(const DrawItem& item) {
    const CMappingGrid* grid = page_.grid("OV");
    if (item.action != DrawAction::entire || !grid)
        return;
    const auto colourOf = [grid](std::string_view key) {
        const CMappingRow* row = grid->rowOfKey(key);
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
