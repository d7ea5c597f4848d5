#include "dialog/pages/borders/newattributedialog.h"

#include "dialog/widgets/stringconversion.h"
#include "ui_newattributedialog.h"

namespace ovsettings {

CNewAttributeDialog::CNewAttributeDialog(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::CNewAttributeDialog>()) {
    ui_->setupUi(this);
    connect(ui_->okButton, &QPushButton::clicked, this, &CNewAttributeDialog::accept);
    connect(ui_->cancelButton, &QPushButton::clicked, this, &CNewAttributeDialog::reject);
}

CNewAttributeDialog::~CNewAttributeDialog() = default;

int CNewAttributeDialog::DoModal() {
    return exec();
}

std::string CNewAttributeDialog::attributeName() const {
    return toUtf8(ui_->name->text());
}

} // namespace ovsettings
