#pragma once

#include "dialog/pages/display/preview.h"

namespace ovsettings {

class CObjectColorDialog;

/// A piece of schematic in the colours of the page's grid "OV".
class COvPreview : public IPreview {
public:
    /// @param page must outlive the preview.
    explicit COvPreview(const CObjectColorDialog& page);

    void draw(const DrawItem& item) override;

private:
    const CObjectColorDialog& page_;
};

} // namespace ovsettings
