#pragma once

#include "dialog/projectfile/projecttextstate.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/propfile.h"
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

/// Tells why a page refuses a field, and leads to it.
void refuse(QWidget& page, QLineEdit& field, const QString& text);

/// A text of the project in an edit control. Until the user edits it, it is what was loaded, to the byte:
/// that may be no UTF-8, or longer than the control takes.
class ProjectText {
public:
    /// @param edit not owned, must outlive this object.
    explicit ProjectText(QLineEdit& edit);
    ProjectText(const ProjectText&) = delete;
    ProjectText& operator=(const ProjectText&) = delete;

    QLineEdit& edit() const { return edit_; }
    const ProjectTextState& state() const { return state_; }
    const std::string& text() const { return state_.text(); }
    bool isEdited() const { return state_.isEdited(); }

    /// Shows a value of the project.
    void load(const std::string& value);
    /// Shows another text, as the user would.
    void change(const std::string& text);
    /// Takes over what the project has by now. @return whether another text is shown for it.
    bool follow(const std::string& value);
    /// After a store: what the project has now.
    void noteStored(const std::string& value) { state_.stored(value); }
    void enter() { state_.entered(); }
    void decline();

private:
    void show();
    void takeTyped();

    QLineEdit& edit_;
    ProjectTextState state_;
};

/// A field that names a file of the project, with the button that browses for one. The chooser takes any
/// path: a validator of bare names would refuse all that can be chosen.
class ProjectFileField : public ProjectText {
public:
    /// @param edit, browse not owned, must outlive this object.
    ProjectFileField(QLineEdit& edit, QAbstractButton& browse, const FileChooserTexts& chooser,
                     const std::string& initialDirectory);

private:
    CPropFile file_;
};

/// A text of the project that a check box switches on: without the mark the project has none.
class SwitchedText {
public:
    /// The box enables the controls exactly while it is checked, from now on. What is given must outlive this
    /// object.
    SwitchedText(QCheckBox& use, ProjectText& text, std::initializer_list<QWidget*> controls);

    /// @param shownWithout what the field shows where the project has no value.
    void load(const std::string& value, const std::string& shownWithout = {});
    /// Clears the mark, and shows a text that is not in use.
    void switchOff(const std::string& shown);
    /// Loads what the project has by now, unless the user has edited it.
    void follow(const std::string& value, const std::string& shownWithout = {});
    void noteStored(const std::string& value);

    bool isOn() const;
    const std::string& text() const { return text_.text(); }
    bool isEdited() const;

private:
    QCheckBox& use_;
    ProjectText& text_;
    bool wasOn_ = false; ///< the project has a value
};

/// The guard on leaving a page with file fields: if any was edited since the page was entered, asks whether
/// to save. With Yes the result of `store` counts, with No the fields have again what they had then.
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
    bool isEdited() const;
    /// Checks the fields that are not empty, in order, and tells the first that is refused.
    bool check(QWidget& page, Refused refused);
    /// Writes the field's text and has the host read the file that it names.
    void store(ProjectFile file);

private:
    Orv::CProjectConfiguration& project_;
    std::array<ProjectFileField, 3> fields_; ///< by ProjectFile
};

/// The remote server: whether there is one, and its name.
class ServerFields {
public:
    ServerFields(Orv::CProjectConfiguration& project, QCheckBox& use, QLineEdit& name);

    void load();
    void follow();
    bool isEdited() const { return server_.isEdited(); }
    /// Writes the name, or none; a server without a name is told and refused.
    bool store(QWidget& page);

private:
    Orv::CProjectConfiguration& project_;
    ProjectText name_;
    SwitchedText server_;
};

} // namespace ovsettings
