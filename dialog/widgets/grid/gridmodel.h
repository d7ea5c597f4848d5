#pragma once

#include "dialog/widgets/grid/gridcellstyle.h"

#include <QtCore/QAbstractTableModel>

#include <vector>

namespace ovsettings {

/// The cells of a grid. Its indices count from 0, as those of every model; GridWnd turns them into the
/// grid's own, which count from 1.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    struct Cell {
        QString text;
        GridCellStyle style;
        bool edited = false; ///< the user has set the text since the program last did
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// An edit by the user: changes the text, by EditRole, or the state of a check box.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// New cells are empty; the others keep what they have.
    void setRowCount(int count);
    void setColumnCount(int count);
    void removeRow(int row);
    /// For an invalid index an empty cell.
    const Cell& cell(const QModelIndex& index) const;
    void setText(const QModelIndex& index, const QString& text);
    /// The user entered the text that the cell has already.
    void markEdited(const QModelIndex& index);
    void setStyle(const QModelIndex& index, const GridCellStyle& style);
    QString header(int column) const;
    void setHeader(int column, const QString& text);
    /// What a cell is for, without its value: its style's name, or else the first cell of its row and the
    /// header of its column.
    QString cellName(const QModelIndex& index) const;

Q_SIGNALS:
    /// The user gave a cell another text.
    void edited(const QModelIndex& index);

private:
    Cell& cellAt(const QModelIndex& index);
    QString spokenValue(const Cell& cell) const;

    std::vector<std::vector<Cell>> rows_;
    std::vector<QString> headers_;
};

/// The colour of a cell of kind colour; nothing if its text is no number.
std::optional<QColor> colorOf(const QString& cellText);

} // namespace ovsettings
