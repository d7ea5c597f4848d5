#pragma once

#include "dialog/pages/advanced/generalrow.h"
#include "dialog/shell/pagerow.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "orv/metrics.h"

#include <memory>
#include <vector>

namespace ovsettings {

struct ChoiceTable;
class CGeneralRowCheckBox;

/// The settings of the page's sheet; a row of choices may stand for several.
std::vector<GridSetting> generalSettings();

/// A property sheet: a caption on the left, an editable value on the right, each line an object that knows
/// its key.
class CGeneralGrid : public GridWnd {
    Q_OBJECT

public:
    using Rows = std::vector<std::unique_ptr<CGeneralRow>>;

    explicit CGeneralGrid(QWidget* parent = nullptr);

    /// Must be given before rows are built, and outlive the grid.
    void setAppConfiguration(Orv::iAppConfiguration* appConfig);
    Orv::iAppConfiguration& appConfiguration() const { return *appConfig_; }

    /// Builds the rows of the page, their lengths in the configured unit.
    void onInitialUpdate();
    /// Gives a row of choices the choice that is stored, for the next time that its cells are made.
    void readChoice(CGeneralRowCheckBox& row, const ChoiceTable& table) const;
    /// Makes the cells of a row below the others and takes the row over.
    void appendRow(std::unique_ptr<CGeneralRow> row);
    /// Takes over a row whose cells have been made.
    void addRow(std::unique_ptr<CGeneralRow> row);
    /// In the order in which they were added.
    const Rows& rows() const { return rows_; }

protected:
    void layoutColumns() override;

private:
    int widthOfCaptions() const;

    Rows rows_;
    unsigned nextRow_ = 1;
    Orv::iAppConfiguration* appConfig_ = nullptr;
};

} // namespace ovsettings
