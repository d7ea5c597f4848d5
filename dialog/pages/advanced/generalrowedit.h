#pragma once

#include "dialog/pages/advanced/generalrow.h"

namespace ovsettings {

/// A row for a whole number of up to seven digits.
class CGeneralRowEdit : public CGeneralRow {
public:
    using CGeneralRow::CGeneralRow;

    /// Equal limits, as at first, mean that there are none.
    void setLimits(long minimum, long maximum);
    /// What the user is told of a value outside the limits.
    void setErrorText(const std::string& text);

    void store(std::string& text) override;
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;
    bool validate() override;

private:
    long minimum_ = 0;
    long maximum_ = 0;
    std::string errorText_ = QT_TRANSLATE_NOOP("ovsettings", "Incorrect value");
};

} // namespace ovsettings
