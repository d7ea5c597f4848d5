#include "dialog/widgets/colorlistbox.h"

#include "dialog/widgets/coloritemdelegate.h"
#include "dialog/widgets/gdipainter.h"

namespace ovsettings {

namespace {

class ColorItem : public QListWidgetItem {
public:
    bool operator<(const QListWidgetItem&) const override { return false; }
};

/// The items are as high as a line of text.
class ColorListDelegate : public ColorItemDelegate {
public:
    using ColorItemDelegate::ColorItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {option.fontMetrics.averageCharWidth(), option.fontMetrics.height()};
    }
};

} // namespace

CColorListBox::CColorListBox(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new ColorListDelegate(this));
}

void CColorListBox::addColor(int color) {
    auto* item = new ColorItem;
    item->setData(kItemColorRole, color);
    item->setData(Qt::AccessibleTextRole, toQColor(color).name());
    addItem(item);
}

int CColorListBox::color(int row) const {
    const QListWidgetItem* found = item(row);
    return found ? found->data(kItemColorRole).toInt() : 0;
}

} // namespace ovsettings
