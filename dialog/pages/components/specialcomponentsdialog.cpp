#include "dialog/pages/components/specialcomponentsdialog.h"

#include "dialog/projectfile/savequestion.h"
#include "dialog/projectfile/symbolsfeeder.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/listboxlines.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectconfiguration.h"
#include "orv/specialcomponents.h"
#include "ui_specialcomponentsdialog.h"

#include <QtWidgets/QListWidget>

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

using cldialog::IDataSource;

/// A category of the file, by its index there.
struct Category {
    const char* text; ///< in the page's list; null if it is not offered
    const char* title;
    void (IDataSource::*symbols)(std::vector<std::string>& symbols);
};

constexpr std::array<Category, Orv::ISpecialComponents::kCategories> kCategories{{
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port IN"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port IN"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OUT"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OUT"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port BI"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port BI"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port TRI"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port TRI"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port ANALOG"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port ANALOG"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OCL"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OCL"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OEM"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Port OEM"), &IDataSource::GetPortSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "OnSheet"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "On Sheet Symbol"),
     &IDataSource::GetOnSheetSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "OffSheet"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Off Sheet Symbol"),
     &IDataSource::GetOffSheetSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Power"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Power Symbol"),
     &IDataSource::GetPowerSymbols},
    {QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Ground"),
     QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Ground Symbol"),
     &IDataSource::GetGroundSymbols},
    {nullptr, QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Ripper Bus-Net Symbol"),
     &IDataSource::GetRipperBusNetSymbols},
    {nullptr, QT_TRANSLATE_NOOP("ovsettings::CSpecialComponentsDialog", "Ripper Bus-Bus Symbol"),
     &IDataSource::GetRipperBusBusSymbols},
}};

using Symbols = std::vector<std::string>;

Symbols without(Symbols symbols, const Symbols& taken) {
    for (const std::string& symbol : taken) {
        if (const auto found = std::ranges::find(symbols, symbol); found != symbols.end())
            symbols.erase(found);
    }
    return symbols;
}

/// A list with what was changed from one list to another: what was taken out goes, what was added comes
/// first.
Symbols withChanges(const Symbols& list, const Symbols& from, const Symbols& to) {
    if (list == from)
        return to;
    Symbols changed = without(to, from);
    const Symbols rest = without(without(list, without(from, to)), changed);
    changed.insert(changed.end(), rest.begin(), rest.end());
    return changed;
}

} // namespace

CSpecialComponentsDialog::CSpecialComponentsDialog(QWidget* parent)
    : CFormPage(parent, internalPage("Special Components")) {
    static_assert(std::ranges::count(kCategories, nullptr, &Category::text) ==
                  Orv::ISpecialComponents::kCategories - kOffered);
}

CSpecialComponentsDialog::~CSpecialComponentsDialog() = default;

bool CSpecialComponentsDialog::buildTemplate() {
    CFormPage::buildTemplate();
    for (const Category& category : kCategories) {
        if (category.text)
            ui_->category->addItem(tr(category.text));
    }
    ui_->symbols->setTitle(tr("&Symbols"));
    ui_->symbols->setSources([this] { return chooseSymbol(shown_); }, [this] { return knownSymbols(); });
    connect(ui_->category, &QComboBox::currentIndexChanged, this, &CSpecialComponentsDialog::selectCategory);
    return true;
}

bool CSpecialComponentsDialog::OnInitDialog() {
    file_.noteLoaded(storedPath());
    load();
    enableControls();
    return true;
}

/// If the lists cannot be saved, the file object keeps what it held. On a page without changes that refuses
/// nothing: there is nothing to lose, and the user may not be able to mend the file. Nor is he asked then
/// about a file outside of the project, which is left alone. A file that is gone is told, but nothing is
/// refused: the user took it away, and he cannot give it back here.
bool CSpecialComponentsDialog::onApply() {
    if (!isBuilt())
        return true;
    takeRows();
    if (!hasFile()) {
        if (working_ != loaded_)
            tellNoFile(*this, tr("Special Components"));
        return true;
    }
    followFile();
    if (saved_ && working_ == loaded_)
        return true;
    // While the user is asked, another program may name another file, which he was not asked about.
    const std::string path = storedPath();
    if (working_ == loaded_ && !ForeignFile::isAllowed(*projectConfig_, path))
        return true;
    if (!foreign_.mayWrite(*this, *projectConfig_, path))
        return false;
    putIntoFile(working_);
    components()->Save(path);
    const std::string cause = components()->GetSaveError();
    if (!cause.empty())
        file_.noteFailedSave();
    if (!cause.empty() && working_ != loaded_) {
        putIntoFile(loaded_);
        tellFailedSave(*this, cause);
        return false;
    }
    loaded_ = working_;
    saved_ = cause.empty();
    return true;
}

bool CSpecialComponentsDialog::onEnter() {
    if (!isBuilt())
        return true;
    takeRows();
    followFile();
    enableControls();
    return true;
}

/// A list that only grew or shrank at its end is no reason to ask; it stays, to be stored. So does what could
/// not be saved; without a file a Yes could do nothing.
bool CSpecialComponentsDialog::onLeave() {
    if (!isBuilt())
        return true;
    takeRows();
    if (!hasFile() || !isModified())
        return true;
    // The file may have gone while the question stood.
    if (asksToSave(*this) && (!onApply() || working_ != loaded_))
        return true;
    load();
    return true;
}

/// Lists are compared as far as both go: one that only grew or shrank at its end is not a change. Users know
/// the page so: it asks no question then.
bool CSpecialComponentsDialog::isModified() const {
    return isBuilt() && !std::ranges::equal(editedLists(), loaded_, [](const auto& now, const auto& before) {
               const auto common = static_cast<std::ptrdiff_t>(std::min(now.size(), before.size()));
               return std::equal(now.begin(), now.begin() + common, before.begin());
           });
}

