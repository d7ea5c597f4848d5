#include "dialog/projectfile/projectfilefields.h"

#include "dialog/projectfile/foreignfile.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/projectfile/savequestion.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/projectfiledata.h"
#include "suite/locationmap.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr char kContext[] = "ovsettings::ProjectFileFields";

struct Kind {
    const char* key;
    FileChooserTexts chooser;
    const char* invalidFile;
    const char* invalidLocation;
    std::string (Orv::IProjectFileData::*path)(int full);
    Orv::IProjectFileConsumer* Orv::CProjectConfiguration::*consumer;
};

/// By ProjectFile. The chooser of special components begins with another pattern than it filters by, and both
/// messages on border symbols say "Borders Symbol". That is meant for users, who know the page by these
/// texts.
constexpr Kind kKinds[] = {
    {"PinComponents",
     {QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Special Components"),
      QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                        "Special Components File (*.ini)|*.ini|All Files (*.*)|*.*||"),
      "*.pin"},
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Special Components file."),
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Special Components file location."),
     &Orv::IProjectFileData::GetPinComponentsPath,
     &Orv::CProjectConfiguration::pinComponents},
    {"BorderSymbols",
     {QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Border Symbols"),
      QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                        "Border Symbols File (*.ini)|*.ini|All Files (*.*)|*.*||"),
      "*.ini"},
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Borders Symbol file."),
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Borders Symbol file location."),
     &Orv::IProjectFileData::GetBorderSymbolsPath,
     &Orv::CProjectConfiguration::borderSymbols},
    {"Bus_Contents",
     {QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Bus Contents"),
      QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields",
                        "Bus Contents File (*.ini)|*.ini|All Files (*.*)|*.*||"),
      "*.ini"},
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Bus Contents file."),
     QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Invalid Bus Contents file location."),
     &Orv::IProjectFileData::GetBusContentsPath,
     &Orv::CProjectConfiguration::busContents},
};

constexpr ProjectFile kProjectFiles[] = {ProjectFile::specialComponents, ProjectFile::borderSymbols,
                                         ProjectFile::busContents};

const Kind& kindOf(ProjectFile file) {
    return kKinds[static_cast<std::size_t>(file)];
}

QString translated(const char* text) {
    return QCoreApplication::translate(kContext, text);
}

ProjectFileField makeField(const Orv::CProjectConfiguration& project, ProjectFile file,
                           const ProjectFileFields::Controls& controls) {
    return {controls.edit, controls.browse, kindOf(file).chooser, projectDirectory(project)};
}

} // namespace

void refuse(QWidget& page, QLineEdit& field, const QString& text) {
    showMessage(&page, text, translated(QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Error")),
                QMessageBox::Critical);
    field.setFocus();
    field.selectAll();
}

ProjectText::ProjectText(QLineEdit& edit) : edit_(edit) {
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, [this] { takeTyped(); });
}

void ProjectText::load(const std::string& value) {
    state_.loaded(value);
    show();
}

void ProjectText::change(const std::string& text) {
    state_.edited(text);
    show();
}

bool ProjectText::follow(const std::string& value) {
    const std::string before = text();
    state_.followed(value);
    if (text() == before)
        return false;
    show();
    return true;
}

void ProjectText::decline() {
    state_.declined();
    show();
}

void ProjectText::show() {
    edit_.setText(toQString(text()));
}

/// What was pasted behind a line break does not count.
void ProjectText::takeTyped() {
    const auto isShown = [this](const std::string& value) {
        return edit_.text() == toQString(value).left(edit_.maxLength());
    };
    if (isShown(text()))
        return;
    const std::string typed = toUtf8(edit_.text());
    state_.edited(isShown(state_.project()) ? state_.project()
                                            : typed.substr(0, typed.find_first_of("\r\n")));
}

ProjectFileField::ProjectFileField(QLineEdit& edit, QAbstractButton& browse, const FileChooserTexts& chooser,
                                   const std::string& initialDirectory)
    : ProjectText(edit), file_(edit) {
    file_.setTitle(toUtf8(translated(chooser.title)));
    file_.setFilter(toUtf8(translated(chooser.filter)));
    file_.setDefaultName(chooser.defaultName);
    file_.setDefaultSuffix(chooser.defaultSuffix);
    file_.setInitialDirectory(initialDirectory);
    QObject::connect(&browse, &QAbstractButton::clicked, &edit, [this] { file_.browse(); });
}

SwitchedText::SwitchedText(QCheckBox& use, ProjectText& text, std::initializer_list<QWidget*> controls)
    : use_(use), text_(text) {
    for (QWidget* control : controls) {
        control->setEnabled(use.isChecked());
        QObject::connect(&use, &QCheckBox::toggled, control, &QWidget::setEnabled);
    }
}

