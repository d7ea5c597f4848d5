#include "details/pages/toplevel/toplevellist.h"

#include <QtCore/QSet>
#include <QtCore/QStringListModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QListWidget>

#include <algorithm>

namespace ovsettings {

void CTopLevelList::newLine() {
    finishEditing();
    insertLine(0, QString());
    editInPlace(0);
}

QWidget* CTopLevelList::createLineEditor(QWidget* parent, int row) {
    const QStringList present = lines();
    const QSet<QString> listed(present.begin(), present.end());
    QStringList offered = allPartitions_ ? allPartitions_() : QStringList();
    // The line that is edited may stay what it is.
    offered.erase(
        std::remove_if(offered.begin(), offered.end(),
                       [&](const QString& name) { return name != line(row) && listed.contains(name); }),
        offered.end());
    auto* control = new CComboBoxEx(parent);
    control->setAccessibleName(list().accessibleName());
    control->setModel(new QStringListModel(offered, control));
    if (auto* view = qobject_cast<QListView*>(control->view()))
        view->setUniformItemSizes(true);
    control->setCurrentIndex(offered.isEmpty() ? -1 : std::max(0, int(offered.indexOf(line(row)))));
    return control;
}

void CTopLevelList::lineAdded(int, const QString&) {
    Q_EMIT changed();
}

void CTopLevelList::lineRenamed(int, const QString&) {
    Q_EMIT changed();
}

void CTopLevelList::lineDeleted(int) {
    Q_EMIT changed();
}

void CTopLevelList::lineMoved(int, int) {
    Q_EMIT changed();
}

} // namespace ovsettings
