#include "details/pages/toplevel/blockcombo.h"

#include "details/pages/toplevel/navigator.h"
#include "details/widgets/messagebox.h"
#include "details/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "suite/kdsclient.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringListModel>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>

namespace ovsettings {

namespace {

constexpr char kClient[] = "OvSettings";
constexpr char kSnapshot[] = "Orv";

QStringList readBlocks(const std::string& databasePath) {
    QStringList names;
    iKDS::KDSPI database;
    if (!database.AttachSubClient(kClient, databasePath))
        return names;
    iKDS::ContainerT<iKDS::ISnapshot> snapshot;
    if (database.GetSnapshotByName(kSnapshot, snapshot)) {
        iKDS::ListT<iKDS::BlockInfo> blocks;
        if (!snapshot->GetListBlocks(blocks))
            blocks.Clear(); // part of them would be taken for all
        for (const iKDS::BlockInfo& block : blocks)
            names.append(toQString(block.name));
    }
    database.DetachSubClient();
    return names;
}

} // namespace

void fillBlocks(QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design) {
    QStringList names;
    try {
        names = readBlocks(project.projectFile->GetDatabasePath(1));
    } catch (const iKDS::Exception& failure) {
        showMessage(&blocks, QCoreApplication::translate("TopLevel", "iKDS error: %1!")
                                 .arg(toQString(failure.GetResult().GetDescription())));
    }
    // A model of texts alone: a design may have a million blocks.
    blocks.setModel(new QStringListModel(names, &blocks));
    if (auto* list = qobject_cast<QListView*>(blocks.view()))
        list->setUniformItemSizes(true);
    blocks.setCurrentIndex(
        static_cast<int>(names.indexOf(toQString(project.projectFile->GetTopBlock(design)))));
}

void storeBlock(const QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design,
                const CNavigator& navigator) {
    if (blocks.currentIndex() < 0)
        return;
    // A name that is no UTF-8 is written as it was until another one is selected.
    const std::string stored = project.projectFile->GetTopBlock(design);
    const bool isStored = toQString(stored) == blocks.currentText();
    project.projectFile->SetTopBlock(isStored ? stored : toUtf8(blocks.currentText()), design);
    navigator.refresh();
}

} // namespace ovsettings
