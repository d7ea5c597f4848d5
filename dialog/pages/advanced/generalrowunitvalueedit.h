#pragma once

#include "dialog/pages/advanced/generalrow.h"
#include "orv/metrics.h"

namespace ovsettings {

/// A row for a length, shown in a unit that its caption names.
class CGeneralRowUnitValueEdit : public CGeneralRow {
public:
    CGeneralRowUnitValueEdit(GridWnd& grid, Orv::iAppConfiguration& configuration, std::string caption,
                             Orv::Metrics::Unit unit);

    /// In stored lengths. Equal limits, as at first, mean that there are none.
    void setLimits(long minimum, long maximum);
    /// Shows the same length in another unit; an unsaved edit survives.
    void onUnitChanged(Orv::Metrics::Unit unit);

    void store(std::string& text) override;
    /// The text is a stored length.
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;
    bool validate() override;
    QString value() const override;
    QString storedValue() const override;

private:
    void showUnitCaption();
    void showLength(long length);
    long length() const;
    QString lengthText(long length) const;

    long minimum_ = 0;
    long maximum_ = 0;
    Orv::Metrics::Unit unit_;
    long shown_ = 0;
};

} // namespace ovsettings
