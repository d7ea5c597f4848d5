#include "details/pages/editor/metricsdialog.h"

#include "details/appcfg/appcfg.h"
#include "details/appcfg/unitglue.h"
#include "details/widgets/lockmark.h"
#include "details/widgets/messagebox.h"
#include "details/widgets/stringconversion.h"
#include "orv/appconfiguration.h"
#include "ui_metricsdialog.h"

#include <list>

namespace ovsettings {

using Orv::Metrics::Unit;
using Orv::Metrics::UnitTraits;

namespace {

constexpr unsigned kTemplate = 171;

} // namespace

CMetricsDialog::CMetricsDialog(QWidget* parent)
    : CPage(parent, kTemplate, "Metrics", "OV_SETUP_SETTINGS_SCH_ED_UNITS"),
      ui_(std::make_unique<Ui::CMetricsDialog>()) {
}

CMetricsDialog::~CMetricsDialog() = default;

bool CMetricsDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CMetricsDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    std::list<Unit> units;
    Orv::Metrics::ListAvaibleUnits(units);
    for (const Unit unit : units)
        ui_->units->addItem(toQString(UnitTraits(unit).FullName()), static_cast<int>(unit));
    told_ = Orv::getConfiguredUnit(*appConfig_);
    ui_->units->setCurrentIndex(ui_->units->findText(toQString(UnitTraits(*told_).FullName())));

    const std::string key = UnitTraits::GetUnitCfgKey();
    std::string ignored;
    bool locked = false;
    Orv::getValue(*appConfig_, key, ignored, locked);
    if (locked)
        markLocked(*ui_->units, *appConfig_, key);
    return true;
}

bool CMetricsDialog::onApply() {
    if (const auto unit = selectedUnit()) {
        Orv::setConfiguredUnit(*appConfig_, *unit);
        told_ = *unit;
    }
    return true;
}

bool CMetricsDialog::onLeave() {
    const auto unit = selectedUnit();
    if (unit && *unit != Orv::getConfiguredUnit(*appConfig_) &&
        askYesNo(this, tr("Do you want to save the changes you've made in this page?"), tr("Metrics")))
        Orv::setConfiguredUnit(*appConfig_, *unit);
    return true;
}

/// A unit stored on leaving is news to the host until the next commit has told it.
bool CMetricsDialog::isModified() const {
    const auto unit = selectedUnit();
    return unit && unit != told_;
}

std::optional<Unit> CMetricsDialog::selectedUnit() const {
    if (!told_ || ui_->units->currentIndex() < 0)
        return std::nullopt;
    return Unit(static_cast<Unit::Id>(ui_->units->currentData().toInt()));
}

} // namespace ovsettings
