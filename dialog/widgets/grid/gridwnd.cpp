#include "dialog/widgets/grid/gridwnd.h"

#include "dialog/widgets/grid/griddelegate.h"
#include "dialog/widgets/grid/gridmodel.h"
#include "dialog/widgets/messagebox.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <cstdlib>

namespace ovsettings {

namespace {

bool movesCurrent(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

GridWnd::GridWnd(QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)), delegate_(new GridDelegate(*this, *model_, this)) {
    setModel(model_);
    setItemDelegate(delegate_);
    setSelectionMode(SingleSelection);
    setEditTriggers(AnyKeyPressed);
    setTabKeyNavigation(false); // the grid has a way of its own through its cells
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRowHeights();
    connect(model_, &GridModel::edited, this,
            [this](const QModelIndex& index) { onCellChanged(index.row() + 1, index.column() + 1); });
    connect(this, &QTableView::clicked, this, &GridWnd::clickCell);
}

/// Closes an editor that is still open. The base class would destroy it later: it would lose the focus then,
/// and ask this object, which is gone by that time, to end its edit.
GridWnd::~GridWnd() {
    if (isEditing())
        GridWnd::closeEditor(delegate_->editor(), QAbstractItemDelegate::RevertModelCache);
}

void GridWnd::setRowCount(int count) {
    model_->setRowCount(count);
}

void GridWnd::setColumnCount(int count) {
    model_->setColumnCount(count);
}

int GridWnd::rowCount() const {
    return model_->rowCount();
}

void GridWnd::removeRow(int row) {
    if (isEditing() && delegate_->editedIndex().row() == row - 1)
        revertEdit();
    model_->removeRow(row - 1);
}

int GridWnd::columnCount() const {
    return model_->columnCount();
}

QModelIndex GridWnd::indexOf(int row, int column) const {
    return model_->index(row - 1, column - 1);
}

void GridWnd::setCellText(int row, int column, const QString& text) {
    if (row == 0)
        model_->setHeader(column - 1, text);
    else
        model_->setText(indexOf(row, column), text);
}

QString GridWnd::cellText(int row, int column) const {
    if (row == 0)
        return model_->header(column - 1);
    const QModelIndex index = indexOf(row, column);
    return isEditing() && index == delegate_->editedIndex() ? delegate_->editorText()
                                                            : model_->cell(index).text;
}

bool GridWnd::isCellEdited(int row, int column) const {
    const QModelIndex index = indexOf(row, column);
    return model_->cell(index).edited ||
           (isEditing() && index == delegate_->editedIndex() && delegate_->isEditorTouched());
}

void GridWnd::setCellStyle(int row, int column, const GridCellStyle& style) {
    model_->setStyle(indexOf(row, column), style);
    fitRowHeight(row, style);
}

GridCellStyle GridWnd::cellStyle(int row, int column) const {
    return model_->cell(indexOf(row, column)).style;
}

void GridWnd::joinCells(int row, int column, int columns) {
    setSpan(row - 1, column - 1, 1, columns);
    // What lies under the joined cell is out of sight, and out of reach.
    for (int covered = column + 1; covered < column + columns; ++covered)
        setCellStyle(row, covered, {.readOnly = true, .enabled = false});
}

void GridWnd::setWidthOfColumn(int column, int width) {
    setColumnWidth(column - 1, width);
}

int GridWnd::widthOfColumn(int column) const {
    return columnWidth(column - 1);
}

int GridWnd::clientWidth() const {
    return viewport()->width();
}

void GridWnd::showHeaders(bool columnHeaders, bool rowHeaders) {
    horizontalHeader()->setVisible(columnHeaders);
    verticalHeader()->setVisible(rowHeaders);
}

int GridWnd::currentRow() const {
    return currentIndex().row() + 1;
}

int GridWnd::currentColumn() const {
    return currentIndex().column() + 1;
}

void GridWnd::setCurrentCell(int row, int column) {
    if (endEdit())
        setCurrentIndex(indexOf(row, column));
}

void GridWnd::startEdit() {
    const QModelIndex index = currentIndex();
    const GridModel::Cell& cell = model_->cell(index);
    if (!index.isValid() || cell.style.readOnly)
        return;
    switch (cell.style.kind) {
    case GridCellKind::checkBox: {
        const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        model_->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        break;
    }
    case GridCellKind::radioGroup:
        if (const auto count = static_cast<int>(cell.style.choices.size()); count > 0)
            model_->setData(index, QString::number((cell.text.toInt() + 1) % count), Qt::EditRole);
        break;
    case GridCellKind::color:
        onCellPressed(index.row() + 1, index.column() + 1);
        break;
    case GridCellKind::dropDown:
        if (cell.style.typed)
            edit(index);
        else
            openList();
        break;
    case GridCellKind::text:
    case GridCellKind::maskedEdit:
        edit(index);
        break;
    }
}

void GridWnd::openList() {
    if (model_->cell(currentIndex()).style.readOnly)
        return;
    edit(currentIndex());
    if (auto* list = qobject_cast<QComboBox*>(delegate_->editor()))
        list->showPopup();
}

bool GridWnd::isEditing() const {
    return delegate_->editor() != nullptr;
}

QString GridWnd::refusalOfEdit() const {
    const QModelIndex index = delegate_->editedIndex();
    return refusal(index.row() + 1, index.column() + 1, delegate_->editorText());
}

void GridWnd::commitEdit() {
    // While a text is typed it may not fit its mask yet. Such a text is not stored.
    const auto* edit = qobject_cast<QLineEdit*>(delegate_->editor());
    if (!edit || edit->hasAcceptableInput())
        commitData(delegate_->editor());
    closeEditor(delegate_->editor(), QAbstractItemDelegate::NoHint);
}

/// The base class gives the focus back to the grid only while the window is active. Just after a list or a
/// message box has closed, it is not active yet.
void GridWnd::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const bool hadFocus = editor && window()->focusWidget() == editor;
    QTableView::closeEditor(editor, hint);
    if (hadFocus)
        setFocus();
}

bool GridWnd::endEdit() {
    if (!isEditing())
        return true;
    const QString message = refusalOfEdit();
    if (message.isEmpty()) {
        commitEdit();
        return true;
    }
    // While the message is open, the edit may end, and the grid may be destroyed.
    const QPointer<GridWnd> self(this);
    showMessage(this, message);
    if (!self)
        return false;
    if (isEditing())
        delegate_->editor()->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(delegate_->editor()))
        edit->selectAll();
    return false;
}

