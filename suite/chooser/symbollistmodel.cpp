#include "suite/chooser/symbollistmodel.h"

#include "platform/plaintext.h"

#include <algorithm>
#include <utility>

namespace cldialog {

SymbolListModel::SymbolListModel(const SymbolTable& table, QObject* parent)
    : QAbstractListModel(parent), table_(table) {
}

void SymbolListModel::show(std::vector<SymbolRange> ranges, SymbolQuery query) {
    beginResetModel();
    // Mostly a letter was appended, and what does not match the shorter text need not be looked at again.
    const bool isNarrower = ranges == ranges_ && query.narrows(query_);
    ranges_ = std::move(ranges);
    query_ = std::move(query);
    if (isNarrower) {
        std::erase_if(rows_, [this](SymbolId symbol) { return !query_.matches(table_.key(symbol)); });
    } else {
        rows_.clear();
        for (const SymbolRange& range : ranges_) {
            for (SymbolId symbol = range.begin; symbol < range.end; ++symbol) {
                if (query_.matches(table_.key(symbol)))
                    rows_.push_back(symbol);
            }
        }
    }
    endResetModel();
}

std::optional<int> SymbolListModel::rowOf(SymbolId symbol) const {
    const auto row = std::ranges::find(rows_, symbol);
    if (row == rows_.end())
        return std::nullopt;
    return static_cast<int>(row - rows_.begin());
}

std::optional<int> SymbolListModel::nearestRow() const {
    if (rows_.empty() || query_.isEmpty())
        return std::nullopt;
    auto nearest = SymbolQuery::Nearness::somewhere;
    std::size_t row = 0;
    for (std::size_t i = 0; i < rows_.size() && nearest != SymbolQuery::Nearness::exact; ++i) {
        if (const auto nearness = query_.nearness(table_.key(rows_[i])); nearness < nearest) {
            nearest = nearness;
            row = i;
        }
    }
    return static_cast<int>(row);
}

int SymbolListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant SymbolListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const QString name = QString::fromStdString(table_.name(symbolAt(index.row())));
    // A long name is cut in the list.
    return role == Qt::ToolTipRole ? platform::toToolTip(name) : name;
}

} // namespace cldialog
