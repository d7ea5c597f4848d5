#include "details/pages/project/fixedfunctionsdialog.h"

#include "details/shell/settingsdialog.h"
#include "details/widgets/messagebox.h"
#include "details/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "ui_fixedfunctionsdialog.h"

#include <string>
#include <vector>

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 169;

} // namespace

CFixedFunctionsDialog::CFixedFunctionsDialog(QWidget* parent)
    : CPropDialogTemplateEx(kTemplate, parent), ui_(std::make_unique<Ui::CFixedFunctionsDialog>()) {
    name = "Fixed Functions";
    helpTopic = "OV_SETUP_SETTINGS_PROJECT";
    helpBook = "orvane_ref";
}

CFixedFunctionsDialog::~CFixedFunctionsDialog() = default;

void CFixedFunctionsDialog::setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) {
    projectConfig_ = projectConfig;
}

bool CFixedFunctionsDialog::buildTemplate() {
    ui_->setupUi(this);
    ui_->functions->setTitle(tr("&Fixed Functions"));
    return true;
}

bool CFixedFunctionsDialog::OnInitDialog() {
    load();
    return true;
}

bool CFixedFunctionsDialog::onOk() {
    return store(StartedBy::frame);
}

/// Tells the host by itself, which OK leaves to the frame; this is meant.
bool CFixedFunctionsDialog::onApply() {
    return store(StartedBy::page);
}

bool CFixedFunctionsDialog::onLeave() {
    if (!hasProject())
        return true;
    ui_->functions->finishEditing();
    if (!isModified())
        return true;
    if (askYesNo(this, tr("Do you want to save the changes you've made in this page?"),
                 tr("Project Settings"), QMessageBox::Question))
        store(StartedBy::page);
    else
        ui_->functions->clearChanged();
    // What could not be written stays in the list, to be tried again.
    if (!isModified())
        load();
    return true;
}

bool CFixedFunctionsDialog::isModified() const {
    return hasProject() && ui_->functions->isChanged();
}

/// True once there is a list to show and a project to show it from.
bool CFixedFunctionsDialog::hasProject() const {
    return ui_->functions && projectConfig_ && projectConfig_->projectFile;
}

void CFixedFunctionsDialog::load() {
    if (!hasProject())
        return;
    std::vector<std::string> functions;
    projectConfig_->projectFile->GetFixedFunctions(functions);
    QStringList lines;
    for (const std::string& function : functions)
        lines.append(toQString(function));
    ui_->functions->setLines(lines);
    // A name that is no UTF-8 is written as it was until the user changes it.
    for (int row = 0; row < lines.size(); ++row) {
        const std::string& function = functions[static_cast<std::size_t>(row)];
        if (toUtf8(lines[row]) != function)
            ui_->functions->setOrigin(row, QByteArray::fromStdString(function));
    }
    ui_->functions->clearChanged();
}

bool CFixedFunctionsDialog::store(StartedBy starter) {
    if (!hasProject())
        return true;
    ui_->functions->finishEditing();
    if (!isModified())
        return true;
    std::vector<std::string> functions;
    for (int row = 0; row < ui_->functions->lineCount(); ++row) {
        const QVariant origin = ui_->functions->origin(row);
        functions.push_back(origin.isValid() ? origin.toByteArray().toStdString()
                                             : toUtf8(ui_->functions->line(row)));
    }
    projectConfig_->projectFile->SetFixedFunctions(functions);
    std::vector<std::string> stored;
    projectConfig_->projectFile->GetFixedFunctions(stored);
    if (stored != functions)
        return true;
    ui_->functions->clearChanged();
    if (starter == StartedBy::page)
        notifyUpdatersOf(*this);
    return true;
}

void CFixedFunctionsDialog::CListBoxEditorEx::lineAdded(int, const QString&) {
    changed_ = true;
}

void CFixedFunctionsDialog::CListBoxEditorEx::lineRenamed(int, const QString&) {
    changed_ = true;
}

void CFixedFunctionsDialog::CListBoxEditorEx::lineDeleted(int) {
    changed_ = true;
}

void CFixedFunctionsDialog::CListBoxEditorEx::lineMoved(int, int) {
    changed_ = true;
}

} // namespace ovsettings