void SwitchedText::load(const std::string& value, const std::string& shownWithout) {
    wasOn_ = !value.empty();
    use_.setChecked(wasOn_);
    text_.load(wasOn_ ? value : shownWithout);
}

void SwitchedText::switchOff(const std::string& shown) {
    text_.change(shown);
    use_.setChecked(false);
}

void SwitchedText::follow(const std::string& value, const std::string& shownWithout) {
    const std::string known = wasOn_ ? text_.state().project() : std::string();
    if (value != known && !isEdited())
        load(value, shownWithout);
}

void SwitchedText::noteStored(const std::string& value) {
    wasOn_ = !value.empty();
    if (isOn())
        text_.noteStored(value);
}

bool SwitchedText::isOn() const {
    return use_.isChecked();
}

bool SwitchedText::isEdited() const {
    return isOn() != wasOn_ || (isOn() && text_.isEdited());
}

bool mayLeave(QWidget& page, std::span<ProjectFileField* const> fields, const std::function<bool()>& store) {
    const auto isEdited = [](const ProjectFileField* field) {
        return field->state().isEditedSinceEntered();
    };
    if (std::ranges::none_of(fields, isEdited))
        return true;
    if (asksToSave(page))
        return store();
    for (ProjectFileField* field : fields)
        field->decline();
    return true;
}

ProjectFileFields::ProjectFileFields(Orv::CProjectConfiguration& project, const Controls& specialComponents,
                                     const Controls& borderSymbols, const Controls& busContents)
    : project_(project),
      fields_{makeField(project, ProjectFile::specialComponents, specialComponents),
              makeField(project, ProjectFile::borderSymbols, borderSymbols),
              makeField(project, ProjectFile::busContents, busContents)} {
}

ProjectFileField& ProjectFileFields::operator[](ProjectFile file) {
    return fields_[static_cast<std::size_t>(file)];
}

void ProjectFileFields::load() {
    for (const ProjectFile file : kProjectFiles)
        (*this)[file].load(project_.projectFile->GetValue(kDesignInfo, kindOf(file).key));
}

void ProjectFileFields::follow() {
    for (const ProjectFile file : kProjectFiles)
        (*this)[file].follow(project_.projectFile->GetValue(kDesignInfo, kindOf(file).key));
}

bool ProjectFileFields::isEdited() const {
    return std::ranges::any_of(fields_, &ProjectFileField::isEdited);
}

bool ProjectFileFields::check(QWidget& page, Refused refused) {
    // The map is the process's, and may be another project's by now.
    InitLocationMap(project_.projectFile->GetFilePath().c_str(), 0);
    for (const ProjectFile file : kProjectFiles) {
        const std::string text = (*this)[file].text();
        if (text.empty())
            continue;
        const std::string path = ResolvePagePath(text, *project_.projectFile);
        if (IsFileLocationValid(project_.projectFile->GetFilePath(), path))
            continue;
        const Kind& kind = kindOf(file);
        refuse(page, (*this)[file].edit(),
               translated(refused == Refused::file ? kind.invalidFile : kind.invalidLocation));
        return false;
    }
    return true;
}

void ProjectFileFields::store(ProjectFile file) {
    const Kind& kind = kindOf(file);
    ProjectFileField& field = (*this)[file];
    const bool isUsers = field.isEdited();
    project_.projectFile->SetValue(kDesignInfo, kind.key, field.text());
    field.noteStored(project_.projectFile->GetValue(kDesignInfo, kind.key));
    const std::string path = (project_.projectFile->*kind.path)(1);
    if (isUsers && !field.isEdited() && !path.empty())
        noteNamedByUser(project_, path);
    if (Orv::IProjectFileConsumer* consumer = project_.*kind.consumer)
        consumer->Reload(path);
}

ServerFields::ServerFields(Orv::CProjectConfiguration& project, QCheckBox& use, QLineEdit& name)
    : project_(project), name_(name), server_(use, name_, {&name}) {
}

void ServerFields::load() {
    server_.load(project_.projectFile->GetServerName());
}

void ServerFields::follow() {
    server_.follow(project_.projectFile->GetServerName());
}

bool ServerFields::store(QWidget& page) {
    if (server_.isOn() && name_.text().empty()) {
        refuse(page, name_.edit(),
               translated(QT_TRANSLATE_NOOP("ovsettings::ProjectFileFields", "Server name is empty.")));
        return false;
    }
    project_.projectFile->SetServerName(server_.isOn() ? name_.text() : std::string());
    server_.noteStored(project_.projectFile->GetServerName());
    return true;
}

} // namespace ovsettings
