#include "dialog/widgets/grid/gridmodel.h"

#include "platform/plaintext.h"

#include <QtGui/QBrush>

#include <utility>

namespace ovsettings {

namespace {

constexpr int kLightFromGrey = 128;

QString onOneLine(QString text) {
    return text.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

bool showsItsText(GridCellKind kind) {
    return kind == GridCellKind::text || kind == GridCellKind::maskedEdit || kind == GridCellKind::dropDown;
}

QColor textColorOn(const QColor& interior) {
    return qGray(interior.rgb()) < kLightFromGrey ? Qt::white : Qt::black;
}

} // namespace

std::optional<QColor> colorOf(const QString& cellText) {
    bool isNumber = false;
    const int packed = static_cast<int>(cellText.toUInt(&isNumber));
    if (!isNumber)
        return std::nullopt;
    return QColor(packed & 0xff, (packed >> 8) & 0xff, (packed >> 16) & 0xff);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headers_.size());
}

const GridModel::Cell& GridModel::cell(const QModelIndex& index) const {
    static const Cell kNoCell;
    if (!index.isValid())
        return kNoCell;
    return rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
}

GridModel::Cell& GridModel::cellAt(const QModelIndex& index) {
    return rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const Cell& shown = cell(index);
    switch (role) {
    case Qt::DisplayRole:
        return showsItsText(shown.style.kind) ? onOneLine(shown.text) : QString();
    case Qt::EditRole:
        return shown.text;
    case Qt::CheckStateRole:
        if (shown.style.kind == GridCellKind::checkBox)
            return shown.text == QLatin1String("1") ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::BackgroundRole:
        return shown.style.interior ? QVariant(QBrush(*shown.style.interior)) : QVariant();
    case Qt::ForegroundRole:
        return shown.style.interior ? QVariant(textColorOn(*shown.style.interior)) : QVariant();
    case Qt::ToolTipRole:
        return platform::toToolTip(shown.style.toolTip);
    case Qt::AccessibleDescriptionRole:
        return shown.style.toolTip;
    case Qt::AccessibleTextRole: {
        QStringList parts{cellName(index), spokenValue(shown)};
        parts.removeAll(QString());
        return parts.join(QLatin1String(", "));
    }
    default:
        return {};
    }
}

QString GridModel::spokenValue(const Cell& cell) const {
    switch (cell.style.kind) {
    case GridCellKind::checkBox:
        return cell.text == QLatin1String("1") ? tr("checked") : tr("not checked");
    case GridCellKind::radioGroup:
        return cell.style.choices.value(cell.text.toInt());
    case GridCellKind::color: {
        const std::optional<QColor> color = colorOf(cell.text);
        return color ? color->name() : QString();
    }
    default:
        return onOneLine(cell.text);
    }
}

QString GridModel::cellName(const QModelIndex& index) const {
    if (const QString& name = cell(index).style.accessibleName; !name.isEmpty())
        return name;
    QStringList parts;
    if (index.column() > 0)
        parts << onOneLine(cell(index.siblingAtColumn(0)).text);
    parts << header(index.column());
    parts.removeAll(QString());
    // A property sheet has captions in its first column; in a table the rows are told apart by number.
    if (index.column() == 0 && !header(0).isEmpty())
        parts << QString::number(index.row() + 1);
    return parts.join(QLatin1String(", "));
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || (role != Qt::EditRole && role != Qt::CheckStateRole))
        return false;
    const bool checked = role == Qt::CheckStateRole && value.toInt() == Qt::Checked;
    setText(index, role == Qt::EditRole ? value.toString() : QString::number(checked ? 1 : 0));
    markEdited(index);
    Q_EMIT edited(index);
    return true;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    const GridCellStyle& style = cell(index).style;
    if (!index.isValid() || !style.enabled)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!style.readOnly && showsItsText(style.kind))
        flags |= Qt::ItemIsEditable;
    if (!style.readOnly && style.kind == GridCellKind::checkBox)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return header(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

void GridModel::setRowCount(int count) {
    const int present = rowCount();
    if (count > present) {
        beginInsertRows({}, present, count - 1);
        rows_.resize(static_cast<std::size_t>(count), std::vector<Cell>(headers_.size()));
        endInsertRows();
    } else if (count < present) {
        beginRemoveRows({}, count, present - 1);
        rows_.resize(static_cast<std::size_t>(count));
        endRemoveRows();
    }
}

void GridModel::removeRow(int row) {
    if (row < 0 || row >= rowCount())
        return;
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
}

void GridModel::setColumnCount(int count) {
    const int present = columnCount();
    if (count == present)
        return;
    const bool grows = count > present;
    if (grows)
        beginInsertColumns({}, present, count - 1);
    else
        beginRemoveColumns({}, count, present - 1);
    headers_.resize(static_cast<std::size_t>(count));
    for (std::vector<Cell>& row : rows_)
        row.resize(static_cast<std::size_t>(count));
    if (grows)
        endInsertColumns();
    else
        endRemoveColumns();
}

void GridModel::setText(const QModelIndex& index, const QString& text) {
    if (!index.isValid())
        return;
    Cell& cell = cellAt(index);
    cell.text = text;
    cell.edited = false;
    Q_EMIT dataChanged(index, index);
}

void GridModel::markEdited(const QModelIndex& index) {
    if (index.isValid())
        cellAt(index).edited = true;
}

void GridModel::setStyle(const QModelIndex& index, const GridCellStyle& style) {
    if (!index.isValid())
        return;
    cellAt(index).style = style;
    Q_EMIT dataChanged(index, index);
}

QString GridModel::header(int column) const {
    const auto at = static_cast<std::size_t>(column);
    return column >= 0 && at < headers_.size() ? headers_[at] : QString();
}

void GridModel::setHeader(int column, const QString& text) {
    if (column < 0 || column >= columnCount())
        return;
    headers_[static_cast<std::size_t>(column)] = text;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

} // namespace ovsettings