void GridWnd::giveUpEdit(int row, int column) {
    if (isEditing() && delegate_->editedIndex() == indexOf(row, column))
        revertEdit();
}

void GridWnd::revertEdit() {
    closeEditor(delegate_->editor(), QAbstractItemDelegate::RevertModelCache);
}

bool GridWnd::mayStartEditing(const QModelIndex& index) {
    return onStartEditing(index.row() + 1, index.column() + 1);
}

void GridWnd::leaveEdit() {
    if (isEditing() && refusalOfEdit().isEmpty())
        commitEdit();
}

void GridWnd::tabOutOfEdit(const QKeyEvent& event) {
    if (endEdit() && !(event.modifiers() & Qt::ControlModifier && handleKey(event)))
        focusNextPrevChild(event.key() == Qt::Key_Tab);
}

bool GridWnd::onStartEditing(int, int) {
    return true;
}

QString GridWnd::refusal(int row, int column, const QString& text) const {
    const std::optional<GridCellLimits> limits = cellStyle(row, column).limits;
    if (!limits)
        return {};
    const long value = std::strtol(text.toLatin1().constData(), nullptr, 10);
    return value < limits->minimum || value > limits->maximum ? limits->message : QString();
}

void GridWnd::onCellChanged(int, int) {
}

void GridWnd::onCellPressed(int, int) {
}

bool GridWnd::onClick(int, int) {
    return false;
}

bool GridWnd::onContextMenu(int, int, const QPoint&) {
    return false;
}

bool GridWnd::onKey(const QKeyEvent&) {
    return false;
}

void GridWnd::layoutColumns() {
}

void GridWnd::clickCell(const QModelIndex& index) {
    if (onClick(index.row() + 1, index.column() + 1) || isEditing() || index != currentIndex())
        return;
    // A click on a check box or a radio group counts only where its mark is; the delegate sees to that.
    const GridCellKind kind = model_->cell(index).style.kind;
    if (kind == GridCellKind::dropDown)
        openList();
    else if (kind != GridCellKind::checkBox && kind != GridCellKind::radioGroup)
        startEdit();
}

