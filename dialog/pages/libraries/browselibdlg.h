#pragma once

#include "dialog/pages/libraries/dirhandler.h"
#include "dialog/pages/libraries/libraryworker.h"

#include <QtWidgets/QDialog>

#include <memory>
#include <optional>
#include <string>

class QWidget;

namespace ovsettings {

namespace Ui {
class CBrowseLibDlg;
}

/// The modal dialog "Library", with which one entry of the library list is added or edited. While it is open,
/// a worker looks up what the path leads to, and the dialog shows it with a state icon and proposes an alias
/// and a type. OK is out of reach while a changed path is looked up.
///
/// While the dialog lives the project's directory is the current one, for names that are relative to it.
class CBrowseLibDlg : public QDialog {
    Q_OBJECT

public:
    explicit CBrowseLibDlg(QWidget* parent = nullptr);
    ~CBrowseLibDlg() override;

    // Set before DoModal.
    void setAlias(const std::string& alias) { alias_ = alias; }
    void setPath(const std::string& path) { path_ = path; }
    /// 0 Primary, 1 Writeable, 2 Readonly, 3 Megafile; Readonly if none is set.
    void setType(int type) { type_ = type; }
    /// Empty if there is no project.
    void setProjectDirectory(const std::string& directory) { projectDirectory_ = directory; }

    /// Runs the dialog. @return QDialog::Accepted after OK; then the results below hold.
    int DoModal();

    const std::string& alias() const { return alias_; }
    /// As typed, so that a soft name stays one.
    const std::string& path() const { return path_; }
    int type() const { return type_; }

    void accept() override;
    void done(int result) override;

private:
    void OnInitDialog();
    std::string initialPath() const;
    std::string locationOf(const std::string& path) const;
    LibraryType selectedType() const;

    void lookUp(LookUp what);
    void takeFindings();
    void showFindings(const LibraryFindings& findings);
    void showState(const Recognition& recognition);
    void proposeAlias(const LibraryFindings& findings);

    void browse();
    /// Shows why an alias is refused. @return false if it is.
    bool checkAlias(const std::string& alias, bool remote);
    /// Shows why no library can be where a local path leads. @return false if none can.
    bool checkPlace(const std::string& path);
    /// Creates the directory if it is missing and the user wants it. @return false if OK ends here.
    bool ensureDirectory(const std::string& path);

    struct Fields;

    std::unique_ptr<Ui::CBrowseLibDlg> ui_;
    std::unique_ptr<Fields> fields_;
    std::string alias_;
    std::string path_;
    int type_;
    std::string projectDirectory_;
    /// True while the worker may fill in the alias.
    bool autoAlias_ = false;
    /// True while the last path's alias has not come yet.
    bool aliasAwaited_ = false;
    std::optional<CDirHandler> dirHandler_;
    std::optional<LibraryWorker> worker_;
};

} // namespace ovsettings
