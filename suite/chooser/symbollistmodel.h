#pragma once

#include "suite/chooser/symboltable.h"

#include <QtCore/QAbstractListModel>

#include <optional>
#include <vector>

namespace cldialog {

/// The symbols of some ranges of a table that match a query, in the order of the ranges.
class SymbolListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// @param table must outlive the model.
    SymbolListModel(const SymbolTable& table, QObject* parent);

    void show(std::vector<SymbolRange> ranges, SymbolQuery query);

    SymbolId symbolAt(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    std::optional<int> rowOf(SymbolId symbol) const;
    /// The first of the rows that are nearest to what was typed; nothing without rows or words.
    std::optional<int> nearestRow() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const SymbolTable& table_;
    std::vector<SymbolRange> ranges_;
    SymbolQuery query_;
    std::vector<SymbolId> rows_;
};

} // namespace cldialog
