#include "dialog/pages/display/fontdialog.h"

#include "dialog/pages/display/fontchooser.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/numbers.h"
#include "ui_fontdialog.h"

namespace ovsettings {

namespace {

constexpr const char* kScaleFactorKey = "SCALEFACTOR";

} // namespace

CFontDialog::CFontDialog(QWidget* parent) : CFormPage(parent, internalPage("Font Mappings")) {
}

CFontDialog::~CFontDialog() = default;

bool CFontDialog::buildTemplate() {
    CFormPage::buildTemplate();
    ui_->grid->setAppConfiguration(appConfig_);
    connect(ui_->editMapping, &QPushButton::clicked, this, &CFontDialog::editMapping);
    connect(ui_->removeMapping, &QPushButton::clicked, this, &CFontDialog::removeMapping);
    connect(ui_->grid, &CFontsGrid::editRequested, this, &CFontDialog::editMapping);
    connect(ui_->grid, &CFontsGrid::removeRequested, this, &CFontDialog::removeMapping);
    connect(ui_->grid, &CFontsGrid::rowSelected, this, &CFontDialog::followRow);
    return true;
}

bool CFontDialog::OnInitDialog() {
    ui_->grid->init();
    if (!appConfig_)
        return false;
    ui_->grid->addRows();
    ui_->grid->loadRows();
    showFactor();
    return true;
}

void CFontDialog::showFactor() {
    Orv::getValue(*appConfig_, kScaleFactorKey, factor_, isFactorLocked_);
    ui_->scaleFactor->setText(toQString(factor_));
    if (isFactorLocked_)
        markLocked(*ui_->scaleFactor, *appConfig_, kScaleFactorKey);
}

bool CFontDialog::onApply() {
    if (!appConfig_) // opened without a configuration: there is nothing to store
        return true;
    ui_->grid->storeRows();
    const std::string factor = typedFactor();
    if (Orv::doubleFromText(factor) > 0) {
        Orv::setValue(*appConfig_, kScaleFactorKey, factor);
        factor_ = factor;
    }
    return true;
}

bool CFontDialog::isModified() const {
    const std::string factor = typedFactor();
    return ui_->grid->isModified() || (factor != factor_ && Orv::doubleFromText(factor) > 0);
}

DroppedEdits CFontDialog::followConfiguration() {
    DroppedEdits dropped;
    if (!appConfig_)
        return dropped;
    ui_->grid->followRows(dropped);
    followRow();
    followFactor(dropped);
    return dropped;
}

void CFontDialog::followFactor(DroppedEdits& dropped) {
    std::string now;
    bool locked = false;
    Orv::getValue(*appConfig_, kScaleFactorKey, now, locked);
    if (now == factor_ && locked == isFactorLocked_)
        return;
    const bool edited = typedFactor() != factor_;
    if (edited && !locked) {
        factor_ = now;
        return;
    }
    if (isFactorLocked_)
        unmarkLocked(*ui_->scaleFactor);
    showFactor();
    if (edited)
        dropped.push_back({kScaleFactorKey, 0});
}

/// A typed text that begins with a factor is kept as it was typed; any other is dropped without a message. A
/// stored text that the field cannot show was not typed, and is kept to the byte.
std::string CFontDialog::typedFactor() const {
    const QString text = ui_->scaleFactor->text();
    return text == toQString(factor_) ? factor_ : toUtf8(text);
}

void CFontDialog::editMapping() {
    CFontMapRow* row = ui_->grid->currentMapRow();
    if (!row)
        return;
    FontChooser chooser(row->description(), row->mappedFace(), this);
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFont().family().isEmpty())
        return;
    if (chooser.hasFace())
        row->take(chooser.selectedFont());
    else
        row->takeEffects(chooser.selectedFont());
}

void CFontDialog::removeMapping() {
    if (CFontMapRow* row = ui_->grid->currentMapRow())
        row->remove();
}

void CFontDialog::followRow() {
    const CFontMapRow* row = ui_->grid->currentMapRow();
    const bool changeable = !row || !row->isLocked();
    ui_->editMapping->setEnabled(changeable);
    ui_->removeMapping->setEnabled(changeable);
}

} // namespace ovsettings
