#pragma once

#include "details/shell/projectaccess.h"
#include "details/widgets/propfile.h"
#include "orv/projectconfiguration.h"

#include <QtCore/QString>

#include <array>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class QWidget;

namespace ovsettings {

/// The section of a project file that holds all generic keys.
inline constexpr char kDesignInfo[] = "DesignInfo";

/// What the chooser of a file field shows.
struct FileChooserTexts {
    const char* title;
    const char* filter; ///< as CPropFile takes it
    const char* defaultName;
    const char* defaultSuffix = "";
};

/// The directory of the project file.
std::string projectDirectory(const Orv::CProjectConfiguration& project);

/// Tells why a page refuses a field, and leads to it.
void refuse(QWidget& page, QLineEdit& field, const QString& text);

/// Enables the controls exactly while the box is checked, from now on.
void enableWith(QCheckBox& box, std::initializer_list<QWidget*> controls);

/// A text of the project in an edit control. Until the user edits it, it is what was loaded, to the byte:
/// that may be no UTF-8, or longer than the control takes.
class ProjectText {
public:
    /// @param edit not owned, must outlive this object.
    explicit ProjectText(QLineEdit& edit) : edit_(edit) {}

    QLineEdit& edit() const { return edit_; }
    /// Shows a value of the project.
    void load(const std::string& value);
    /// Shows what the project has by now, unless the user has edited the text: another page may have stored
    /// it.
    void follow(const std::string& value);
    /// After a store: what the project has is of this page's own making, and nothing to follow.
    void noteStored(const std::string& stored) { known_ = stored; }
    /// The control's text, without what was pasted behind a line break.
    std::string text() const;
    bool differsFromLoaded() const;
    /// From now on the text counts as the one loaded, if that is what the project has for it: what could not
    /// be written is still to be written.
    void keepAsLoaded(const std::string& stored);

private:
    QLineEdit& edit_;
    std::string loaded_;
    std::string known_; ///< of the project's values the last that this page had a part in
    QString shown_;
};

/// A field that names a file of the project, with the button that browses for one. The chooser takes any
/// path: a validator of bare names would refuse all that can be chosen.
class ProjectFileField : public ProjectText {
public:
    /// @param edit, browse not owned, must outlive this object.
    ProjectFileField(QLineEdit& edit, QAbstractButton& browse, const FileChooserTexts& chooser,
                     const std::string& initialDirectory);
    ProjectFileField(const ProjectFileField&) = delete;
    ProjectFileField& operator=(const ProjectFileField&) = delete;

    void takeSnapshot();
    bool differsFromSnapshot() const;
    void restoreSnapshot();

private:
    CPropFile file_;
    QString snapshot_;
};

/// The guard on leaving a page with file fields: if any differs from its snapshot, asks whether to save. With
/// Yes the result of `store` counts, with No the snapshots come back.
bool mayLeave(QWidget& page, std::span<ProjectFileField* const> fields, const std::function<bool()>& store);

/// The files that every kind of project has.
enum class ProjectFile { specialComponents, borderSymbols, busContents };

/// What of a file is refused: the same check has another message in a store than on leaving.
enum class Refused { file, location };

/// The three fields of these files.
class ProjectFileFields {
public:
    struct Controls {
        QLineEdit& edit;
        QAbstractButton& browse;
    };
    ProjectFileFields(Orv::CProjectConfiguration& project, const Controls& specialComponents,
                      const Controls& borderSymbols, const Controls& busContents);

    ProjectFileField& operator[](ProjectFile file);
    void load();
    void follow();
    /// Checks the fields that are not empty, in order, and tells the first that is refused.
    bool check(QWidget& page, Refused refused);
    /// Writes the field's text, which from then on is the one loaded, and has the host read the file that it
    /// names.
    void store(ProjectFile file);

private:
    Orv::CProjectConfiguration& project_;
    std::array<ProjectFileField, 3> fields_; ///< by ProjectFile
};

/// The remote server: whether there is one, and its name.
class ServerFields {
public:
    /// The check box enables the name from here on.
    ServerFields(Orv::CProjectConfiguration& project, QCheckBox& use, QLineEdit& name);

    void load();
    void follow();
    /// Writes the name, or none; a server without a name is told and refused.
    bool store(QWidget& page);

private:
    /// What a store writes.
    std::string chosen() const;

    Orv::CProjectConfiguration& project_;
    QCheckBox& use_;
    ProjectText name_;
    std::string loaded_;
};

} // namespace ovsettings
