#include "details/pages/advanced/generaldialog.h"

#include "details/appcfg/unitglue.h"
#include "details/pages/advanced/generalchoices.h"
#include "details/pages/advanced/generalrowunitvalueedit.h"
#include "details/widgets/stringconversion.h"
#include "ui_generaldialog.h"

#include <algorithm>

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 135;

} // namespace

CGeneralDialog::CGeneralDialog(QWidget* parent)
    : CPage(parent, kTemplate, "Advanced", "OV_SETUP_SETTINGS_ADVANCED"),
      ui_(std::make_unique<Ui::CGeneralDialog>()) {
}

CGeneralDialog::~CGeneralDialog() = default;

void CGeneralDialog::setAppConfiguration(Orv::iAppConfiguration* appConfig) {
    appConfig_ = appConfig;
    if (grid_)
        grid_->setAppConfiguration(appConfig);
}

bool CGeneralDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CGeneralDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    grid_ = ui_->grid;
    grid_->setAppConfiguration(appConfig_);
    grid_->onInitialUpdate();
    kept_ = texts();
    return true;
}

bool CGeneralDialog::onApply() {
    if (!grid_)
        return true;
    if (!grid_->endEdit())
        return false;
    for (const auto& row : grid_->rows())
        storeRow(*row);
    kept_ = texts();
    return true;
}

bool CGeneralDialog::onEnter() {
    if (!grid_)
        return true;
    const Orv::Metrics::Unit unit = Orv::getConfiguredUnit(*appConfig_);
    const std::vector<QString> before = texts();
    for (const auto& row : grid_->rows()) {
        if (auto* length = dynamic_cast<CGeneralRowUnitValueEdit*>(row.get()))
            length->onUnitChanged(unit);
    }
    const std::vector<QString> after = texts();
    for (std::size_t row = 0; row < kept_.size(); ++row) {
        if (kept_[row] == before[row])
            kept_[row] = after[row];
    }
    return true;
}

bool CGeneralDialog::onLeave() {
    return validate();
}

bool CGeneralDialog::isValid() {
    return validate();
}

bool CGeneralDialog::hasUnreportedEdits() const {
    return texts() != kept_;
}

std::vector<QString> CGeneralDialog::texts() const {
    std::vector<QString> texts;
    if (grid_) {
        for (const auto& row : grid_->rows())
            texts.push_back(row->valueText());
    }
    return texts;
}

bool CGeneralDialog::validate() {
    if (!grid_)
        return true;
    return grid_->endEdit() &&
           std::ranges::all_of(grid_->rows(), [](const auto& row) { return row->validate(); });
}

void CGeneralDialog::storeRow(CGeneralRow& row) {
    std::string text;
    row.store(text);
    const ChoiceTable* table = choiceTableOf(row.getKey());
    if (!table)
        return;
    const ChoiceWritten* written = writtenFor(*table, toQString(text));
    if (!written)
        return;
    // What is locked need not look so: then the row goes back to what the store has kept.
    if (!writeChoice(*table, *written, *appConfig_))
        row.setValueText(shownChoice(*table, *appConfig_));
}

} // namespace ovsettings
