#include "dialog/pages/advanced/generaldialog.h"

#include "dialog/pages/advanced/generalchoices.h"
#include "dialog/pages/advanced/generalrowcheckbox.h"
#include "dialog/pages/advanced/generalrowunitvalueedit.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/unitglue.h"
#include "ui_generaldialog.h"

#include <algorithm>

namespace ovsettings {

CGeneralDialog::CGeneralDialog(QWidget* parent) : CFormPage(parent, internalPage("Advanced")) {
}

CGeneralDialog::~CGeneralDialog() = default;

void CGeneralDialog::setAppConfiguration(Orv::iAppConfiguration* appConfig) {
    appConfig_ = appConfig;
    if (grid_)
        grid_->setAppConfiguration(appConfig);
}

bool CGeneralDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    grid_ = ui_->grid;
    grid_->setAppConfiguration(appConfig_);
    grid_->onInitialUpdate();
    keep();
    return true;
}

bool CGeneralDialog::onApply() {
    if (!grid_)
        return true;
    if (!grid_->endEdit())
        return false;
    for (const auto& row : grid_->rows())
        storeRow(*row);
    keep();
    return true;
}

bool CGeneralDialog::onEnter() {
    if (!grid_)
        return true;
    const Orv::Metrics::Unit unit = Orv::getConfiguredUnit(*appConfig_);
    for (const auto& row : grid_->rows()) {
        if (auto* length = dynamic_cast<CGeneralRowUnitValueEdit*>(row.get()))
            length->onUnitChanged(unit);
    }
    return true;
}

bool CGeneralDialog::onLeave() {
    return validate();
}

bool CGeneralDialog::isValid() {
    return validate();
}

bool CGeneralDialog::hasUnsavedEdits() const {
    return !std::ranges::equal(values(), kept_, {}, {}, &KeptRow::value);
}

DroppedEdits CGeneralDialog::followConfiguration() {
    DroppedEdits dropped;
    for (std::size_t at = 0; at < kept_.size(); ++at) {
        KeptRow& kept = kept_[at];
        CGeneralRow& row = *grid_->rows()[at];
        const Stored now = read(row);
        if (now == kept.stored)
            continue;
        kept.stored = now;
        const bool edited = row.value() != kept.value;
        kept.value = storedValue(row);
        if (edited && !now.lockedKey)
            continue;
        showAnew(row);
        if (edited)
            dropped.push_back({*now.lockedKey, 0});
    }
    onEnter(); // the unit may be another one
    return dropped;
}

CGeneralDialog::Stored CGeneralDialog::read(const CGeneralRow& row) const {
    Stored stored;
    const auto readKey = [&](const std::string& key) {
        bool locked = false;
        Orv::getValue(*appConfig_, key, stored.texts.emplace_back(), locked);
        if (locked && !stored.lockedKey)
            stored.lockedKey = key;
    };
    if (const ChoiceTable* table = choiceTableOf(row.getKey()))
        std::ranges::for_each(table->keys, readKey);
    else
        readKey(row.getKey());
    return stored;
}

void CGeneralDialog::keep() {
    kept_.clear();
    for (const auto& row : grid_->rows())
        kept_.push_back({row->value(), read(*row)});
}

std::vector<QString> CGeneralDialog::values() const {
    std::vector<QString> values;
    if (grid_) {
        for (const auto& row : grid_->rows())
            values.push_back(row->value());
    }
    return values;
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
    // Not every locked row looks locked. The store has kept its value, and the row shows that again.
    if (!writeChoice(*table, *written, *appConfig_))
        row.setValueText(shownChoice(*table, *appConfig_));
}

void CGeneralDialog::showAnew(CGeneralRow& row) const {
    if (const ChoiceTable* table = choiceTableOf(row.getKey()))
        grid_->readChoice(dynamic_cast<CGeneralRowCheckBox&>(row), *table);
    row.showAnew();
}

QString CGeneralDialog::storedValue(const CGeneralRow& row) const {
    const ChoiceTable* table = choiceTableOf(row.getKey());
    return table ? shownChoice(*table, *appConfig_) : row.storedValue();
}

} // namespace ovsettings
