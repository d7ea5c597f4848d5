#pragma once

#include "dialog/pages/advanced/generalrow.h"

namespace ovsettings {

/// A row with a radio group below its caption. The value is the index of a choice, from 0; it writes no key,
/// as the drop-down row does not.
class CGeneralRowRadio : public CGeneralRow {
public:
    using CGeneralRow::CGeneralRow;

    void setCurrent(int current);
    void setHorizontal(bool horizontal);

    void store(std::string& text) override;
    /// Adds a choice; a line feed in it makes two of it.
    void setDisplayValue(const std::string& text) override;
    /// Takes three grid rows: the caption, the group, and a line below.
    unsigned init(unsigned rowIndex) override;

private:
    std::string choices_;
    int current_ = 0;
    bool horizontal_ = false;
};

} // namespace ovsettings
