#include "dialog/pages/designs/netlisttopleveldialog.h"

#include "dialog/pages/designs/blockcombo.h"
#include "dialog/shell/projectaccess.h"
#include "ui_netlisttopleveldialog.h"

namespace ovsettings {

namespace {

/// It has the name of its design.
constexpr PageRow kRow{.templateId = 168};

} // namespace

CNetlistTopLevelDialog::CNetlistTopLevelDialog(QWidget* parent, const std::string& designName)
    : CFormPage(parent, kRow), blockName_(designName) {
    name = blockName_.c_str();
}

CNetlistTopLevelDialog::~CNetlistTopLevelDialog() = default;

bool CNetlistTopLevelDialog::OnInitDialog() {
    if (showsProject(ui_->topLevelBlock, projectConfig_)) {
        fillBlocks(*ui_->topLevelBlock, *projectConfig_, blockName_);
        storedBlock_ = ui_->topLevelBlock->currentIndex();
    }
    return true;
}

bool CNetlistTopLevelDialog::onApply() {
    if (showsProject(ui_->topLevelBlock, projectConfig_) &&
        storeBlock(*ui_->topLevelBlock, *projectConfig_, blockName_, navigator_))
        storedBlock_ = ui_->topLevelBlock->currentIndex();
    return true;
}

bool CNetlistTopLevelDialog::onCancel() {
    return true;
}

bool CNetlistTopLevelDialog::isModified() const {
    return showsProject(ui_->topLevelBlock, projectConfig_) &&
           ui_->topLevelBlock->currentIndex() != storedBlock_;
}

} // namespace ovsettings
