#pragma once

#include "dialog/widgets/grid/gridcellstyle.h"

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPointer>
#include <QtWidgets/QStyledItemDelegate>

namespace ovsettings {

class GridModel;
class IGridEditing;

/// Draws the cells of a grid and makes the controls that edit them. A check box, a radio group and a colour
/// are worked on in place; the other kinds of cell get an editor over the cell.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// @param grid  what the view does for an editor.
    /// @param model the view's cells.
    GridDelegate(IGridEditing& grid, GridModel& model, QObject* parent);

    /// The open editor, null if there is none, and its cell.
    QWidget* editor() const { return editor_; }
    QModelIndex editedIndex() const { return edited_; }
    /// What the editor would give its cell.
    QString editorText() const;
    /// Whether the user has entered anything in the editor; the text that its cell has already counts.
    bool isEditorTouched() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleEditorKey(const QKeyEvent& event);

    IGridEditing& grid_;
    GridModel& model_;
    // Mutable, since the base class makes and destroys editors in constant functions.
    mutable QPointer<QWidget> editor_;
    mutable QPersistentModelIndex edited_;
};

} // namespace ovsettings
