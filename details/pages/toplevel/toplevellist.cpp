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
    offered.erase(std::remove_if(offered.begin(), offered.end(),
                                 [&](const QString& name) { return listed.contains(name); }),
                  offered.end());
    // The line that is edited may stay what it is.
    if (!line(row).isEmpty())
        offered.prepend(line(row));
    auto* control = new CComboBoxEx(parent);
    control->setAccessibleName(list().accessibleName());
    control->setModel(new QStringListModel(offered, control));
    if (auto* view = qobject_cast<QListView*>(control->view()))
        view->setUniformItemSizes(true);
    control->setCurrentIndex(offered.isEmpty() ? -1 : 0);
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
