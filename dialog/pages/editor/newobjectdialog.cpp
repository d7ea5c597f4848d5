#include "dialog/pages/editor/newobjectdialog.h"

#include "dialog/shell/internalpages.h"
#include "ui_newobjectdialog.h"

namespace ovsettings {

CNewObjectDialog::CNewObjectDialog(QWidget* parent) : CFormPage(parent, internalPage("New Object")) {
}

CNewObjectDialog::~CNewObjectDialog() = default;

/// The unit is shown without a configuration, too.
bool CNewObjectDialog::OnInitDialog() {
    bind();
    return BoundPage::OnInitDialog();
}

/// What is shown has been checked before a commit.
bool CNewObjectDialog::onApply() {
    if (!appConfig_)
        return false;
    store();
    return true;
}

/// A stored size may be finer or coarser than the unit in use lets one type.
LengthRefusal CNewObjectDialog::lengthRefusal() const {
    return {.message = QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog",
                                         "Default Text Size value should be between %1 and %2"),
            .taken = TakenAsStored::any};
}

} // namespace ovsettings
