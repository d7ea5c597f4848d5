#pragma once

#include <optional>
#include <string>
#include <string_view>

class QLineEdit;
class QWidget;

namespace ovsettings {

/// What a chooser of a file starts with.
struct FileChoice {
    std::string title;
    std::string initialDirectory;
    std::string filter;        ///< as CPropFile::setFilter takes it
    std::string defaultName;   ///< as CPropFile::setDefaultName takes it
    std::string defaultSuffix; ///< as CPropFile::setDefaultSuffix takes it
};

/// Lets the user choose a file, which need not exist. @return its path, or nothing if none was chosen.
std::optional<std::string> chooseFile(QWidget* parent, const FileChoice& choice);

/// Says whether a text is a file name that a page accepts.
class CFileValidator {
public:
    enum Mode : int {
        existingBareName = 0, ///< no directory in it, and the file opens for reading
        bareName = 1,         ///< no directory in it
    };

    /// @param mode one of Mode; any other accepts nothing.
    explicit CFileValidator(int mode) : mode_(mode) {}

    bool isValid(const std::string& path) const;

private:
    int mode_;
};

/// The file name field of a page: an edit control with a button that browses for a file.
class CPropFile {
public:
    /// @param edit the field; not owned, must outlive this object.
    explicit CPropFile(QLineEdit& edit);
    virtual ~CPropFile();

    /// Lets the user choose a file and puts its path into the field. A path that the validator refuses is
    /// told and clears the field.
    virtual void browse();
    /// True without a validator; otherwise its verdict, which the valid flag keeps.
    virtual bool check(const std::string& path);
    /// Checks the field's text and tells the user of a refusal.
    virtual bool checkField();
    virtual bool isValid() const;
    /// Part of the interface of such fields; every field may be left.
    virtual bool canLeave() const;
    /// @param validator not owned; null accepts everything.
    virtual void setValidator(const CFileValidator* validator);

    void setInitialDirectory(const std::string& directory);
    /// @param filter pairs of description and patterns, each ended by "|", as in "Text (*.txt)|*.txt||".
    void setFilter(const std::string& filter);
    void setTitle(const std::string& title);
    /// @param name what stands in the chooser's name field at first; a pattern as in "*.txt" lists the files
    ///             that match when the user accepts it. Empty means nothing.
    void setDefaultName(const std::string& name);
    /// @param suffix without a dot, for names that are typed without one.
    void setDefaultSuffix(const std::string& suffix);

private:
    QLineEdit& edit_;
    FileChoice choice_;
    bool valid_ = true;
    const CFileValidator* validator_ = nullptr;
};

/// A filter of pairs as CPropFile takes it, in the form of the toolkit's file dialog.
std::string toolkitFilter(std::string_view pairs);

} // namespace ovsettings
