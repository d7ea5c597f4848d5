#include "dialog/shell/emptydialog.h"

#include "dialog/shell/internalpages.h"
#include "ui_emptydialog.h"

namespace ovsettings {

CEmptyDialog::CEmptyDialog(QWidget* parent)
    : CPropDialogTemplateEx(internalPage("Empty").templateId, parent) {
    name = internalPage("Empty").name;
}

bool CEmptyDialog::buildTemplate() {
    Ui::CEmptyDialog().setupUi(this);
    return true;
}

} // namespace ovsettings
