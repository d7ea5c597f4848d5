#include "dialog/pages/libraries/browselibdlg.h"

#include "dialog/pages/libraries/libraryfolderbrowser.h"
#include "dialog/projectfile/projectfilefields.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "dialog/widgets/wheelguard.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "platform/printable.h"
#include "platform/profilefile.h"
#include "platform/remotefile.h"
#include "platform/trim.h"
#include "suite/locationmap.h"
#include "suite/zec.h"
#include "ui_browselibdlg.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QIcon>
#include <QtGui/QImageReader>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <system_error>

namespace ovsettings {

namespace {

constexpr std::size_t kLongestAlias = 64;
constexpr int kIconSize = 40;
/// How long the browser of folders waits to learn where it begins.
constexpr std::chrono::milliseconds kPatience(1000);

/// What the installation says where its libraries are.
constexpr char kMachineFile[] = "/standard/machine.ini";
constexpr char kLibrariesSection[] = "Software\\Tolvane\\Kesh\\Libraries";
constexpr char kDefaultValue[] = "Default";
constexpr char kSymbolsDirectory[] = "Designer\\Symbols";
constexpr std::size_t kValueLimit = 260;

struct TypeItem {
    const char* caption;
    LibraryType type;
};

/// The choices of the list. "Primary" is none.
constexpr TypeItem kTypes[] = {
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Writeable"), LibraryType::kWriteable},
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Readonly"), LibraryType::kReadonly},
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Megafile"), LibraryType::kMegafile},
};

struct StateText {
    const char* local;
    const char* remote;
};

/// What the state icon says of a library, by type.
constexpr std::array<StateText, 4> kStateTexts{{
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Primary library"),
     QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Remote library")},
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Writeable library"),
     QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Remote library")},
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Read-only library"),
     QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Remote read-only library")},
    {QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Megafile library"),
     QT_TRANSLATE_NOOP("ovsettings::CBrowseLibDlg", "Remote megafile library")},
}};

QString stateText(const Recognition& recognition) {
    if (!recognition.icon)
        return {};
    const LibraryState& state = *recognition.icon;
    if (!recognition.recognised)
        return CBrowseLibDlg::tr("Remote library cannot be reached");
    if (!state.good)
        return state.remote ? CBrowseLibDlg::tr("Not a library at this remote location")
                            : CBrowseLibDlg::tr("Not a library");
    const auto type = static_cast<std::size_t>(state.type);
    const StateText& text = kStateTexts[std::min(type, kStateTexts.size() - 1)];
    return CBrowseLibDlg::tr(state.remote ? text.remote : text.local);
}

/// Where the last library was that was accepted in this process.
std::string& lastDirectory() {
    static std::string directory;
    return directory;
}

std::string installedSymbols() {
    const std::string home = platform::installationDirectory();
    platform::ProfileFile machine(home + kMachineFile, kValueLimit);
    if (home.empty() || !machine.load())
        return {};
    std::string directory = machine.get(kLibrariesSection, kDefaultValue);
    if (directory.empty())
        return {};
    if (!platform::isSeparator(directory.back()))
        directory += '\\';
    return directory + kSymbolsDirectory;
}

std::string withoutTrailingBlanks(const std::string& text) {
    return std::string(platform::trimEnd(text, " "));
}

std::string softNameOf(const std::string& path) {
    std::array<char, kLocationBufferSize> buffer{};
    return GetSoftName(path.c_str(), buffer.data()) == 0 ? buffer.data() : path;
}

/// The directory as the disk spells it, if the path leads to one.
std::optional<std::string> directoryOnDisk(const std::string& path) {
    const auto existing = path.empty() ? std::nullopt : platform::resolveExisting(path);
    return existing && platform::isDirectory(*existing) ? existing : std::nullopt;
}

/// Where a library lies, which may be on a server.
std::string directoryAround(const std::string& path) {
    const std::string full = platform::IsRemotePath(path) ? path : platform::fullPath(path);
    return std::string(platform::splitPath(full).directory);
}

} // namespace

struct CBrowseLibDlg::Fields {
    explicit Fields(const Ui::CBrowseLibDlg& ui) : path(*ui.path), alias(*ui.alias) {}
    ProjectText path;
    ProjectText alias;
};

CBrowseLibDlg::CBrowseLibDlg(QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::CBrowseLibDlg>()),
      type_(static_cast<int>(LibraryType::kReadonly)) {
    ui_->setupUi(this);
    installWheelGuard(*this);
    fields_ = std::make_unique<Fields>(*ui_);
    for (const TypeItem& item : kTypes)
        ui_->type->addItem(tr(item.caption), static_cast<int>(item.type));
    ui_->state->setFixedSize(kIconSize, kIconSize);

    connect(ui_->ok, &QPushButton::clicked, this, &CBrowseLibDlg::accept);
    connect(ui_->cancel, &QPushButton::clicked, this, &CBrowseLibDlg::reject);
    connect(ui_->browse, &QPushButton::clicked, this, &CBrowseLibDlg::browse);
    connect(ui_->path, &QLineEdit::textChanged, this, [this] { lookUp(LookUp::stateAndAlias); });
    connect(ui_->type, &QComboBox::currentIndexChanged, this, [this] { lookUp(LookUp::state); });
    connect(ui_->alias, &QLineEdit::textChanged, this, [this] { autoAlias_ = false; });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* from, QWidget* to) {
        if (from == ui_->path && to == ui_->alias)
            autoAlias_ = false;
    });
}

