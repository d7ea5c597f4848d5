#include "dialog/pages/editor/griddialog.h"

#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "store/unitglue.h"
#include "ui_griddialog.h"

#include <algorithm>

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 132;
/// The lower limit is told with the unit's decimals, the upper one always with two: users know the message
/// so.
constexpr int kUpperLimitDecimals = 2;

} // namespace

CGridDialog::CGridDialog(QWidget* parent)
    : Page(parent, kTemplate, "Grid", "OV_SETUP_SETTINGS_SCH_ED_GRID"),
      ui_(std::make_unique<Ui::CGridDialog>()) {
}

CGridDialog::~CGridDialog() = default;

bool CGridDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CGridDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    bindings_.add<FlagBinding>("GRIDON", *ui_->display);
    bindings_.add<FlagBinding>("GRID_HIGHLIGHT_MARKS", *ui_->intervalMarkings);
    spacing_ = &bindings_.add<LengthBinding>("GRID_HR", *ui_->spacing, *ui_->spacingUnit);
    bindings_.show(*appConfig_);
    return true;
}

bool CGridDialog::onApply() {
    if (!spacing_) // opened without a configuration: there is nothing to store
        return true;
    if (!checkSpacing())
        return false;
    bindings_.store(*appConfig_);
    return true;
}

bool CGridDialog::onEnter() {
    if (spacing_)
        spacing_->followUnit(*appConfig_);
    return true;
}

bool CGridDialog::onLeave() {
    return checkSpacing();
}

bool CGridDialog::isValid() {
    return checkSpacing();
}

bool CGridDialog::isModified() const {
    return bindings_.isModified();
}

DroppedEdits CGridDialog::followConfiguration() {
    if (!spacing_)
        return {};
    spacing_->followUnit(*appConfig_);
    return bindings_.follow(*appConfig_);
}

bool CGridDialog::checkSpacing() {
    if (!spacing_)
        return true;
    CDecimalSpinCtrl& control = spacing_->control();
    double minimum = 0, maximum = 0, step = 0;
    control.getRange(minimum, maximum, step);
    double value = control.getValue();
    if (Orv::fromDisplay(value, spacing_->unit()) == 0)
        value = 0;
    // A spacing finer than the unit can show is accepted as it was stored, and refused when it is typed in.
    if (!control.isEdited() && value > 0)
        minimum = std::min(minimum, value);
    if ((value >= minimum && value <= maximum) || !isUsersToMend(control))
        return true;

    const int precision = Orv::Metrics::UnitTraits(spacing_->unit()).Precision();
    refuseEntry(control, tr("Grid Spacing value should be between %1 and %2")
                             .arg(control.formatted(minimum, precision),
                                  control.formatted(maximum, kUpperLimitDecimals)));
    return false;
}

} // namespace ovsettings
