#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace ovsettings {

class GdiPainter;

/// The role under which an item of a colour list keeps its packed colour.
constexpr int kItemColorRole = Qt::UserRole;

/// The three steps of drawing an item of a colour list, each of which is done by itself.
void drawWholeColor(GdiPainter& painter, const QRect& item, int color);
void drawColorSelection(GdiPainter& painter, const QRect& item, int color, bool selected);
void drawColorFocus(GdiPainter& painter, const QRect& item, int color, bool focused);

/// Draws the items of a colour list, in the order of the steps.
class ColorItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace ovsettings
