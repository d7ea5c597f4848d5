#pragma once

#include <QtWidgets/QDialog>

#include <string>

namespace ovsettings {

/// The modal dialog "Library", with which one entry of the library list is added or edited.
class CBrowseLibDlg : public QDialog {
    Q_OBJECT

public:
    explicit CBrowseLibDlg(QWidget* parent = nullptr);
    ~CBrowseLibDlg() override;

    // Set before DoModal.
    void setAlias(const std::string& alias);
    void setPath(const std::string& path);
    /// 0 Primary, 1 Writeable, 2 Readonly, 3 Megafile; Readonly if none is set.
    void setType(int type);
    /// Empty if there is no project.
    void setProjectDirectory(const std::string& directory);

    /// Runs the dialog. @return QDialog::Accepted after OK; then the results below hold.
    int DoModal();

    const std::string& alias() const;
    /// As typed, so that a soft name stays one.
    const std::string& path() const;
    int type() const;
};

} // namespace ovsettings
