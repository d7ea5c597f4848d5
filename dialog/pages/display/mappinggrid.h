#pragma once

#include "dialog/pages/display/mappingrow.h"
#include "dialog/widgets/colorchangeobserver.h"
#include "dialog/widgets/grid/gridwnd.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

class ColorButton;

/// How each kind of object is drawn: a table with a row a kind, and the columns "Object", "Color", "Text",
/// "Fill Style", "Line Style", "Font" and "Width".
class CMappingGrid : public GridWnd {
    Q_OBJECT

public:
    /// Tells its grid of a colour that the user has chosen.
    class CMappingGridColorChangeNotifier : public IColorChangeObserver {
    public:
        explicit CMappingGridColorChangeNotifier(CMappingGrid& grid) : grid_(grid) {}
        void onColorChanged(int row, int column, int color) override;

    private:
        CMappingGrid& grid_;
    };

    explicit CMappingGrid(QWidget* parent = nullptr);
    ~CMappingGrid() override;

    /// Must be given before rows are added, and outlive the grid.
    void setAppConfiguration(Orv::iAppConfiguration* appConfig) { appConfig_ = appConfig; }
    void setMode(std::string mode) { mode_ = std::move(mode); }
    const std::string& mode() const { return mode_; }
    /// What is repainted at each change of a colour; not owned.
    void setPreview(QWidget* preview) { preview_ = preview; }

    /// Makes the header and the controls of the cells, which offer the configured palette.
    void init();

    /// Each adds a row at the end and fills it from the configuration.
    void addRow(const std::string& caption, const std::string& key, const MappingValues& values);
    void addLayerRow(const std::string& caption, const std::string& key, const MappingValues& values);
    void addTextRow(const std::string& caption, const std::string& key, const MappingValues& values);
    /// @param key without its "ICT".
    void addIctRow(const std::string& caption, const std::string& key, int startingColor, int spare = 0);

    int mappingRowCount() const { return static_cast<int>(rows_.size()); }
    /// @param row from 1; null outside the table.
    CMappingRow* mappingRow(int row) const;
    /// The row of a key as it was added; null if there is none.
    CMappingRow* rowOfKey(std::string_view key) const;

    /// Ends the edit of the current cell and, unless its text is refused, asks every row; what is wrong has
    /// been told if the result is false.
    bool validate();
    /// Writes all rows to the configuration.
    void store();
    /// True if a cell stands for another value than when it was filled, or than at the last setUnchanged; the
    /// text of an open editor counts.
    bool isModified() const;
    void setUnchanged();
    /// Shows what others have stored since; see CMappingRow::follow.
    void follow(DroppedEdits& dropped);
    /// The same since the last setUnchanged or setSaved.
    bool hasUnsavedEdits() const;
    void setSaved();
    /// The user has given a cell another colour, packed.
    void changeColor(int row, int column, int color);

protected:
    QString refusal(int row, int column, const QString& text) const override;
    void onCellPressed(int row, int column) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void layoutColumns() override;
    void changeEvent(QEvent* event) override;

private:
    void offerPalette();
    template <typename Row, typename... Arguments>
    void append(const std::string& caption, const std::string& key, Arguments&&... arguments);

    std::vector<std::unique_ptr<CMappingRow>> rows_;
    std::map<std::string, CMappingRow*, std::less<>> rowsOfKeys_;
    std::map<int, std::string> keysOfRows_;
    std::string mode_;
    Orv::iAppConfiguration* appConfig_ = nullptr;
    QWidget* preview_ = nullptr;
    CMappingGridColorChangeNotifier notifier_;
    ColorButton* colorButton_ = nullptr;
};

} // namespace ovsettings