CBrowseLibDlg::~CBrowseLibDlg() {
    // The focus still moves while the controls are destroyed, and would be followed.
    disconnect(qApp, nullptr, this, nullptr);
}

int CBrowseLibDlg::DoModal() {
    OnInitDialog();
    return exec();
}

void CBrowseLibDlg::OnInitDialog() {
    InitLocationMap(projectDirectory_.c_str(), 0);
    fields_->alias.load(alias_);
    autoAlias_ = alias_.empty() && path_.empty();
    // The toolkit loads what draws pictures when the first one is drawn, and must not look for it in the
    // project.
    QImageReader::supportedImageFormats();
    dirHandler_.emplace(projectDirectory_);
    const int index = ui_->type->findData(type_);
    ui_->type->setCurrentIndex(std::max(index, 0));
    fields_->path.load(path_.empty() ? initialPath() : path_);
    ui_->path->selectAll();
    try {
        worker_.emplace([this] { takeFindings(); });
    } catch (const std::system_error& error) {
        // No thread or descriptor is left; the dialog works without a verdict.
        qWarning("%s", platform::printable(error.what()).c_str());
    }
    lookUp(LookUp::stateAndAlias);
}

std::string CBrowseLibDlg::initialPath() const {
    if (!lastDirectory().empty())
        return lastDirectory();
    const std::string installed = installedSymbols();
    return installed.empty() ? projectDirectory_ : installed;
}

std::string CBrowseLibDlg::locationOf(const std::string& path) const {
    return libraryLocation(plainPath(path), baseDirectory(projectDirectory_));
}

LibraryType CBrowseLibDlg::selectedType() const {
    return static_cast<LibraryType>(ui_->type->currentData().toInt());
}

void CBrowseLibDlg::lookUp(LookUp what) {
    if (!worker_)
        return;
    // The last path's alias may not have come yet. A choice in the list then asks for it again.
    aliasAwaited_ = aliasAwaited_ || what == LookUp::stateAndAlias;
    ui_->ok->setEnabled(false);
    worker_->ask({plainPath(fields_->path.text()), baseDirectory(projectDirectory_), selectedType(),
                  aliasAwaited_ ? LookUp::stateAndAlias : LookUp::state});
}

void CBrowseLibDlg::takeFindings() {
    if (const auto findings = worker_->takeFindings())
        showFindings(*findings);
}

void CBrowseLibDlg::showFindings(const LibraryFindings& findings) {
    const Recognition& recognition = findings.recognition;
    {
        const QSignalBlocker quiet(ui_->type);
        const int index = ui_->type->findData(static_cast<int>(recognition.type));
        ui_->type->setCurrentIndex(std::max(index, 0));
    }
    if (recognition.listEnabled)
        ui_->type->setEnabled(*recognition.listEnabled);
    showState(recognition);
    if (findings.question.what == LookUp::stateAndAlias) {
        aliasAwaited_ = false;
        proposeAlias(findings);
    }
    ui_->ok->setEnabled(true);
}

void CBrowseLibDlg::showState(const Recognition& recognition) {
    if (recognition.icon) {
        const QLatin1String name(libraryIcon(*recognition.icon).name);
        const QIcon icon(QLatin1String(":/ovsettings/images/") + name + QLatin1String(".svg"));
        ui_->state->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    } else {
        ui_->state->clear();
    }
    const QString text = stateText(recognition);
    ui_->state->setToolTip(text);
    ui_->state->setAccessibleDescription(text);
    // The icon takes no focus; the field whose verdict it is says it too.
    ui_->path->setAccessibleDescription(text);
}

void CBrowseLibDlg::proposeAlias(const LibraryFindings& findings) {
    if (!autoAlias_)
        return;
    const QSignalBlocker ours(ui_->alias);
    if (!findings.alias.empty()) {
        fields_->alias.load(findings.alias);
        autoAlias_ = false;
    } else if (ui_->alias->isEnabled()) {
        fields_->alias.load(derivedAlias(findings.location));
    }
}

