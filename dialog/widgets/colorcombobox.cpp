#include "dialog/widgets/colorcombobox.h"

#include "dialog/widgets/coloritemdelegate.h"
#include "dialog/widgets/gdipainter.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QStylePainter>

namespace ovsettings {

namespace {

constexpr int kWidth = 8; ///< in characters

class ColorItem : public QStandardItem {
public:
    bool operator<(const QStandardItem&) const override { return false; }
};

} // namespace

CColorComboBox::CColorComboBox(QWidget* parent) : QComboBox(parent) {
    setModel(new QStandardItemModel(this));
    setMinimumContentsLength(kWidth); // there is no text to be as wide as
    setItemDelegate(new ColorItemDelegate(this));
}

void CColorComboBox::addColor(int color) {
    auto* item = new ColorItem;
    item->setData(color, kItemColorRole);
    item->setData(toQColor(color).name(), Qt::AccessibleTextRole);
    static_cast<QStandardItemModel*>(model())->appendRow(item);
}

int CColorComboBox::color(int index) const {
    return itemData(index, kItemColorRole).toInt();
}

void CColorComboBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    if (currentIndex() < 0)
        return;
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    GdiPainter gdi(painter);
    drawWholeColor(gdi, field, color(currentIndex()));
}

} // namespace ovsettings
