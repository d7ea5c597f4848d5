#include "dialog/pages/designs/toplevelsettingsdialog.h"

#include "dialog/pages/designs/blockcombo.h"
#include "dialog/pages/designs/libraryschemes.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/listboxlines.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "platform/asciicase.h"
#include "ui_toplevelsettingsdialog.h"

#include <QtCore/QSignalBlocker>

#include <algorithm>

namespace ovsettings {

namespace {

/// It has the name of its design.
constexpr PageRow kRow{.templateId = 143, .helpTopic = "OV_SETUP_SETTINGS_PROJECT"};

constexpr char kDefaultShown[] = "Default";
constexpr char kLocalShown[] = "Local to design";

constexpr char kFrontEnd[] = "FE";
constexpr char kBackEnd[] = "BE";

std::vector<std::string> entriesOf(const ListBoxEditor& list) {
    std::vector<std::string> entries = stringsOf(list);
    std::erase(entries, std::string());
    return entries;
}

} // namespace

CTopLevelSettingsDialog::CTopLevelSettingsDialog(QWidget* parent, const std::string& designName)
    : CFormPage(parent, kRow), blockName_(designName) {
    name = blockName_.c_str();
}

CTopLevelSettingsDialog::~CTopLevelSettingsDialog() = default;

bool CTopLevelSettingsDialog::buildTemplate() {
    CFormPage::buildTemplate();
    ui_->symbolPartitions->setTitle(tr("Symbol Partitions"));
    ui_->pdbSearchPath->setTitle(tr("PDB Search Path"));
    const auto source = [this](PartitionKind kind) {
        return [this, kind] {
            return LibraryPartitions(libraryPath()).all(kind);
        };
    };
    ui_->symbolPartitions->setSource(source(PartitionKind::symbols));
    ui_->pdbSearchPath->setSource(source(PartitionKind::pdb));
    return true;
}

bool CTopLevelSettingsDialog::OnInitDialog() {
    if (!showsProject(ui_->scheme, projectConfig_)) {
        setListState(false);
        return true;
    }
    Orv::IProjectFileData& project = *projectConfig_->projectFile;
    schemeNames_ = {{kDefaultShown, kDefaultScheme}, {kLocalShown, kLocalScheme}};
    local_ = projectLists();
    const std::string stored = project.GetSearchScheme(blockName_);
    for (const auto& [shown, scheme] : schemeNames_) {
        if (scheme == stored)
            shownScheme_ = shown;
    }
    const Lists lists = listsOf(stored);
    firstLoad_ = false;
    showLists(lists);
    fillSchemes();
    selectScheme(stored);
    fillBlocks(*ui_->topLevelBlock, *projectConfig_, blockName_);
    ui_->backAnnotation->setChecked(!project.GetBackAnnotationBlocked(blockName_));
    ui_->forwardAnnotation->setChecked(!project.GetForwardAnnotationBlocked(blockName_));
    const std::string winner = project.GetConflictWinner(blockName_);
    ui_->frontEndWins->setChecked(winner == kFrontEnd || winner.empty());
    ui_->backEndWins->setChecked(winner == kBackEnd);
    setListState(isEditable(toUtf8(ui_->scheme->currentText())));
    connectControls();
    stored_ = choices();
    return true;
}

void CTopLevelSettingsDialog::connectControls() {
    connect(ui_->scheme, &QComboBox::currentIndexChanged, this, &CTopLevelSettingsDialog::onSchemeSelected);
    for (CTopLevelList* list : {ui_->symbolPartitions, ui_->pdbSearchPath})
        connect(list, &CTopLevelList::changed, this, &CTopLevelSettingsDialog::onListChanged);
}

CTopLevelSettingsDialog::Lists CTopLevelSettingsDialog::projectLists() const {
    Orv::IProjectFileData& project = *projectConfig_->projectFile;
    return {project.GetSymbolPartitions(blockName_), project.GetPdbSearchPath(blockName_),
            project.GetThirdPartitions(blockName_)};
}

CTopLevelSettingsDialog::Lists CTopLevelSettingsDialog::listsOf(const std::string& storedScheme) const {
    if (storedScheme == kLocalScheme)
        return firstLoad_ ? projectLists() : localLists();
    const LibraryPartitions library(libraryPath());
    return {library.ofScheme(PartitionKind::symbols, storedScheme),
            library.ofScheme(PartitionKind::pdb, storedScheme),
            library.ofScheme(PartitionKind::third, storedScheme)};
}

/// What the design had of its own last; where it had nothing, all that the library has.
CTopLevelSettingsDialog::Lists CTopLevelSettingsDialog::localLists() const {
    Lists lists;
    const LibraryPartitions library(libraryPath());
    if (noLocalScheme_)
        lists.third = library.all(PartitionKind::third);
    if (!local_.symbols.empty()) {
        lists.symbols = local_.symbols;
        lists.pdb = local_.pdb;
    } else if (noLocalScheme_) {
        lists.symbols = library.all(PartitionKind::symbols);
        lists.pdb = library.all(PartitionKind::pdb);
    }
    return lists;
}

void CTopLevelSettingsDialog::fillSchemes() {
    std::vector<std::string> names;
    std::vector<int> types;
    LibraryPartitions(libraryPath()).schemes(names, types);
    QStringList shown(kDefaultShown);
    schemeTypes_[kLocalScheme] = 1;
    noLocalScheme_ = true;
    for (std::size_t i = 0; i < names.size(); ++i) {
        schemeTypes_[names[i]] = types[i];
        if (names[i] != kDefaultScheme) {
            // It is found by the text on show, which may differ from its bytes; the first of each text
            // counts.
            const QString text = toQString(names[i]);
            if (schemeNames_.try_emplace(toUtf8(text), names[i]).second)
                shown.append(text);
        }
        if (names[i] == kLocalScheme)
            noLocalScheme_ = false;
    }
    if (schemeTypes_[kDefaultScheme] != 0)
        shown.append(kLocalShown);
    ui_->scheme->clear();
    ui_->scheme->addItems(shown);
    ui_->scheme->setCurrentIndex(-1);
}

/// A scheme that is not offered leaves nothing selected.
void CTopLevelSettingsDialog::selectScheme(const std::string& stored) {
    for (const auto& [shown, scheme] : schemeNames_) {
        if (scheme != stored)
            continue;
        const int index = ui_->scheme->findText(toQString(shown), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index >= 0)
            ui_->scheme->setCurrentIndex(index);
    }
}

void CTopLevelSettingsDialog::showLists(const Lists& lists) {
    showStrings(*ui_->symbolPartitions, lists.symbols);
    showStrings(*ui_->pdbSearchPath, lists.pdb);
    third_ = lists.third;
}

void CTopLevelSettingsDialog::onSchemeSelected(int chosen) {
    // An edit that ends here makes the lists the design's own. The user's choice of a scheme comes after it.
    ui_->symbolPartitions->finishEditing();
    ui_->pdbSearchPath->finishEditing();
    setScheme(chosen);
    const std::string shown = toUtf8(ui_->scheme->currentText());
    if (shown == shownScheme_)
        return; // the edit has made the lists what is chosen
    const auto stored = schemeNames_.find(shown);
    if (stored == schemeNames_.end())
        return;
    const Lists lists = listsOf(stored->second);
    if (shownScheme_ == kLocalShown) {
        local_.symbols = entriesOf(*ui_->symbolPartitions);
        local_.pdb = entriesOf(*ui_->pdbSearchPath);
    }
    showLists(lists);
    shownScheme_ = shown;
    setListState(isEditable(shown));
}

/// Lists that the user has changed are the design's own from here on. They are kept as such when another
/// scheme is chosen, so that he finds them again under "Local to design".
void CTopLevelSettingsDialog::onListChanged() {
    const int local = ui_->scheme->findText(kLocalShown, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (local < 0)
        return;
    setScheme(local);
    shownScheme_ = kLocalShown;
}

void CTopLevelSettingsDialog::setScheme(int index) {
    const QSignalBlocker quiet(ui_->scheme);
    ui_->scheme->setCurrentIndex(index);
}

bool CTopLevelSettingsDialog::isEditable(const std::string& shown) const {
    const auto stored = schemeNames_.find(shown);
    const auto type = stored == schemeNames_.end() ? schemeTypes_.end() : schemeTypes_.find(stored->second);
    return type != schemeTypes_.end() && type->second != 0;
}

void CTopLevelSettingsDialog::setListState(bool editable) {
    ui_->symbolPartitions->setEditable(editable);
    ui_->pdbSearchPath->setEditable(editable);
}

bool CTopLevelSettingsDialog::onApply() {
    if (!showsProject(ui_->scheme, projectConfig_))
        return true;
    ui_->symbolPartitions->finishEditing();
    ui_->pdbSearchPath->finishEditing();
    bool stored = !storesLists() || storeLists();
    if (ui_->scheme->currentIndex() >= 0)
        stored = storeScheme() && stored;
    stored = storeBlock(*ui_->topLevelBlock, *projectConfig_, blockName_, navigator_) && stored;
    stored = storeFlags() && stored;
    if (stored)
        stored_ = choices();
    return true;
}

bool CTopLevelSettingsDialog::isModified() const {
    return showsProject(ui_->scheme, projectConfig_) &&
           (ui_->symbolPartitions->isChanging() || ui_->pdbSearchPath->isChanging() || choices() != stored_);
}

bool CTopLevelSettingsDialog::storesLists() const {
    return ui_->scheme->currentIndex() >= 0 && ui_->scheme->currentText() != QLatin1String(kDefaultShown);
}

CTopLevelSettingsDialog::Lists CTopLevelSettingsDialog::shownLists() const {
    return {entriesOf(*ui_->symbolPartitions), entriesOf(*ui_->pdbSearchPath), third_};
}

CTopLevelSettingsDialog::Choices CTopLevelSettingsDialog::choices() const {
    return {ui_->topLevelBlock->currentIndex(),     ui_->scheme->currentIndex(),
            storesLists() ? shownLists() : Lists{}, ui_->backAnnotation->isChecked(),
            ui_->forwardAnnotation->isChecked(),    ui_->frontEndWins->isChecked(),
            ui_->backEndWins->isChecked()};
}

bool CTopLevelSettingsDialog::storeLists() {
    const Lists lists = shownLists();
    if (lists != projectLists())
        projectConfig_->topLevelChanged = true;
    Orv::IProjectFileData& project = *projectConfig_->projectFile;
    project.SetSymbolPartitions(lists.symbols, blockName_);
    project.SetPdbSearchPath(lists.pdb, blockName_);
    project.SetThirdPartitions(lists.third, blockName_);
    return projectLists() == lists;
}

bool CTopLevelSettingsDialog::storeScheme() {
    std::string scheme = toUtf8(ui_->scheme->currentText());
    if (const auto stored = schemeNames_.find(scheme); stored != schemeNames_.end())
        scheme = stored->second;
    Orv::IProjectFileData& project = *projectConfig_->projectFile;
    if (!platform::equalsWithoutCase(scheme, project.GetSearchScheme(blockName_)))
        projectConfig_->topLevelChanged = true;
    project.SetSearchScheme(scheme, blockName_);
    return project.GetSearchScheme(blockName_) == scheme;
}

bool CTopLevelSettingsDialog::storeFlags() {
    Orv::IProjectFileData& project = *projectConfig_->projectFile;
    const bool backBlocked = !ui_->backAnnotation->isChecked();
    const bool forwardBlocked = !ui_->forwardAnnotation->isChecked();
    const char* winner = ui_->frontEndWins->isChecked() ? kFrontEnd : kBackEnd;
    project.SetBackAnnotationBlocked(backBlocked, blockName_);
    project.SetForwardAnnotationBlocked(forwardBlocked, blockName_);
    project.SetConflictWinner(winner, blockName_);
    return project.GetBackAnnotationBlocked(blockName_) == backBlocked &&
           project.GetForwardAnnotationBlocked(blockName_) == forwardBlocked &&
           project.GetConflictWinner(blockName_) == winner;
}

bool CTopLevelSettingsDialog::onCancel() {
    return true;
}

std::string CTopLevelSettingsDialog::libraryPath() const {
    return showsProject(ui_->scheme, projectConfig_) ? projectConfig_->projectFile->GetCentralLibraryPath(1)
                                                     : std::string();
}

} // namespace ovsettings
