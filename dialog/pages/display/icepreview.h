#pragma once

#include "dialog/pages/display/preview.h"

#include <QtGui/QFont>
#include <QtGui/QPixmap>

#include <string_view>
#include <vector>

class QRect;

namespace ovsettings {

class CMappingGrid;
class CMappingRow;
class GdiPainter;

/// A piece of interconnectivity table in the colours of a grid of ICT objects: blocks are the table's
/// columns, nets its rows.
class CICEPreview : public IPreview {
public:
    /// @param grid must outlive the preview.
    explicit CICEPreview(const CMappingGrid& grid);

    void draw(const DrawItem& item) override;

private:
    struct SampleItem {
        std::string_view key;
        const char* caption; ///< which the sample does not write
        int number;
        int indent;
    };

    static const SampleItem kBlockItems[];
    static const SampleItem kNetItems[];

    const CMappingRow* rowOf(std::string_view key) const;
    void drawHeaders(const DrawItem& item, GdiPainter& gdi) const;
    void drawCells(GdiPainter& gdi) const;
    void drawRules(GdiPainter& gdi) const;
    void drawItem(const DrawItem& item, GdiPainter& gdi, QRect place, const SampleItem& sample) const;

    const CMappingGrid& grid_;
    std::vector<SampleItem> blocks_;
    std::vector<SampleItem> nets_;
    QPixmap tiles_;
    QFont font_;
};

} // namespace ovsettings
