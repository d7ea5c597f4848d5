#include "dialog/pages/project/projectdialog.h"

#include "dialog/projectfile/projectfilefields.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/shell/internalpages.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "platform/readfile.h"
#include "ui_projectdialog.h"

#include <QtCore/QSignalBlocker>

#include <algorithm>
#include <array>

namespace ovsettings {

namespace {

constexpr char kPropertiesKey[] = "PropertyDefinitions";
/// What a project without a file of its own uses. It is stored as it stands once the page is stored; the
/// reference is expanded where the file is used.
constexpr char kDefaultProperties[] = "%RSR_HOME%\\standard\\netlist.prp";
/// Users know title and filter by this spelling.
constexpr FileChooserTexts kPropertiesChooser = {
    QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Proprty Definitions"),
    QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                      "Proprty Definitions File (*.prp)|*.prp|All Files (*.*)|*.*||"),
    "*.prp"};

/// A file for which every layout tool has a default, and which a project may replace by one of its own.
struct CustomFileKind {
    const char* key;
    FileChooserTexts chooser;
    std::string LayoutTool::*defaultPath;
    void (Orv::IProjectFileData::*setFile)(const std::string& name);
};

constexpr CustomFileKind kConstraints = {
    "CnsFileName",
    {QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Constraints Definition"),
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                       "Constraints Definition (*.cns)|*.cns|All Files (*.*)|*.*||"),
     "", "cns"},
    &LayoutTool::constraintsPath,
    &Orv::IProjectFileData::SetConstraintsFile};
constexpr CustomFileKind kConfiguration = {
    "PcbCfgFileName",
    {QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "PCB Configuration"),
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                       "PCB Configuration (*.cfg)|*.cfg|All Files (*.*)|*.*||"),
     "", "cfg"},
    &LayoutTool::configurationPath,
    &Orv::IProjectFileData::SetPcbConfigFile};

class CustomFileField {
public:
    CustomFileField(const CustomFileKind& kind, Orv::CProjectConfiguration& project, QCheckBox& use,
                    QLineEdit& edit, QAbstractButton& browse)
        : kind_(kind),
          project_(project),
          file_(edit, browse, kind.chooser, projectDirectory(project)),
          custom_(use, file_, {&edit, &browse}) {}

    bool isEdited() const { return custom_.isEdited(); }

    void load(const LayoutTool& tool) { custom_.load(customOfProject(), tool.*kind_.defaultPath); }

    void follow(const LayoutTool& tool) { custom_.follow(customOfProject(), tool.*kind_.defaultPath); }

    void showDefault(const LayoutTool& tool) { custom_.switchOff(tool.*kind_.defaultPath); }

    void store() {
        if (custom_.isOn())
            project_.projectFile->SetValue(kDesignInfo, kind_.key, custom_.text());
        else
            (project_.projectFile->*kind_.setFile)("");
        custom_.noteStored(customOfProject());
    }

private:
    std::string customOfProject() const { return project_.projectFile->GetValue(kDesignInfo, kind_.key); }

    const CustomFileKind& kind_;
    Orv::CProjectConfiguration& project_;
    ProjectFileField file_;
    SwitchedText custom_;
};

} // namespace

struct CProjectDialog::Fields {
    Fields(Orv::CProjectConfiguration& project, const Ui::CProjectDialog& ui)
        : files(project, {*ui.specialComponents, *ui.browseSpecialComponents},
                {*ui.borderSymbols, *ui.browseBorderSymbols}, {*ui.busContents, *ui.browseBusContents}),
          properties(*ui.properties, *ui.browseProperties, kPropertiesChooser, projectDirectory(project)),
          server(project, *ui.useServer, *ui.server),
          constraints(kConstraints, project, *ui.useConstraints, *ui.constraints, *ui.browseConstraints),
          configuration(kConfiguration, project, *ui.useConfiguration, *ui.configuration,
                        *ui.browseConfiguration) {}

    ProjectFileFields files;
    ProjectFileField properties;
    std::string uncheckedProperties; ///< as loaded; it stands without a test of the file
    ServerFields server;
    CustomFileField constraints;
    CustomFileField configuration;
    /// In the order in which they are compared.
    std::array<ProjectFileField*, 4> guarded = {&files[ProjectFile::specialComponents],
                                                &files[ProjectFile::borderSymbols],
                                                &files[ProjectFile::busContents], &properties};
};

CProjectDialog::CProjectDialog(QWidget* parent) : CFormPage(parent, internalPage("Netlist Project")) {
}

CProjectDialog::~CProjectDialog() = default;

bool CProjectDialog::OnInitDialog() {
    if (!hasProject(projectConfig_))
        return false;
    tools_.read();
    for (const std::string& displayName : tools_.offered())
        ui_->layoutTool->addItem(toQString(displayName));

    fields_ = std::make_unique<Fields>(*projectConfig_, *ui_);
    fields_->files.load();
    fields_->server.load();
    fields_->properties.load(propertiesOfProject());
    fields_->uncheckedProperties = fields_->properties.text();
    loadLayoutTool();
    connect(ui_->layoutTool, &QComboBox::currentIndexChanged, this, &CProjectDialog::chooseLayoutTool);
    return true;
}