void GridWnd::mousePressEvent(QMouseEvent* event) {
    if (endEdit())
        QTableView::mousePressEvent(event);
}

void GridWnd::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    // Clicks on the headers come here, too, in the headers' coordinates.
    const QPoint at = viewport()->mapFromGlobal(event->globalPos());
    const QModelIndex index =
        byKey ? currentIndex() : (viewport()->rect().contains(at) ? indexAt(at) : QModelIndex());
    const QPoint menuAt = byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    event->setAccepted(index.isValid() && onContextMenu(index.row() + 1, index.column() + 1, menuAt));
}

void GridWnd::keyPressEvent(QKeyEvent* event) {
    if (currentIndex().isValid() && !isEditing() && (onKey(*event) || handleKey(*event))) {
        event->accept();
        return;
    }
    // Without a cell to work on, or even to go to, Enter would press the dialog's button.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !currentIndex().isValid()) {
        moveCurrent(true);
        event->accept();
        return;
    }
    // The open editor has passed this key on. Only a key that moves to another cell ends the edit.
    if (isEditing() && !movesCurrent(event->key())) {
        event->ignore();
        return;
    }
    if (endEdit())
        QTableView::keyPressEvent(event);
}

bool GridWnd::handleKey(const QKeyEvent& event) {
    const GridCellStyle& style = model_->cell(currentIndex()).style;
    const GridCellKind kind = style.kind;
    const bool isTyped = kind == GridCellKind::text || kind == GridCellKind::maskedEdit ||
                         (kind == GridCellKind::dropDown && style.typed);
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        startEdit();
        return true;
    case Qt::Key_Space:
        if (isTyped)
            return false;
        startEdit();
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!isTyped)
            return false;
        startEdit();
        if (auto* edit = qobject_cast<QLineEdit*>(delegate_->editor()))
            edit->clear();
        else if (auto* list = qobject_cast<QComboBox*>(delegate_->editor()))
            list->clearEditText();
        return true;
    case Qt::Key_F4:
    case Qt::Key_Down:
        if (kind != GridCellKind::dropDown ||
            (event.key() == Qt::Key_Down && !(event.modifiers() & Qt::AltModifier)))
            return false;
        openList();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        // Without Ctrl it goes through focusNextPrevChild and never comes here.
        return QTableView::focusNextPrevChild(event.key() == Qt::Key_Tab &&
                                              !(event.modifiers() & Qt::ShiftModifier));
    default:
        return false;
    }
}

bool GridWnd::focusNextPrevChild(bool next) {
    return moveCurrent(next) || QTableView::focusNextPrevChild(next);
}

bool GridWnd::moveCurrent(bool forward) {
    const int columns = columnCount();
    const int cells = rowCount() * columns;
    const int step = forward ? 1 : -1;
    const int present = currentIndex().isValid() ? currentIndex().row() * columns + currentIndex().column()
                                                 : (forward ? -1 : cells);
    for (int cell = present + step; cell >= 0 && cell < cells; cell += step) {
        const QModelIndex index = model_->index(cell / columns, cell % columns);
        if (index.flags() & Qt::ItemIsEnabled) {
            setCurrentIndex(index);
            return true;
        }
    }
    return false;
}

void GridWnd::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (!currentIndex().isValid() && event->reason() != Qt::MouseFocusReason)
        moveCurrent(true);
}

void GridWnd::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    layoutColumns();
}

void GridWnd::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitRowHeights();
        layoutColumns();
    }
}

void GridWnd::fitRowHeights() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    for (int row = 1; row <= rowCount(); ++row) {
        for (int column = 1; column <= columnCount(); ++column)
            fitRowHeight(row, cellStyle(row, column));
    }
}

void GridWnd::fitRowHeight(int row, const GridCellStyle& style) {
    if (style.kind != GridCellKind::radioGroup || style.orientation == Qt::Horizontal)
        return;
    const int lines = std::max(1, static_cast<int>(style.choices.size()));
    setRowHeight(row - 1, lines * verticalHeader()->defaultSectionSize());
}

} // namespace ovsettings