void CBrowseLibDlg::browse() {
    const std::string typed = fields_->path.text();
    if (!ui_->ok->isEnabled() && worker_->waitForFindings(kPatience))
        takeFindings();
    const bool soft = typed.starts_with('$');
    // By the names that lead there. The current directory has its physical path only, by which a library in a
    // project that is reached through a link would not be known to lie there.
    std::string directory = baseDirectory(projectDirectory_);
    // A path that is still looked up may lie on a disk that does not answer.
    if (ui_->ok->isEnabled())
        directory = directoryOnDisk(locationOf(typed)).value_or(directory);
    platform::CurrentDirectory current;
    [[maybe_unused]] const bool changed = current.changeTo(directory);

    LibraryFolderBrowser browser(this, directory);
    std::string chosen(platform::trim(browser.run()));
    if (chosen.empty())
        return;
    if (soft)
        chosen = softNameOf(chosen);
    fields_->path.load(chosen);
}

bool CBrowseLibDlg::checkAlias(const std::string& alias, bool remote) {
    const auto refuse = [&](const QString& text) {
        showMessage(this, text);
        ui_->alias->setFocus();
        ui_->alias->selectAll();
        return false;
    };
    // Blanks are left out here, so that the user is told of the blank by its own rule, below.
    std::string withoutBlanks = alias;
    std::erase(withoutBlanks, ' ');
    if (!withoutBlanks.empty() && !ZECIsValidAlias(withoutBlanks))
        return refuse(tr("Library names must start with a letter (a-z) and may contain only alpha-numeric "
                         "characters and underscores"));
    if (alias.find(' ') != std::string::npos)
        return refuse(tr("Space characters are not allowed in a Library name."));
    if (alias.size() > kLongestAlias)
        return refuse(tr("The library name must be %1 or fewer characters.").arg(kLongestAlias));
    if (alias.empty())
        return refuse(tr("The library name cannot be empty"));
    // Nothing gets here, since an empty name was refused: that is the message that users know.
    if (remote && alias.empty())
        return refuse(tr("You must specify Alias for HTTP/FTP Library."));
    return true;
}

bool CBrowseLibDlg::checkPlace(const std::string& path) {
    const std::string plain = plainPath(path);
    const auto existing = platform::resolveExisting(locationOf(path));
    std::error_code missing;
    QString reason;
    if (namesSoftly(plain))
        reason = tr("The soft name in '%1' stands for no directory.");
    else if (existing && std::filesystem::exists(*existing, missing) && !platform::isDirectory(*existing))
        reason = tr("'%1' is a file. A library is a directory.");
    else if (!existing && namesServer(plain))
        reason = tr("'%1' is no remote library: the location of one begins with http:, https: or ftp:.");
    if (reason.isEmpty())
        return true;
    showMessage(this, reason.arg(toQString(path)));
    ui_->path->setFocus();
    ui_->path->selectAll();
    return false;
}

bool CBrowseLibDlg::ensureDirectory(const std::string& path) {
    const CDirHandler project(projectDirectory_);
    const std::string full = locationOf(path);
    if (directoryOnDisk(full))
        return true;
    const QString question =
        tr("The directory does not exist. Do you want to create '%1' ?").arg(toQString(path));
    if (!askYesNo(this, question, applicationTitle(), QMessageBox::Question))
        return false;
    if (!path.empty() && ZECMakePath(full))
        return true;
    showMessage(this, tr("Cannot create !"), applicationTitle(), QMessageBox::Critical);
    return false;
}

void CBrowseLibDlg::accept() {
    const std::string typed = withoutTrailingBlanks(fields_->path.text());
    std::string path = typed;
    const std::string alias = fields_->alias.text();
    ZECPathRemoveTmpMnt(path);

    InitLocationMap(projectDirectory_.c_str(), 0);
    path = hardNameOf(path);
    const bool remote = platform::IsRemotePath(plainPath(path));
    if (!checkAlias(alias, remote))
        return;
    // A remote location is not for us to create.
    if (!remote) {
        if (!checkPlace(path))
            return;
        path = directoryOnDisk(locationOf(path)).value_or(path);
        if (!ensureDirectory(path))
            return;
    }
    path = withoutTrailingBlanks(path);
    if (!path.empty() && platform::isSeparator(path.back()))
        path.pop_back();

    if (ui_->type->isEnabled() || remote)
        type_ = static_cast<int>(selectedType());
    lastDirectory() = directoryAround(locationOf(path));
    // What was typed and not what it leads to, so that a soft name survives.
    path_ = typed;
    alias_ = alias;
    worker_.reset(); // there are no more questions
    fields_->path.load(typed);
    QDialog::accept();
}

void CBrowseLibDlg::done(int result) {
    worker_.reset();
    QDialog::done(result);
}

} // namespace ovsettings
