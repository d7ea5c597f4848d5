#pragma once

#include "dialog/pages/advanced/generalrow.h"

namespace ovsettings {

/// A row for a flag, "1" or "0". Any other stored text counts as off and stays what it is until it is
/// toggled.
class CGeneralCheckBox : public CGeneralRow {
public:
    using CGeneralRow::CGeneralRow;

    void store(std::string& text) override;
    /// Ignores its argument and shows the key's value again.
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;

private:
    void showKey();
};

} // namespace ovsettings
