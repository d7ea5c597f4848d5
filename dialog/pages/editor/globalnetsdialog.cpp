#include "dialog/pages/editor/globalnetsdialog.h"

#include "dialog/shell/internalpages.h"
#include "ui_globalnetsdialog.h"

namespace ovsettings {

CGlobalNetsDialog::CGlobalNetsDialog(QWidget* parent)
    : CPropDialogTemplate(internalPage("Global Nets").templateId, parent),
      ui_(std::make_unique<Ui::CGlobalNetsDialog>()) {
    name = internalPage("Global Nets").name;
}

CGlobalNetsDialog::~CGlobalNetsDialog() = default;

bool CGlobalNetsDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CGlobalNetsDialog::OnInitDialog() {
    ui_->grid->onInitialUpdate();
    return CPropDialogTemplate::OnInitDialog();
}

} // namespace ovsettings
