#include "dialog/shell/categorytree.h"

#include "dialog/shell/dialogunits.h"

#include <QtCore/QItemSelectionModel>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

/// Rows that cut no text, whatever the font.
class Rows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize natural = QStyledItemDelegate::sizeHint(option, index);
        return {natural.width(), std::max(natural.height(), lineHeight(option.font))};
    }
};

} // namespace

/// A selection that follows the current item, and a current item that changes only if the leave check allows
/// it.
class CategoryTree::GuardedSelection : public QItemSelectionModel {
public:
    explicit GuardedSelection(CategoryTree& tree) : QItemSelectionModel(tree.model(), &tree), tree_(tree) {}

    using QItemSelectionModel::select;

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override {
        // The leave check may show a message box. Until it is answered, the item that is asked about stays
        // the current one.
        if (asking_ || !mayChangeTo(index))
            return;
        accepted_ = index;
        QItemSelectionModel::setCurrentIndex(index, command);
    }

    void select(const QItemSelection& selection, SelectionFlags command) override {
        // A click changes the current item first and then the selection: where the first was refused, the
        // second must not happen either. A click with Ctrl would take the selection away; it must not.
        const bool takesAway = command & (Deselect | Toggle);
        if (takesAway || (!selection.isEmpty() && !selection.contains(accepted_)))
            return;
        QItemSelectionModel::select(selection, command);
    }

private:
    bool mayChangeTo(const QModelIndex& index) {
        if (!tree_.leaveCheck_ || !index.isValid() || index == currentIndex())
            return true;
        const QScopedValueRollback<bool> guard(asking_, true);
        return tree_.leaveCheck_(tree_.itemFromIndex(currentIndex()), tree_.itemFromIndex(index));
    }

    CategoryTree& tree_;
    QPersistentModelIndex accepted_;
    bool asking_ = false;
};

CategoryTree::CategoryTree(QWidget* parent) : QTreeWidget(parent) {
    QItemSelectionModel* replaced = selectionModel();
    setSelectionModel(new GuardedSelection(*this));
    delete replaced;
    // The base class has connected this signal to the selection that it made itself.
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex& previous) {
                Q_EMIT currentItemChanged(itemFromIndex(current), itemFromIndex(previous));
            });
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true);
    setItemDelegate(new Rows(this));
    // A caption that is wider than the tree can be scrolled to.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

/// A drag selects nothing: it would run the leave check and make a page for each item on its way.
void CategoryTree::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton)
        QTreeWidget::mouseMoveEvent(event);
}

/// The highlight reaches over the whole width, however short the captions are.
void CategoryTree::resizeEvent(QResizeEvent* event) {
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
}

void CategoryTree::setLeaveCheck(LeaveCheck check) {
    leaveCheck_ = std::move(check);
}

} // namespace ovsettings
