#include "dialog/pages/designs/toplevellist.h"

#include "dialog/widgets/stringconversion.h"

#include <QtCore/QSet>
#include <QtCore/QStringListModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QListWidget>

namespace ovsettings {

void CTopLevelList::newLine() {
    beginLine(0);
}

QWidget* CTopLevelList::createLineEditor(QWidget* parent, int row) {
    const QStringList present = lines();
    const QSet<QString> listed(present.begin(), present.end());
    QStringList offered;
    origins_.clear();
    for (const std::string& name : allPartitions_ ? allPartitions_() : std::vector<std::string>()) {
        const QString text = toQString(name);
        if (listed.contains(text))
            continue;
        offered.append(text);
        if (toUtf8(text) != name && !origins_.contains(text))
            origins_.insert(text, QByteArray::fromStdString(name));
    }
    // Without another partition to choose, the list offers the one that the line has.
    if (offered.isEmpty() && !line(row).isEmpty())
        offered.append(line(row));
    auto* control = new CComboBoxEx(parent);
    control->setAccessibleName(list().accessibleName());
    control->setModel(new QStringListModel(offered, control));
    if (auto* view = qobject_cast<QListView*>(control->view()))
        view->setUniformItemSizes(true);
    control->setCurrentIndex(offered.isEmpty() ? -1 : 0);
    return control;
}

void CTopLevelList::keepOrigin(int row, const QString& text) {
    if (const auto origin = origins_.constFind(text); origin != origins_.constEnd())
        setOrigin(row, *origin);
}

void CTopLevelList::lineAdded(int row, const QString& text) {
    keepOrigin(row, text);
    Q_EMIT changed();
}

void CTopLevelList::lineRenamed(int row, const QString& text) {
    keepOrigin(row, text);
    Q_EMIT changed();
}

void CTopLevelList::lineDeleted(int) {
    Q_EMIT changed();
}

void CTopLevelList::lineMoved(int, int) {
    Q_EMIT changed();
}

} // namespace ovsettings