std::string CProjectDialog::propertiesOfProject() const {
    const std::string properties = projectConfig_->projectFile->GetValue(kDesignInfo, kPropertiesKey);
    return properties.empty() ? kDefaultProperties : properties;
}

/// Other pages store the same fields, and this one writes what was not changed as well.
void CProjectDialog::followProject() {
    fields_->files.follow();
    fields_->server.follow();
    if (fields_->properties.follow(propertiesOfProject()))
        fields_->uncheckedProperties = fields_->properties.text();
    followLayoutTool();
}

void CProjectDialog::loadLayoutTool() {
    const LayoutTool& tool = showLayoutTool();
    fields_->constraints.load(tool);
    fields_->configuration.load(tool);
}

/// Selects the project's tool, and leaves its files alone.
const LayoutTool& CProjectDialog::showLayoutTool() {
    toolKey_ = projectConfig_->projectFile->GetLayoutTool();
    const LayoutTool& tool = tools_[toolKey_];
    const auto& offered = tools_.offered();
    const auto found = std::ranges::find(offered, tool.displayName);
    toolIndex_ = found == offered.end() ? -1 : static_cast<int>(found - offered.begin());
    const QSignalBlocker notTheUser(ui_->layoutTool);
    ui_->layoutTool->setCurrentIndex(toolIndex_);
    return tool;
}

/// A tool that the user has chosen brings its own files, so that nothing follows then.
void CProjectDialog::followLayoutTool() {
    if (ui_->layoutTool->currentIndex() != toolIndex_)
        return;
    const bool isAnother = projectConfig_->projectFile->GetLayoutTool() != toolKey_;
    const LayoutTool& tool = isAnother ? showLayoutTool() : tools_[toolKey_];
    for (CustomFileField* field : {&fields_->constraints, &fields_->configuration}) {
        if (isAnother && !field->isEdited())
            field->load(tool);
        else
            field->follow(tool);
    }
}

void CProjectDialog::chooseLayoutTool(int index) {
    if (index < 0)
        return;
    const auto* record = tools_.findByDisplayName(tools_.offered()[static_cast<std::size_t>(index)]);
    const LayoutTool tool = record ? record->second : LayoutTool{};
    fields_->constraints.showDefault(tool);
    fields_->configuration.showDefault(tool);
}

/// Writes what was not changed as well, as hosts know the page.
bool CProjectDialog::onApply() {
    if (!fields_)
        return true;
    followProject();
    if (!fields_->files.check(*this, Refused::file) || !checkPropertyDefinitions() ||
        !fields_->server.store(*this))
        return false;
    for (const ProjectFile file :
         {ProjectFile::busContents, ProjectFile::specialComponents, ProjectFile::borderSymbols})
        fields_->files.store(file);
    projectConfig_->projectFile->SetValue(kDesignInfo, kPropertiesKey, fields_->properties.text());
    fields_->properties.noteStored(propertiesOfProject());
    storeLayoutTool();
    fields_->constraints.store();
    fields_->configuration.store();
    return true;
}

bool CProjectDialog::onEnter() {
    if (fields_) {
        followProject();
        for (ProjectFileField* field : fields_->guarded)
            field->enter();
    }
    return true;
}

bool CProjectDialog::onLeave() {
    if (!fields_)
        return true;
    return fields_->files.check(*this, Refused::location) &&
           mayLeave(*this, fields_->guarded, [this] { return onApply(); });
}

bool CProjectDialog::isModified() const {
    return fields_ && (fields_->files.isEdited() || fields_->properties.isEdited() ||
                       fields_->server.isEdited() || ui_->layoutTool->currentIndex() != toolIndex_ ||
                       fields_->constraints.isEdited() || fields_->configuration.isEdited());
}

/// The text as it was loaded is not checked: the default stands although the file may be elsewhere. Call it
/// after the check of the other files, which prepares the location map.
bool CProjectDialog::checkPropertyDefinitions() {
    if (fields_->properties.text() == fields_->uncheckedProperties)
        return true;
    const std::string path = ResolvePagePath(fields_->properties.text(), *projectConfig_->projectFile);
    if (platform::opensForReading(path))
        return true;
    refuse(*this, *ui_->properties, tr("Invalid Property Definitions file."));
    return false;
}

void CProjectDialog::storeLayoutTool() {
    const std::string key = chosenLayoutTool();
    projectConfig_->projectFile->SetLayoutTool(key);
    if (projectConfig_->projectFile->GetLayoutTool() != key)
        return;
    toolKey_ = key;
    toolIndex_ = ui_->layoutTool->currentIndex();
}

/// The key of the first tool with the selected name. A tool that the list does not show stays the project's
/// as long as no other is selected.
std::string CProjectDialog::chosenLayoutTool() const {
    const int index = ui_->layoutTool->currentIndex();
    if (index < 0)
        return toolKey_;
    const std::string& displayName = tools_.offered()[static_cast<std::size_t>(index)];
    const auto* record = tools_.findByDisplayName(displayName);
    return record ? record->first : displayName;
}

} // namespace ovsettings
