#pragma once

#include "dialog/pages/display/fontmaprow.h"
#include "dialog/shell/pagerow.h"
#include "dialog/widgets/grid/gridwnd.h"

#include <memory>
#include <vector>

namespace ovsettings {

class COwnBitmapBtn;

/// The settings of the grid's rows.
std::vector<GridSetting> fontSettings();

/// The stroke fonts of the schematic editor, and the screen font that each is mapped to.
class CFontsGrid : public GridWnd {
    Q_OBJECT

public:
    explicit CFontsGrid(QWidget* parent = nullptr);

    /// Must be given before rows are added, and outlive the grid.
    void setAppConfiguration(Orv::iAppConfiguration* appConfig) { appConfig_ = appConfig; }
    void init();
    /// One for each stroke font.
    void addRows();
    void loadRows();
    void storeRows();
    void followRows(DroppedEdits& dropped);
    /// True if a mapping is another one than when it was loaded or stored.
    bool isModified() const;
    /// The row of the current cell; null if there is none.
    CFontMapRow* currentMapRow() const;

Q_SIGNALS:
    /// The user wants to change the mapping of the current row, or to remove it.
    void editRequested();
    void removeRequested();
    /// Another row has become the current one.
    void rowSelected();

protected:
    bool onClick(int row, int column) override;
    bool onKey(const QKeyEvent& event) override;
    void layoutColumns() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void placeButtons();

    std::vector<std::unique_ptr<CFontMapRow>> rows_;
    Orv::iAppConfiguration* appConfig_ = nullptr;
    COwnBitmapBtn* editButton_;
    COwnBitmapBtn* removeButton_;
};

} // namespace ovsettings
