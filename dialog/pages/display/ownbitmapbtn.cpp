#include "dialog/pages/display/ownbitmapbtn.h"

#include <QtGui/QIcon>

namespace ovsettings {

COwnBitmapBtn::COwnBitmapBtn(const QString& image, const QString& caption, QWidget* parent)
    : QToolButton(parent) {
    setIcon(QIcon(QLatin1String(":/ovsettings/images/") + image + QLatin1String(".svg")));
    setToolTip(caption);
    setAccessibleName(caption);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void COwnBitmapBtn::moveToCell(const QRect& cell, int place) {
    const int side = cell.height();
    const int right = cell.right() + 1 - place * side;
    const int left = isRightToLeft() ? cell.left() + place * side : right - side;
    setGeometry(left, cell.top(), side, side);
}

CBitmapBtnEdit::CBitmapBtnEdit(QWidget* parent)
    : COwnBitmapBtn(QStringLiteral("edit"), tr("Edit mapping"), parent) {
}

CBitmapBtnDel::CBitmapBtnDel(QWidget* parent)
    : COwnBitmapBtn(QStringLiteral("delete"), tr("Remove mapping"), parent) {
}

} // namespace ovsettings
