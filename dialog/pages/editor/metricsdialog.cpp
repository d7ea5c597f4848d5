#include "dialog/pages/editor/metricsdialog.h"

#include "dialog/shell/internalpages.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/appconfiguration.h"
#include "store/appcfg.h"
#include "store/unitglue.h"
#include "ui_metricsdialog.h"

#include <list>

namespace ovsettings {

using Orv::Metrics::Unit;
using Orv::Metrics::UnitTraits;

CMetricsDialog::CMetricsDialog(QWidget* parent) : CFormPage(parent, internalPage("Metrics")) {
}

CMetricsDialog::~CMetricsDialog() = default;

bool CMetricsDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    std::list<Unit> units;
    Orv::Metrics::ListAvaibleUnits(units);
    for (const Unit unit : units)
        ui_->units->addItem(toQString(UnitTraits(unit).FullName()), static_cast<int>(unit));
    show(read());
    return true;
}

CMetricsDialog::Stored CMetricsDialog::read() const {
    Stored stored{Orv::getConfiguredUnit(*appConfig_)};
    std::string ignored;
    Orv::getValue(*appConfig_, UnitTraits::GetUnitCfgKey(), ignored, stored.locked);
    return stored;
}

void CMetricsDialog::show(const Stored& stored) {
    if (stored_.locked)
        unmarkLocked(*ui_->units);
    stored_ = stored;
    told_ = stored.unit;
    ui_->units->setCurrentIndex(ui_->units->findText(toQString(UnitTraits(stored.unit).FullName())));
    if (stored.locked)
        markLocked(*ui_->units, *appConfig_, UnitTraits::GetUnitCfgKey());
}

void CMetricsDialog::store(Unit unit) {
    Orv::setConfiguredUnit(*appConfig_, unit);
    stored_ = read();
}

bool CMetricsDialog::onApply() {
    if (const auto unit = selectedUnit()) {
        store(*unit);
        told_ = *unit;
    }
    return true;
}

bool CMetricsDialog::onLeave() {
    if (hasUnsavedEdits() &&
        askYesNo(this, tr("Do you want to save the changes you've made in this page?"), tr("Metrics")))
        store(*selectedUnit());
    return true;
}

/// A unit that was stored on leaving counts as modified until a commit has told the host of it.
bool CMetricsDialog::isModified() const {
    const auto unit = selectedUnit();
    return unit && unit != told_;
}

DroppedEdits CMetricsDialog::followConfiguration() {
    if (!told_)
        return {};
    const Stored now = read();
    if (now == stored_)
        return {};
    const auto selected = selectedUnit();
    const bool edited = selected && *selected != stored_.unit;
    if (edited && !now.locked) {
        stored_ = now;
        told_ = now.unit;
        return {};
    }
    show(now);
    return edited ? DroppedEdits{{UnitTraits::GetUnitCfgKey(), 0}} : DroppedEdits();
}

bool CMetricsDialog::hasUnsavedEdits() const {
    const auto unit = selectedUnit();
    return unit && *unit != Orv::getConfiguredUnit(*appConfig_);
}

std::optional<Unit> CMetricsDialog::selectedUnit() const {
    if (!told_ || ui_->units->currentIndex() < 0)
        return std::nullopt;
    return Unit(static_cast<Unit::Id>(ui_->units->currentData().toInt()));
}

} // namespace ovsettings
