#pragma once

#include "dialog/widgets/grid/gridcellstyle.h"

#include <QtCore/QString>

#include <string>

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

class GridWnd;

/// A line of the property sheet: a caption, and a value that comes from a key of the configuration and goes
/// back to it. The row's cells are made by init; before that nothing of it is on show.
class CGeneralRow {
public:
    /// @param grid, configuration where the row is shown, and where its key is; both must outlive it.
    /// @param caption the text of the left column, UTF-8.
    CGeneralRow(GridWnd& grid, Orv::iAppConfiguration& configuration, std::string caption);
    virtual ~CGeneralRow();
    CGeneralRow(const CGeneralRow&) = delete;
    CGeneralRow& operator=(const CGeneralRow&) = delete;

    /// Where the key is from now on; must outlive the row.
    void setAppConfiguration(Orv::iAppConfiguration& configuration) { configuration_ = &configuration; }

    /// Puts the displayed value in `text`; rows that stand for their key's text write it too.
    virtual void store(std::string& text) = 0;
    /// Gives the row a value or, for rows of choices, a further choice.
    virtual void setDisplayValue(const std::string& text) = 0;
    /// The configuration key; empty for none.
    virtual void setKey(const std::string& key);
    virtual const std::string& getKey() const;
    /// Makes the row's cells from grid row `rowIndex` on and returns the next free grid row.
    virtual unsigned init(unsigned rowIndex) = 0;
    /// Checks the displayed value; what is wrong with it has been told when the result is false.
    virtual bool validate();
    /// Shows what is stored by now in place of what is on show; an edit in progress is given up.
    void showAnew();
    /// What value() would be if the row showed what its key holds.
    virtual QString storedValue() const;
    /// The text of the value cell, as it is on show.
    QString valueText() const;
    void setValueText(const QString& text);
    /// The row's value as a text that does not depend on the unit in which it is shown.
    virtual QString value() const { return valueText(); }

protected:
    static constexpr int kCaptionColumn = 1;
    static constexpr int kValueColumn = 2;

    GridWnd& grid() const { return grid_; }
    const std::string& caption() const { return caption_; }
    unsigned rowIndex() const { return rowIndex_; }
    /// Takes `rows` grid rows from `rowIndex` on, adding those that the grid does not have yet.
    void takeRows(unsigned rowIndex, unsigned rows = 1);

    void showCaption(const QString& text);
    /// Sets the style of the value cell. A locked one is read-only, looks locked together with its caption,
    /// and says who locks it.
    void showValueStyle(GridCellStyle style, bool locked);
    /// Whether the user has entered a value since one was last put on show.
    bool isValueEdited() const;
    /// False for a locked value, which no check refuses.
    bool isValueUsersToMend() const;
    /// Says what is wrong with the value and goes to its cell.
    void refuseValue(const QString& message);

    /// Reads the key. @return true if it is locked.
    bool readKey(std::string& text) const;
    /// Writes the key if there is one.
    void writeKey(const std::string& text);

private:
    unsigned rowIndex_ = 0;
    GridWnd& grid_;
    Orv::iAppConfiguration* configuration_;
    std::string key_;
    std::string caption_;
};

} // namespace ovsettings
