#pragma once

#include "dialog/pages/advanced/generalrowcheckbox.h"

namespace ovsettings {

/// A row that chooses between two key binding scripts: "1" stands for that of the Lorvik style, "0" for the
/// product's own. Its value is the script's file name.
class CGeneralLorvikKeyBindingsCheckBox : public CGeneralRowCheckBox {
public:
    using CGeneralRowCheckBox::CGeneralRowCheckBox;

    void store(std::string& text) override;
    /// The text is a script's file name.
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;

private:
    std::string checked_;
};

} // namespace ovsettings
