#include "dialog/pages/borders/bordersdialog.h"

#include "dialog/pages/borders/attributedialog.h"
#include "dialog/pages/borders/customborderdialog.h"
#include "dialog/pages/borders/symbolproperties.h"
#include "dialog/projectfile/savequestion.h"
#include "dialog/shell/internalpages.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/progress.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "store/unitglue.h"
#include "ui_bordersdialog.h"

namespace ovsettings {

CBorderSymbolsFeeder::CBorderSymbolsFeeder(Orv::CProjectConfiguration& projectConfig)
    : CSymbolsFeeder(projectConfig, [](cldialog::IDataSource& source, std::vector<std::string>& symbols) {
          source.GetBorderSymbols(symbols);
      }) {
}

CBordersDialog::CBordersDialog(QWidget* parent) : CFormPage(parent, internalPage("Borders")) {
}

CBordersDialog::~CBordersDialog() = default;

bool CBordersDialog::buildTemplate() {
    CFormPage::buildTemplate();
    connect(ui_->grid, &CBordersGrid::currentRowChanged, this, &CBordersDialog::enableDelete);
    connect(ui_->grid, &CBordersGrid::symbolWanted, this, &CBordersDialog::chooseSymbol);
    connect(ui_->grid, &CBordersGrid::symbolDropped, this,
            [this](std::size_t index, BorderSheet sheet) { showRows(model_.dropSymbol(index, sheet)); });
    connect(ui_->properties, &QPushButton::clicked, this, &CBordersDialog::editProperties);
    connect(ui_->addCustom, &QPushButton::clicked, this, &CBordersDialog::addCustom);
    connect(ui_->deleteCustom, &QPushButton::clicked, this, &CBordersDialog::deleteCustom);
    return true;
}

bool CBordersDialog::OnInitDialog() {
    file_.noteLoaded(storedPath());
    load();
    enableControls();
    return true;
}

/// A page without changes stores nothing: by now the object may stand for another file. Changes are laid onto
/// what the object holds now; if they cannot be saved, it keeps what it held. A file that is gone is told,
/// but nothing is refused: the user took it away, and he cannot give it back here.
bool CBordersDialog::onApply() {
    if (!model_.isModified())
        return true;
    if (!hasFile()) {
        tellNoFile(*this, tr("Borders"));
        return true;
    }
    followFile();
    // While the user is asked, another program may name another file, which he was not asked about.
    const std::string path = storedPath();
    if (!foreign_.mayWrite(*this, *projectConfig_, path))
        return false;
    const std::string cause = model_.store(*borderSymbols(), path);
    if (cause.empty())
        return true;
    file_.noteFailedSave();
    tellFailedSave(*this, cause);
    return false;
}

bool CBordersDialog::onEnter() {
    followFile();
    enableControls();
    return true;
}

/// What is not saved stays on the page. Without a file there is no question, since a Yes could do nothing.
bool CBordersDialog::onLeave() {
    if (model_.isModified() && hasFile() &&
        askYesNo(this, tr("Do you want to save the changes you've made in this page?"), tr("Borders")))
        onApply();
    return true;
}

bool CBordersDialog::isModified() const {
    return model_.isModified();
}

Orv::IBorderSymbols* CBordersDialog::borderSymbols() const {
    return projectConfig_ ? dynamic_cast<Orv::IBorderSymbols*>(projectConfig_->borderSymbols) : nullptr;
}

std::string CBordersDialog::storedPath() const {
    return hasProject(projectConfig_) ? projectConfig_->projectFile->GetBorderSymbolsPath(1) : std::string();
}

bool CBordersDialog::hasFile() const {
    return borderSymbols() && !storedPath().empty();
}

void CBordersDialog::load() {
    if (!ui_->grid || !borderSymbols())
        return;
    model_.load(*borderSymbols());
    ui_->grid->showRows(model_.rows());
}

/// Another page or program may have given the project another border symbols file, or have had it read again.
void CBordersDialog::followFile() {
    if (!ui_->grid || !borderSymbols())
        return;
    file_.follow(*borderSymbols(), storedPath());
    if (model_.follow(*borderSymbols()))
        ui_->grid->showRows(model_.rows());
}

void CBordersDialog::enableControls() {
    if (!ui_->grid)
        return;
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->grid, ui_->properties, ui_->addCustom})
        control->setEnabled(hasFile());
    enableDelete();
}

void CBordersDialog::chooseSymbol(std::size_t index, BorderSheet sheet) {
    CBorderSymbolsFeeder feeder(*projectConfig_);
    const std::string symbol = cldialog::showCentralLibraryDialog(feeder, toUtf8(tr("Border Symbol")));
    if (!symbol.empty())
        showRows(model_.setSymbol(index, sheet, symbol));
}

void CBordersDialog::showRows(const std::vector<std::size_t>& indices) {
    for (const std::size_t index : indices)
        ui_->grid->showRow(index, model_.rows().at(index));
}

void CBordersDialog::addCustom() {
    const Orv::Metrics::Unit unit =
        appConfig_ ? Orv::getConfiguredUnit(*appConfig_) : Orv::Metrics::Unit(Orv::Metrics::Unit::inch);
    CCustomBorderDialog dialog(unit, this);
    if (dialog.DoModal() != QDialog::Accepted)
        return;
    const std::string key = customBorderKey(dialog.width(), dialog.height(), unit);
    showRows(model_.addCustom(key));
    ui_->grid->setCurrentCell(static_cast<int>(model_.rows().indexOf(key)) + 1, 1);
    enableDelete();
}

void CBordersDialog::deleteCustom() {
    if (!isCustomRow())
        return;
    const int row = ui_->grid->currentRow();
    const std::vector<std::size_t> changed = model_.removeCustom(static_cast<std::size_t>(row) - 1);
    ui_->grid->removeRow(row);
    showRows(changed);
    enableDelete();
}

bool CBordersDialog::isCustomRow() const {
    const auto row = static_cast<std::size_t>(ui_->grid->currentRow());
    return row > 0 && row <= model_.rows().count() && model_.rows().at(row - 1).isCustom();
}

void CBordersDialog::enableDelete() {
    ui_->deleteCustom->setEnabled(ui_->grid->isEnabled() && isCustomRow());
}

void CBordersDialog::editProperties() {
    if (!borderSymbols())
        return;
    const auto known = knownValues();
    if (!known)
        return;
    Orv::IBorderSymbols& symbols = *borderSymbols();
    CAttributeDialog dialog(this);
    dialog.setText(tr("Use this dialog to provide values for existing border properties.  Add  other "
                      "available properties from drop-down list in the last row.  The values assigned here "
                      "will later be applied to properties on the default border symbol being used."));
    dialog.setKnownValues(*known);
    dialog.setAttributes(model_.properties(symbols));
    dialog.setNames(symbols.GetPropertyNames());
    if (dialog.DoModal() == QDialog::Accepted)
        model_.setProperties(symbols, dialog.attributes());
}

std::optional<KnownValues> CBordersDialog::knownValues() {
    if (!projectConfig_->symbolReader)
        return KnownValues();
    SymbolProperties properties(*projectConfig_->symbolReader, projectConfig_->propertyFilter);
    const std::vector<std::string> symbols = model_.symbols();
    // For each symbol a file is read.
    if (!withProgress(*this, tr("Reading the properties of the border symbols"), symbols.size(),
                      [&](std::size_t step) { properties.read(symbols[step]); }))
        return std::nullopt;
    return properties.knownValues();
}

} // namespace ovsettings
