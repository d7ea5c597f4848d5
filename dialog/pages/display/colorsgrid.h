#pragma once

#include "dialog/widgets/grid/gridwnd.h"
#include "schemes/schemefile.h"

#include <map>

namespace ovsettings {

class CColorsGrid;

/// Which of the two sets of colours is on show.
enum class ColorForm { screen, printer };

/// One palette entry in the grid: its number in one cell, its colour as the interior of the cell to the
/// right.
class CColorCell {
public:
    /// @param row, column of the cell with the number.
    CColorCell(CColorsGrid& grid, int row, int column, int entry);

    /// Packed colours. Setting one shows all colours of the grid in its form.
    void setScreenColor(int color);
    void setPrintColor(int color);
    int color(ColorForm form) const { return form == ColorForm::screen ? screenColor_ : printColor_; }

    /// Writes the two grid cells.
    void write(ColorForm form) const;

private:
    CColorsGrid* grid_;
    int row_;
    int column_;
    int screenColor_ = 0;
    int printColor_ = 0;
    QString text_;
};

/// A row of the grid: the palette entries of its number, from 0, and of that plus 8.
class CColorRow {
public:
    CColorRow(CColorsGrid& grid, int row);

    /// Null if the row does not hold the entry.
    CColorCell* cell(int entry);
    void write(ColorForm form) const;

private:
    std::map<int, CColorCell> cells_;
};

/// The palette: eight rows of two entries. What the user changes lives here alone.
class CColorsGrid : public GridWnd {
    Q_OBJECT

public:
    explicit CColorsGrid(QWidget* parent = nullptr);

    void onInitialUpdate();

    /// The cell of a palette entry; null if there is no such entry.
    CColorCell* cell(int entry);
    /// The packed colour of a palette entry; black if there is no such entry.
    int color(int entry, ColorForm form);
    /// Shows all entries in this form.
    void refresh(ColorForm form);

    void setPreviewEntry(const std::string& word, int entry) { previewEntries_[word] = entry; }
    /// The palette number of a word of the preview. A word that has none gets entry 0.
    int previewEntry(const std::string& word) { return previewEntries_[word]; }

Q_SIGNALS:
    /// The user has given an entry another colour.
    void colorChanged();

protected:
    bool onClick(int row, int column) override;
    void keyPressEvent(QKeyEvent* event) override;
    void layoutColumns() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void chooseColor(int row, int column);

    std::vector<CColorRow> rows_;
    std::map<std::string, int> previewEntries_;
    ColorForm form_ = ColorForm::screen;
};

} // namespace ovsettings
