#include "dialog/pages/editor/globalnetsdialog.h"

#include "ui_globalnetsdialog.h"

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 141;

} // namespace

CGlobalNetsDialog::CGlobalNetsDialog(QWidget* parent)
    : CPropDialogTemplate(kTemplate, parent), ui_(std::make_unique<Ui::CGlobalNetsDialog>()) {
    name = "Global Nets";
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
