#include "dialog/shell/emptydialog.h"

#include "ui_emptydialog.h"

namespace ovsettings {

CEmptyDialog::CEmptyDialog(QWidget* parent) : CPropDialogTemplateEx(1174, parent) {
    name = "Empty";
}

bool CEmptyDialog::buildTemplate() {
    Ui::CEmptyDialog().setupUi(this);
    return true;
}

} // namespace ovsettings
