#include "dialog/shell/boundpage.h"

#include "dialog/widgets/decimalspinctrl.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "store/unitglue.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ovsettings {

namespace {

bool takes(const LengthBinding& length, TakenAsStored taken) {
    const CDecimalSpinCtrl& control = length.control();
    if (control.isInRange() || !isUsersToMend(control))
        return true;
    if (control.isEdited() || taken == TakenAsStored::none)
        return false;
    if (taken == TakenAsStored::any)
        return true;
    double minimum = 0, maximum = 0, step = 0;
    control.getRange(minimum, maximum, step);
    const double value = control.getValue();
    return value < minimum && Orv::fromDisplay(value, length.unit()) > 0;
}

} // namespace

BoundPage::BoundPage(QWidget* parent, const PageRow& row) : Page(parent, row) {
}

BoundPage::~BoundPage() = default;

bool BoundPage::OnInitDialog() {
    if (!appConfig_)
        return false;
    bind();
    bindings_.show(*appConfig_);
    return true;
}

bool BoundPage::onApply() {
    if (!appConfig_) // opened without a configuration: there is nothing to store
        return true;
    if (!checkLengths())
        return false;
    store();
    return true;
}

bool BoundPage::onEnter() {
    if (appConfig_)
        bindings_.followUnit(*appConfig_);
    return true;
}

bool BoundPage::onLeave() {
    return checkLengths();
}

bool BoundPage::isValid() {
    return checkLengths();
}

bool BoundPage::isModified() const {
    return appConfig_ && bindings_.isModified();
}

DroppedEdits BoundPage::followConfiguration() {
    if (!appConfig_)
        return {};
    bindings_.followUnit(*appConfig_);
    return bindings_.follow(*appConfig_);
}

void BoundPage::bind() {
    if (bindings_.empty())
        bindings_.bind(*this, row().writes);
}

void BoundPage::store() {
    bindings_.store(*appConfig_);
}

bool BoundPage::checkLengths() {
    const LengthRefusal refusal = lengthRefusal();
    for (const LengthBinding* length : bindings_.lengths()) {
        if (takes(*length, refusal.taken))
            continue;
        CDecimalSpinCtrl& control = length->control();
        double minimum = 0, maximum = 0, step = 0;
        control.getRange(minimum, maximum, step);
        refuseEntry(
            control,
            QCoreApplication::translate(metaObject()->className(), refusal.message)
                .arg(control.formatted(minimum, refusal.leastDecimals.value_or(control.getDecimals())),
                     control.formatted(maximum, refusal.mostDecimals.value_or(control.getDecimals()))));
        return false;
    }
    return true;
}

} // namespace ovsettings
