#include "dialog/pages/borders/attributedialog.h"

#include "dialog/pages/borders/newattributedialog.h"
#include "dialog/shell/dialogunits.h"
#include "dialog/widgets/messagebox.h"
#include "ui_attributedialog.h"

namespace ovsettings {

namespace {

constexpr QSize kSize(280, 220); // in dialog units

} // namespace

CAttributeDialog::CAttributeDialog(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::CAttributeDialog>()) {
    ui_->setupUi(this);
    // New rows come through the list in the last one.
    ui_->addButton->hide();
    resize(fromDialogUnits(*this, kSize));
    connect(ui_->addButton, &QPushButton::clicked, this, &CAttributeDialog::addAttribute);
    connect(ui_->deleteButton, &QPushButton::clicked, ui_->grid, &CAttributesGrid::removeCurrentRow);
    connect(ui_->okButton, &QPushButton::clicked, this, &CAttributeDialog::accept);
    connect(ui_->cancelButton, &QPushButton::clicked, this, &CAttributeDialog::reject);
}

CAttributeDialog::~CAttributeDialog() = default;

void CAttributeDialog::setText(const QString& text) {
    ui_->text->setText(text);
}

int CAttributeDialog::DoModal() {
    ui_->grid->fill(attributes_, known_, names_);
    ui_->grid->setFocus();
    return exec();
}

/// Adds nothing, whatever is typed: users know the dialog so.
void CAttributeDialog::addAttribute() {
    CNewAttributeDialog dialog(this);
    if (dialog.DoModal() == Accepted && dialog.attributeName().empty())
        showMessage(this, tr("Empty attribute name"));
}

void CAttributeDialog::accept() {
    if (!ui_->grid->endEdit())
        return;
    attributes_ = ui_->grid->attributes();
    QDialog::accept();
}

} // namespace ovsettings
