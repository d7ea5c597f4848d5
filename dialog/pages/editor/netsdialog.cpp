#include "dialog/pages/editor/netsdialog.h"

#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "ui_netsdialog.h"

#include <array>
#include <span>

namespace ovsettings {

namespace {

using Form = Ui_CNetsDialog;

constexpr unsigned kTemplate = 131;
constexpr int kLimitDecimals = 2;

struct ChoiceRow {
    long value;
    QRadioButton* Form::*button;
};

constexpr std::array kRouteModes{
    ChoiceRow{0, &Form::straight},
    ChoiceRow{1, &Form::orthogonal},
    ChoiceRow{2, &Form::avoidance},
};
constexpr std::array kAttributesOnSplit{
    ChoiceRow{0, &Form::attributesTopLeft},
    ChoiceRow{1, &Form::attributesBottomRight},
    ChoiceRow{2, &Form::attributesBoth},
    ChoiceRow{3, &Form::attributesNone},
};
constexpr std::array kLabelsOnSplit{
    ChoiceRow{0, &Form::labelsDangling},
    ChoiceRow{1, &Form::labelsTopLeft},
    ChoiceRow{2, &Form::labelsBottomRight},
    ChoiceRow{3, &Form::labelsNone},
};

struct Choice {
    const char* key;
    QGroupBox* Form::*group;
    std::span<const ChoiceRow> rows;
    std::size_t other;
    NoneChecked noneChecked;
};

constexpr std::array kChoices{
    Choice{"ROUTE", &Form::routeMode, kRouteModes, 0, NoneChecked::nothing},
    Choice{"ATTR_ON_SPLIT", &Form::attributesOnSplit, kAttributesOnSplit, 3, NoneChecked::otherButton},
    Choice{"LABEL_ON_SPLIT", &Form::labelsOnSplit, kLabelsOnSplit, 3, NoneChecked::otherButton},
};

std::vector<ChoiceButton> buttonsOf(const Choice& choice, const Form& form) {
    std::vector<ChoiceButton> buttons;
    for (const ChoiceRow& row : choice.rows)
        buttons.push_back({row.value, form.*row.button});
    return buttons;
}

} // namespace

CNetsDialog::CNetsDialog(QWidget* parent)
    : Page(parent, kTemplate, "Nets", "OV_SETUP_SETTINGS_SCH_ED_NETS"),
      ui_(std::make_unique<Ui::CNetsDialog>()) {
}

CNetsDialog::~CNetsDialog() = default;

bool CNetsDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CNetsDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    bindings_.add<FlagBinding>("SNAPTOPIN", *ui_->snapToPin);
    distance_ = &bindings_.add<LengthBinding>("ADISTANCE_HR", *ui_->distance, *ui_->distanceUnit);
    for (const Choice& choice : kChoices) {
        bindings_.add<ChoiceBinding>(choice.key, *(ui_.get()->*choice.group), buttonsOf(choice, *ui_),
                                     choice.other, choice.noneChecked);
    }
    bindings_.show(*appConfig_);
    return true;
}

bool CNetsDialog::onApply() {
    if (!distance_) // opened without a configuration: there is nothing to store
        return true;
    if (!checkDistance())
        return false;
    bindings_.store(*appConfig_);
    return true;
}

bool CNetsDialog::onEnter() {
    if (distance_)
        distance_->followUnit(*appConfig_);
    return true;
}

bool CNetsDialog::onLeave() {
    return checkDistance();
}

bool CNetsDialog::isValid() {
    return checkDistance();
}

bool CNetsDialog::isModified() const {
    return bindings_.isModified();
}

DroppedEdits CNetsDialog::followConfiguration() {
    if (!distance_)
        return {};
    distance_->followUnit(*appConfig_);
    return bindings_.follow(*appConfig_);
}

/// A stored distance outside the limits is refused even if the user left it alone, so that whoever opens the
/// page mends it.
bool CNetsDialog::checkDistance() {
    if (!distance_)
        return true;
    CDecimalSpinCtrl& control = distance_->control();
    if (control.isInRange() || !isUsersToMend(control))
        return true;

    double minimum = 0, maximum = 0, step = 0;
    control.getRange(minimum, maximum, step);
    refuseEntry(control, tr("Avoidance value should be between %1 and %2")
                             .arg(control.formatted(minimum, kLimitDecimals),
                                  control.formatted(maximum, kLimitDecimals)));
    return false;
}

} // namespace ovsettings
