#include "dialog/widgets/coloritemdelegate.h"

#include "dialog/widgets/gdipainter.h"

#include <QtGui/QPainter>

namespace ovsettings {

namespace {

constexpr int kColorInset = 3;
constexpr int kSelectionInset = 1;
constexpr int kFocusInset = 2;
constexpr int kBlack = 0;

void drawFrame(GdiPainter& painter, const QRect& item, int inset, int color) {
    painter.frameRectangle(item.left() + inset, item.top() + inset, item.left() + item.width() - inset,
                           item.top() + item.height() - inset, toQColor(color));
}

} // namespace

void drawWholeColor(GdiPainter& painter, const QRect& item, int color) {
    painter.fillRectangle(item.left() + kColorInset, item.top() + kColorInset,
                          item.left() + item.width() - kColorInset, item.top() + item.height() - kColorInset,
                          toQColor(color));
}

void drawColorSelection(GdiPainter& painter, const QRect& item, int color, bool selected) {
    drawFrame(painter, item, kSelectionInset, selected ? color : kBlack);
}

void drawColorFocus(GdiPainter& painter, const QRect& item, int color, bool focused) {
    drawFrame(painter, item, kFocusInset, focused ? color : kBlack);
}

void ColorItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const int color = index.data(kItemColorRole).toInt();
    painter->save();
    {
        GdiPainter gdi(*painter);
        drawWholeColor(gdi, option.rect, color);
        drawColorSelection(gdi, option.rect, color, option.state & QStyle::State_Selected);
        drawColorFocus(gdi, option.rect, color, option.state & QStyle::State_HasFocus);
    }
    painter->restore();
}

} // namespace ovsettings