bool CSpecialComponentsDialog::hasUnsavedEdits() const {
    return isBuilt() && editedLists() != loaded_;
}

CSpecialComponentsDialog::Lists CSpecialComponentsDialog::editedLists() const {
    ui_->symbols->finishEditing();
    Lists lists = working_;
    lists[static_cast<std::size_t>(shown_)] = stringsOf(*ui_->symbols);
    return lists;
}

void CSpecialComponentsDialog::reset() {
    if (!isBuilt() || storedPath().empty())
        return;
    load();
    ui_->category->setCurrentIndex(0);
}

std::string CSpecialComponentsDialog::chooseSymbol(int category) {
    if (!projectConfig_ || category < 0 || category >= std::ssize(kCategories))
        return {};
    const Category& row = kCategories[static_cast<std::size_t>(category)];
    CSymbolsFeeder feed(*projectConfig_, [&row](IDataSource& source, std::vector<std::string>& symbols) {
        (source.*row.symbols)(symbols);
    });
    return cldialog::showCentralLibraryDialog(feed, toUtf8(tr(row.title)));
}

bool CSpecialComponentsDialog::isBuilt() const {
    return ui_->symbols;
}

Orv::ISpecialComponents* CSpecialComponentsDialog::components() const {
    return projectConfig_ ? dynamic_cast<Orv::ISpecialComponents*>(projectConfig_->pinComponents) : nullptr;
}

std::string CSpecialComponentsDialog::storedPath() const {
    return projectConfig_ && projectConfig_->projectFile
               ? projectConfig_->projectFile->GetPinComponentsPath(1)
               : std::string();
}

bool CSpecialComponentsDialog::hasFile() const {
    return components() && !storedPath().empty();
}

CSpecialComponentsDialog::Lists CSpecialComponentsDialog::listsInFile() const {
    Lists lists;
    if (Orv::ISpecialComponents* file = components()) {
        for (int index = 0; index < kOffered; ++index)
            lists[static_cast<std::size_t>(index)] = file->GetCategory(index);
    }
    return lists;
}

void CSpecialComponentsDialog::putIntoFile(const Lists& lists) {
    for (int index = 0; index < kOffered; ++index)
        components()->GetCategory(index) = lists[static_cast<std::size_t>(index)];
}

/// Each once, in the order of the file's categories.
QStringList CSpecialComponentsDialog::knownSymbols() const {
    QStringList symbols;
    if (Orv::ISpecialComponents* file = components()) {
        for (int index = 0; index < Orv::ISpecialComponents::kCategories; ++index) {
            for (const std::string& symbol : file->GetCategory(index))
                symbols.append(toQString(symbol));
        }
    }
    symbols.removeDuplicates();
    return symbols;
}

void CSpecialComponentsDialog::load() {
    loaded_ = listsInFile();
    working_ = loaded_;
    saved_ = false;
    showRows();
}

void CSpecialComponentsDialog::showRows() {
    showStrings(*ui_->symbols, working_[static_cast<std::size_t>(shown_)]);
}

void CSpecialComponentsDialog::takeRows() {
    ui_->symbols->finishEditing();
    working_[static_cast<std::size_t>(shown_)] = stringsOf(*ui_->symbols);
}

void CSpecialComponentsDialog::selectCategory(int category) {
    if (category < 0 || category >= kOffered)
        return;
    takeRows();
    shown_ = category;
    showRows();
}

/// Another page or program may have given the project another file, or have had it read again: the lists of
/// the former content must not get into it, but what the user has changed in them is still to be stored.
void CSpecialComponentsDialog::followFile() {
    if (components())
        file_.follow(*components(), storedPath());
    const Lists present = listsInFile();
    if (present == loaded_)
        return;
    if (working_ == loaded_) {
        storedPath().empty() ? load() : reset();
        return;
    }
    for (std::size_t index = 0; index < present.size(); ++index)
        working_[index] = withChanges(present[index], loaded_[index], working_[index]);
    loaded_ = present;
    saved_ = false;
    showRows();
}

/// Without a file there is nothing to save to.
void CSpecialComponentsDialog::enableControls() {
    ui_->category->setEnabled(hasFile());
    ui_->symbols->setEnabled(hasFile());
}

void CSpecialComponentsDialog::CComboBoxEx::setKnownSymbols(const QStringList& symbols) {
    addItems(symbols);
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // Otherwise Enter would take the rest of a symbol of which only the beginning was typed.
    setCompleter(nullptr);
}

void CSpecialComponentsDialog::CListBoxEditorEx::setSources(std::function<std::string()> browse,
                                                            std::function<QStringList()> knownSymbols) {
    browse_ = std::move(browse);
    knownSymbols_ = std::move(knownSymbols);
}

/// At the top, where the user sees it.
void CSpecialComponentsDialog::CListBoxEditorEx::newLine() {
    finishEditing();
    const std::string symbol = browse_ ? browse_() : std::string();
    if (symbol.empty())
        return;
    insertString(*this, 0, symbol);
    setCurrentRow(0);
}

QWidget* CSpecialComponentsDialog::CListBoxEditorEx::createLineEditor(QWidget* parent, int row) {
    auto* control = new CComboBoxEx(parent);
    control->setKnownSymbols(knownSymbols_ ? knownSymbols_() : QStringList());
    // The arrow keys start from the symbol that the line has.
    control->setCurrentIndex(control->findText(line(row)));
    control->setFrame(false);
    control->setAccessibleName(list().accessibleName());
    return control;
}

} // namespace ovsettings
