#pragma once

#include "dialog/shell/followsconfiguration.h"

#include <QtCore/QString>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class QColor;

namespace ovsettings {

class GridWnd;
struct GridCellStyle;

/// The six values that a row begins with. -1 closes a column for the row; any other value opens it, and the
/// configuration then gives the true one. Colours are packed, red in the low byte.
struct MappingValues {
    int color = -1;
    int textColor = -1;
    int fill = -1;
    int line = -1;
    int font = -1;
    int width = -1;

    bool operator==(const MappingValues&) const = default;
};

/// Where the values of a row stand in its key, from 0, and which column shows the first colour.
struct MappingFields {
    int colorColumn;
    std::size_t color;
    std::size_t textColor;
    std::size_t fillOrFont;
    std::size_t line;
    std::size_t width;
};

/// A line of the table of objects: translates between the fields of one configuration key and its cells. This
/// one serves the kinds of objects; its colour is in the column "Color".
class CMappingRow {
public:
    static constexpr int kCaptionColumn = 1;
    static constexpr int kColorColumn = 2;
    static constexpr int kTextColumn = 3;
    static constexpr int kFillColumn = 4;
    static constexpr int kLineColumn = 5;
    static constexpr int kFontColumn = 6;
    static constexpr int kWidthColumn = 7;
    static constexpr int kColumns = 7;

    /// Index to name.
    using Names = std::map<int, std::string>;

    /// @param grid, configuration where the row is shown, and where its key is; both must outlive it.
    /// @param row of the grid, from 1.
    CMappingRow(GridWnd& grid, Orv::iAppConfiguration& configuration, int row, std::string caption,
                std::string key, const MappingValues& values);
    virtual ~CMappingRow();
    CMappingRow(const CMappingRow&) = delete;
    CMappingRow& operator=(const CMappingRow&) = delete;

    /// Checks the cells; what is wrong with them has been told when the result is false.
    virtual bool validate();
    /// Writes the cells' values to the configuration.
    virtual void store();
    /// Takes the colours of a scheme, in hexadecimal, red first: the first for the column "Color", the second
    /// for the column "Text". A locked colour stays.
    virtual void applySchema(const std::string& color, const std::string& text);
    virtual std::string getSchemaKey() const;
    /// Colours are packed; -1 stands for a closed column.
    virtual void setColor(int color);
    virtual int getColor() const;
    virtual void setTextColor(int color);
    virtual int getTextColor() const;
    /// The indices of the names on show; -1 for a closed column, 0 for a text that is no name.
    virtual void setFill(int fill);
    virtual int getFill() const;
    virtual void setLine(int line);
    virtual int getLine() const;
    virtual void setFont(int font);
    virtual int getFont() const;
    virtual void setWidth(int width);
    /// -1 for a closed column, and for a text that holds anything but digits.
    virtual int getWidth() const;
    /// Fills the row's cells from the configuration.
    virtual void read();

    /// Shows what the key holds by now, if that is not what it held when the row was last filled or stored;
    /// cells that the user has changed stay, unless their field was locked meanwhile.
    void follow(DroppedEdits& dropped);
    /// Takes what the key holds now for what the cells were made from.
    void noteStored();

    /// The colour behind cells that are closed or locked.
    static QColor closedInterior(const GridWnd& grid);

    int row() const { return row_; }
    const std::string& caption() const { return caption_; }
    /// The key in the configuration.
    const std::string& key() const { return key_; }

    /// True if a cell stands for another value than after the last setUnchanged.
    bool isModified() const;
    /// From now on the values on show count as unchanged.
    void setUnchanged();
    /// True if a cell stands for another value than after the last setUnchanged or setSaved.
    bool hasUnsavedEdits() const;
    /// The values on show have been saved. The host is still to be told of them, so isModified stays as it
    /// is.
    void setSaved();

protected:
    /// Shows the caption and all fields of the key. A cell is closed if its column is, or if the key does not
    /// have its field; the value is then -1.
    void readCells(const MappingFields& fields);
    bool isLocked(std::size_t field) const;
    void storeField(std::size_t field, int number);
    void storeColor(std::size_t field, int color);
    void storeFontOrFill(std::size_t field);
    void showColor(int column, int color);
    void takeSchemaColors(const MappingFields& fields, const std::string& color, const std::string& text);

    Orv::iAppConfiguration& configuration() const { return configuration_; }

    int color_;
    int textColor_;
    int fill_;
    int line_;
    int font_;
    int width_;
    /// Each row has names of its own, since it adds an empty one for an index that has none.
    Names fillNames_;
    Names lineNames_;
    Names fontNames_;

private:
    /// True if the field is there to be shown; otherwise its cell is closed, and so is `value`.
    bool opens(int column, int& value, std::size_t field);
    void showCell(int column, const GridCellStyle& style, const QString& text);
    /// A locked cell is grey, keeps what it shows, and says who locks it.
    void showField(int column, GridCellStyle style, std::size_t field, const QString& text);
    void readColor(int column, int& color, std::size_t field);
    void readName(int column, int& index, Names& names, std::size_t field);
    void readWidth(std::size_t field);
    QString cellText(int column) const;
    void keepCell(int column, const QString& text);
    MappingValues shownValues() const;
    int indexOfName(const Names& names, int column, int index) const;

    int row_;
    std::string caption_;
    std::string key_;
    GridWnd& grid_;
    Orv::iAppConfiguration& configuration_;
    const MappingFields* fields_ = nullptr; ///< of the last read
    std::vector<std::string> values_;
    std::vector<bool> readOnly_;
    MappingValues unchanged_;
    MappingValues saved_;
};

/// A row for the kinds of layers.
class CMappingRowLayer : public CMappingRow {
public:
    using CMappingRow::CMappingRow;

    void store() override;
    void applySchema(const std::string& color, const std::string& text) override;
    std::string getSchemaKey() const override;
    void read() override;
};

/// A row for an object that is a text: its one colour is in the column "Text".
class CMappingTextLayer : public CMappingRow {
public:
    CMappingTextLayer(GridWnd& grid, Orv::iAppConfiguration& configuration, int row, std::string caption,
                      std::string key, const MappingValues& values);

    void applySchema(const std::string& color, const std::string& text) override;
    void setColor(int color) override;
    void setTextColor(int color) override;
    int getTextColor() const override;
    void read() override;
};

/// A row for an object of an interconnectivity table: a colour and a text colour.
class CMappingICTObject : public CMappingRow {
public:
    /// @param name the key in the configuration without its "ICT".
    CMappingICTObject(GridWnd& grid, Orv::iAppConfiguration& configuration, int row, std::string caption,
                      std::string name, int startingColor);

    /// The key of an object of that name.
    static std::string keyOf(const std::string& name) { return "ICT" + name; }

    void store() override;
    void applySchema(const std::string& color, const std::string& text) override;
    void read() override;

private:
    std::string name_;
};

} // namespace ovsettings
