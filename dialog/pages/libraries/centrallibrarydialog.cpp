#include "dialog/pages/libraries/centrallibrarydialog.h"

#include "dialog/projectfile/projectfilefields.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "platform/paths.h"
#include "platform/trim.h"
#include "suite/checkcl.h"
#include "suite/locationmap.h"
#include "ui_centrallibrarydialog.h"

#include <array>

namespace ovsettings {

namespace {

constexpr char kLibraryKey[] = "CentralLibrary";
constexpr FileChooserTexts kLibraryChooser = {
    QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Central Library"),
    QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Central Library (*.lmc)|*.lmc|All Files (*.*)|*.*||"),
    "*.lmc"};

} // namespace

struct CCentralLibraryDialog::Fields {
    Fields(Orv::CProjectConfiguration& project, const Ui::CCentralLibraryDialog& ui)
        : library(*ui.library, *ui.browseLibrary, kLibraryChooser, projectDirectory(project)),
          files(project, {*ui.specialComponents, *ui.browseSpecialComponents},
                {*ui.borderSymbols, *ui.browseBorderSymbols}, {*ui.busContents, *ui.browseBusContents}),
          server(project, *ui.useServer, *ui.server) {}

    ProjectFileField library;
    ProjectFileFields files;
    ServerFields server;
    /// In the order in which they are compared.
    std::array<ProjectFileField*, 4> guarded = {&library, &files[ProjectFile::specialComponents],
                                                &files[ProjectFile::borderSymbols],
                                                &files[ProjectFile::busContents]};
};

CCentralLibraryDialog::CCentralLibraryDialog(QWidget* parent)
    : CFormPage(parent, internalPage("Central Library")) {
}

CCentralLibraryDialog::~CCentralLibraryDialog() = default;

bool CCentralLibraryDialog::OnInitDialog() {
    if (!hasProject(projectConfig_))
        return false;
    fields_ = std::make_unique<Fields>(*projectConfig_, *ui_);
    fields_->library.load(projectConfig_->projectFile->GetValue(kDesignInfo, kLibraryKey));
    fields_->files.load();
    fields_->server.load();
    return true;
}

/// What was written before a refused server name stays written: the user is told of the name and nothing
/// else, so nothing else is taken back.
bool CCentralLibraryDialog::onApply() {
    if (!fields_)
        return true;
    followProject();
    if (!fields_->files.check(*this, Refused::file) || !checkLibraryVersion())
        return false;
    for (const ProjectFile file :
         {ProjectFile::specialComponents, ProjectFile::borderSymbols, ProjectFile::busContents}) {
        if (fields_->files[file].isEdited())
            fields_->files.store(file);
    }
    if (!fields_->server.store(*this))
        return false;
    if (fields_->library.isEdited()) {
        const std::string path = fields_->library.text();
        projectConfig_->projectFile->SetCentralLibraryPath(path);
        projectConfig_->projectFile->SetValue(kDesignInfo, kLibraryKey, path);
        fields_->library.noteStored(projectConfig_->projectFile->GetValue(kDesignInfo, kLibraryKey));
    }
    return true;
}

bool CCentralLibraryDialog::onEnter() {
    if (fields_) {
        followProject();
        for (ProjectFileField* field : fields_->guarded)
            field->enter();
    }
    return true;
}

bool CCentralLibraryDialog::onLeave() {
    if (!fields_)
        return true;
    if (!fields_->files.check(*this, Refused::location) || !checkLibraryVersion())
        return false;
    return mayLeave(*this, fields_->guarded, [this] { return onApply(); });
}

bool CCentralLibraryDialog::isModified() const {
    return fields_ &&
           (fields_->library.isEdited() || fields_->files.isEdited() || fields_->server.isEdited());
}

/// Other pages store the same fields.
void CCentralLibraryDialog::followProject() {
    fields_->library.follow(projectConfig_->projectFile->GetValue(kDesignInfo, kLibraryKey));
    fields_->files.follow();
    fields_->server.follow();
}

/// A library that does not exist passes: only one of an old release is refused.
bool CCentralLibraryDialog::checkLibraryVersion() {
    const std::string typed = fields_->library.text();
    InitLocationMap(projectConfig_->projectFile->GetFilePath().c_str(), 0);
    const std::string path = hardNameOf(std::string(platform::trim(typed)));
    const auto existing = platform::resolveExisting(path);
    if (path.empty() || !existing || !platform::isFile(*existing) ||
        NOrvUtils::COrvCheckCL::CheckCLFlowVersion(*existing))
        return true;
    refuse(
        *this, *ui_->library,
        tr("The selected Central Library has not been updated to the current release\n"
           "and cannot be used to create a new design. Select a different Central Library or update\n"
           "the specified Central Library by opening it in Library Manager in Standalone mode or use the \n"
           "Update Central Library utility before continuing. Once the library has been updated,\n"
           "it can be selected as a Central Library for new projects."));
    return false;
}

} // namespace ovsettings
