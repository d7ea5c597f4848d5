#include "dialog/pages/editor/griddialog.h"

#include "dialog/shell/internalpages.h"
#include "ui_griddialog.h"

namespace ovsettings {

CGridDialog::CGridDialog(QWidget* parent) : CFormPage(parent, internalPage("Grid")) {
}

CGridDialog::~CGridDialog() = default;

/// A spacing finer than the unit can show is accepted as it was stored. The lower limit is told with the
/// unit's decimals, the upper one always with two: users know the message so.
LengthRefusal CGridDialog::lengthRefusal() const {
    return {.message = QT_TRANSLATE_NOOP("ovsettings::CGridDialog",
                                         "Grid Spacing value should be between %1 and %2"),
            .taken = TakenAsStored::finer,
            .mostDecimals = 2};
}

} // namespace ovsettings
