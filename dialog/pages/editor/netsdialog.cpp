#include "dialog/pages/editor/netsdialog.h"

#include "dialog/shell/internalpages.h"
#include "ui_netsdialog.h"

namespace ovsettings {

CNetsDialog::CNetsDialog(QWidget* parent) : CFormPage(parent, internalPage("Nets")) {
}

CNetsDialog::~CNetsDialog() = default;

/// A stored distance outside the limits is refused even if the user left it alone, so that whoever opens the
/// page mends it.
LengthRefusal CNetsDialog::lengthRefusal() const {
    return {.message =
                QT_TRANSLATE_NOOP("ovsettings::CNetsDialog", "Avoidance value should be between %1 and %2"),
            .taken = TakenAsStored::none,
            .leastDecimals = 2,
            .mostDecimals = 2};
}

} // namespace ovsettings
