#include "dialog/pages/borders/bordersdialog.h"

#include "dialog/pages/borders/attributedialog.h"
#include "dialog/pages/borders/customborderdialog.h"
#include "dialog/projectfile/savequestion.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/progress.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "orv/symbolreader.h"
#include "store/unitglue.h"
#include "ui_bordersdialog.h"

#include <set>

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 145;
/// A value that begins with it is filled in by the editor.
constexpr char kFilledIn = '@';

} // namespace

CBorderSymbolsFeeder::CBorderSymbolsFeeder(Orv::CProjectConfiguration& projectConfig)
    : CSymbolsFeeder(projectConfig, [](cldialog::IDataSource& source, std::vector<std::string>& symbols) {
          source.GetBorderSymbols(symbols);
      }) {
}

CBordersDialog::CBordersDialog(QWidget* parent)
    : CPage(parent, kTemplate, "Borders", "OV_SETUP_SETTINGS_PROJECT"),
      ui_(std::make_unique<Ui::CBordersDialog>()) {
}

CBordersDialog::~CBordersDialog() = default;

bool CBordersDialog::buildTemplate() {
    ui_->setupUi(this);
    connect(ui_->grid, &CBordersGrid::currentRowChanged, this, &CBordersDialog::enableDelete);
    connect(ui_->grid, &CBordersGrid::symbolWanted, this, &CBordersDialog::chooseSymbol);
    connect(ui_->grid, &CBordersGrid::symbolDropped, this,
            [this](std::size_t index, BorderSheet sheet) { dropSymbol(index, sheet); });
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

/// A page without changes stores nothing: by now the object may stand for another file. What is changed is
/// laid onto what the object holds by now, which stays as it is where it cannot be saved. That there is no
/// file any more is told, but refuses nothing: the user took it away, and here he could not give it back.
bool CBordersDialog::onApply() {
    if (!dirty_)
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
    Orv::IBorderSymbols* symbols = borderSymbols();
    const Orv::IBorderSymbols::Table table = symbols->GetTable();
    const CBorderProperties::Properties properties = symbols->GetProperties();
    rows_.store(symbols->GetTable());
    symbols->GetProperties() = properties_.laidOver(properties);
    symbols->Save(path);
    if (const std::string cause = symbols->GetSaveError(); !cause.empty()) {
        symbols->GetTable() = table;
        symbols->GetProperties() = properties;
        file_.noteFailedSave();
        tellFailedSave(*this, cause);
        return false;
    }
    rows_.noteStored(symbols->GetTable());
    properties_.clear();
    dirty_ = false;
    return true;
}

bool CBordersDialog::onEnter() {
    followFile();
    enableControls();
    return true;
}

/// What is not saved stays on the page. Without a file a Yes could do nothing.
bool CBordersDialog::onLeave() {
    if (dirty_ && hasFile() &&
        askYesNo(this, tr("Do you want to save the changes you've made in this page?"), tr("Borders")))
        onApply();
    return true;
}

bool CBordersDialog::isModified() const {
    return dirty_;
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
    rows_.load(borderSymbols()->GetTable());
    ui_->grid->showRows(rows_);
    properties_.clear();
    dirty_ = false;
}

/// Another page or program may have given the project another border symbols file, or have had it read again.
void CBordersDialog::followFile() {
    if (!ui_->grid || !borderSymbols())
        return;
    file_.follow(*borderSymbols(), storedPath());
    if (!dirty_)
        load();
    else if (rows_.follow(borderSymbols()->GetTable()))
        ui_->grid->showRows(rows_);
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
        setSymbol(index, sheet, symbol);
}

void CBordersDialog::setSymbol(std::size_t index, BorderSheet sheet, const std::string& symbol) {
    for (const std::size_t changed : rows_.setSymbol(index, sheet, symbol))
        ui_->grid->showRow(changed, rows_.at(changed));
    dirty_ = true;
}

void CBordersDialog::dropSymbol(std::size_t index, BorderSheet sheet) {
    const BorderRow& row = rows_.at(index);
    if (!(sheet == BorderSheet::first ? row.first : row.next).empty())
        setSymbol(index, sheet, {});
}

void CBordersDialog::addCustom() {
    const Orv::Metrics::Unit unit =
        appConfig_ ? Orv::getConfiguredUnit(*appConfig_) : Orv::Metrics::Unit(Orv::Metrics::Unit::inch);
    CCustomBorderDialog dialog(unit, this);
    if (dialog.DoModal() != QDialog::Accepted)
        return;
    const std::string key = customBorderKey(dialog.width(), dialog.height(), unit);
    const std::size_t index = rows_.indexOf(key);
    if (index == rows_.count()) {
        for (const std::size_t changed : rows_.add(key))
            ui_->grid->showRow(changed, rows_.at(changed));
        dirty_ = true;
    }
    ui_->grid->setCurrentCell(static_cast<int>(index) + 1, 1);
    enableDelete();
}

void CBordersDialog::deleteCustom() {
    if (!isCustomRow())
        return;
    const int row = ui_->grid->currentRow();
    const std::size_t changed = rows_.remove(static_cast<std::size_t>(row) - 1);
    ui_->grid->removeRow(row);
    if (changed < rows_.count())
        ui_->grid->showRow(changed, rows_.at(changed));
    dirty_ = true;
    enableDelete();
}

bool CBordersDialog::isCustomRow() const {
    const auto row = static_cast<std::size_t>(ui_->grid->currentRow());
    return row > 0 && row <= rows_.count() && rows_.at(row - 1).isCustom();
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
    dialog.setAttributes(properties_.laidOver(symbols.GetProperties()));
    dialog.setNames(symbols.GetPropertyNames());
    if (dialog.DoModal() == QDialog::Accepted &&
        properties_.take(symbols.GetProperties(), dialog.attributes()))
        dirty_ = true;
}

std::vector<std::string> CBordersDialog::symbolsOfRows() const {
    std::set<std::string> taken{""};
    std::vector<std::string> symbols;
    for (std::size_t index = 0; index < rows_.count(); ++index) {
        for (const std::string& symbol : {rows_.at(index).first, rows_.at(index).next}) {
            if (taken.insert(symbol).second)
                symbols.push_back(symbol);
        }
    }
    return symbols;
}

std::optional<KnownValues> CBordersDialog::knownValues() {
    KnownValues known;
    if (!projectConfig_->symbolReader)
        return known;
    std::set<Attribute> found;
    const auto ask = [&](const std::string& symbol) {
        const auto separator = symbol.find(Orv::kSymbolSeparator);
        const bool hasLibrary = separator != std::string::npos;
        const std::string library = hasLibrary ? symbol.substr(0, separator) : std::string();
        const std::string symbolName = hasLibrary ? symbol.substr(separator + 1) : symbol;
        for (const Attribute& property : projectConfig_->symbolReader->GetProperties(library, symbolName)) {
            const auto& [propertyName, value] = property;
            const bool counts =
                !projectConfig_->propertyFilter || projectConfig_->propertyFilter->Counts(propertyName);
            if (!counts || value.starts_with(kFilledIn))
                continue;
            std::vector<std::string>& values = known[propertyName];
            // No value has a choice of its own already.
            if (!value.empty() && found.insert(property).second)
                values.push_back(value);
        }
    };
    const std::vector<std::string> symbols = symbolsOfRows();
    // Each symbol is a file.
    if (!withProgress(*this, tr("Reading the properties of the border symbols"), symbols.size(),
                      [&](std::size_t step) { ask(symbols[step]); }))
        return std::nullopt;
    return known;
}

} // namespace ovsettings
