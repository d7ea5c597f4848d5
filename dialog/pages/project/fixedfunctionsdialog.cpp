#include "dialog/pages/project/fixedfunctionsdialog.h"

#include "dialog/projectfile/savequestion.h"
#include "dialog/shell/internalpages.h"
#include "dialog/shell/notifyupdaters.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/listboxlines.h"
#include "orv/projectfiledata.h"
#include "ui_fixedfunctionsdialog.h"

#include <string>
#include <vector>

namespace ovsettings {

CFixedFunctionsDialog::CFixedFunctionsDialog(QWidget* parent)
    : CFormPage(parent, internalPage("Fixed Functions")) {
}

CFixedFunctionsDialog::~CFixedFunctionsDialog() = default;

bool CFixedFunctionsDialog::buildTemplate() {
    CFormPage::buildTemplate();
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

/// Tells the host by itself; at OK the frame does that.
bool CFixedFunctionsDialog::onApply() {
    return store(StartedBy::page);
}

bool CFixedFunctionsDialog::onLeave() {
    if (!showsProject(ui_->functions, projectConfig_))
        return true;
    ui_->functions->finishEditing();
    if (!isModified())
        return true;
    if (asksToSave(*this))
        store(StartedBy::page);
    else
        ui_->functions->clearChanged();
    // What could not be written stays in the list, to be tried again.
    if (!isModified())
        load();
    return true;
}

bool CFixedFunctionsDialog::isModified() const {
    return showsProject(ui_->functions, projectConfig_) && ui_->functions->isChanged();
}

void CFixedFunctionsDialog::load() {
    if (!showsProject(ui_->functions, projectConfig_))
        return;
    std::vector<std::string> functions;
    projectConfig_->projectFile->GetFixedFunctions(functions);
    showStrings(*ui_->functions, functions);
    ui_->functions->clearChanged();
}

bool CFixedFunctionsDialog::store(StartedBy starter) {
    if (!showsProject(ui_->functions, projectConfig_))
        return true;
    ui_->functions->finishEditing();
    if (!isModified())
        return true;
    const std::vector<std::string> functions = stringsOf(*ui_->functions);
    std::vector<std::string> before, stored;
    projectConfig_->projectFile->GetFixedFunctions(before);
    projectConfig_->projectFile->SetFixedFunctions(functions);
    projectConfig_->projectFile->GetFixedFunctions(stored);
    // What could not be written is tried again; a list that the host brought into a form of its own is not.
    if (stored == before && stored != functions)
        return true;
    ui_->functions->clearChanged();
    if (starter == StartedBy::page)
        notifyUpdatersOf(*this);
    return true;
}

} // namespace ovsettings
