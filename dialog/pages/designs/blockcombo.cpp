#include "dialog/pages/designs/blockcombo.h"

#include "dialog/pages/designs/navigator.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "suite/kdsclient.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QCoreApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace ovsettings {

namespace {

constexpr char kClient[] = "OvSettings";
constexpr char kSnapshot[] = "Orv";

/// Names as the database has them: a text on show cannot hold every byte that a name may have.
class BlockModel : public QAbstractListModel {
public:
    BlockModel(std::vector<std::string> names, QObject* parent)
        : QAbstractListModel(parent), names_(std::move(names)) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(names_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::UserRole))
            return {};
        const std::string& name = names_[static_cast<std::size_t>(index.row())];
        return role == Qt::DisplayRole ? QVariant(toQString(name))
                                       : QVariant(QByteArray::fromStdString(name));
    }

private:
    std::vector<std::string> names_;
};

std::vector<std::string> readBlocks(const std::string& databasePath) {
    std::vector<std::string> names;
    iKDS::KDSPI database;
    if (!database.AttachSubClient(kClient, databasePath))
        return names;
    iKDS::ContainerT<iKDS::ISnapshot> snapshot;
    if (database.GetSnapshotByName(kSnapshot, snapshot)) {
        iKDS::ListT<iKDS::BlockInfo> blocks;
        if (!snapshot->GetListBlocks(blocks))
            blocks.Clear(); // part of them would be taken for all
        for (const iKDS::BlockInfo& block : blocks)
            names.push_back(block.name);
    }
    database.DetachSubClient();
    return names;
}

} // namespace

void fillBlocks(QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design) {
    std::vector<std::string> names;
    try {
        names = readBlocks(project.projectFile->GetDatabasePath(1));
    } catch (const iKDS::Exception& failure) {
        showMessage(&blocks, QCoreApplication::translate("TopLevel", "iKDS error: %1!")
                                 .arg(toQString(failure.GetResult().GetDescription())));
    }
    const auto top = std::ranges::find(names, project.projectFile->GetTopBlock(design));
    const int selected = top == names.end() ? -1 : static_cast<int>(top - names.begin());
    // A model of names alone: a design may have a million blocks.
    blocks.setModel(new BlockModel(std::move(names), &blocks));
    if (auto* list = qobject_cast<QListView*>(blocks.view()))
        list->setUniformItemSizes(true);
    blocks.setCurrentIndex(selected);
}

bool storeBlock(const QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design,
                const Navigator& navigator) {
    if (blocks.currentIndex() < 0)
        return true;
    const std::string block = blocks.currentData().toByteArray().toStdString();
    project.projectFile->SetTopBlock(block, design);
    navigator.refresh();
    return project.projectFile->GetTopBlock(design) == block;
}

} // namespace ovsettings
