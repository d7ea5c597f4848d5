#pragma once

#include "dialog/pages/display/preview.h"

#include <QtGui/QFont>
#include <QtGui/QPixmap>

#include <string_view>
#include <vector>

class QRect;

namespace ovsettings {

class CMappingRow;
class CObjectColorDialog;
class GdiPainter;

/// A piece of interconnectivity table in the colours of the page's grid "ICT": blocks are its columns, nets
/// its rows.
class CICEPreview : public IPreview {
public:
    /// @param page must outlive the preview.
    explicit CICEPreview(const CObjectColorDialog& page);

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

    const CObjectColorDialog& page_;
    std::vector<SampleItem> blocks_;
    std::vector<SampleItem> nets_;
    QPixmap tiles_;
    QFont font_;
};

} // namespace ovsettings
