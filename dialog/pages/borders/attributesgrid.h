#pragma once

#include "dialog/pages/borders/attributes.h"
#include "dialog/widgets/grid/gridwnd.h"

#include <string>
#include <vector>

namespace ovsettings {

/// A table of properties, with the columns "Name" and "Value". While names are on offer that have no row yet,
/// a last row offers them; the one that is chosen there becomes a row.
class CAttributesGrid : public GridWnd {
    Q_OBJECT

public:
    explicit CAttributesGrid(QWidget* parent = nullptr);

    void fill(const Attributes& attributes, const KnownValues& known, std::vector<std::string> names);
    /// The rows from top to bottom, but for the one that offers names.
    Attributes attributes() const;
    void removeCurrentRow();

protected:
    void onCellChanged(int row, int column) override;
    void layoutColumns() override;

private:
    bool isOffer(int row) const { return offering_ && row == rowCount(); }
    int attributeCount() const { return rowCount() - (offering_ ? 1 : 0); }
    void showAttribute(int row, const QString& name, const QString& value);
    void offerNames();
    QStringList choicesFor(const QString& name, const QString& value) const;

    KnownValues known_;
    std::vector<std::string> names_;
    bool offering_ = false;
};

} // namespace ovsettings
