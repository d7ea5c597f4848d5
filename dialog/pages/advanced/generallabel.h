#pragma once

#include "dialog/pages/advanced/generalrow.h"

namespace ovsettings {

/// A row that is nothing but its caption.
class CGeneralLabel : public CGeneralRow {
public:
    using CGeneralRow::CGeneralRow;

    /// Both do nothing.
    void store(std::string& text) override;
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;
};

} // namespace ovsettings
