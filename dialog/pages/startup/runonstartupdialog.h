#pragma once

#include "dialog/pages/startup/scriptsini.h"
#include "dialog/shell/formpage.h"
#include "dialog/widgets/listboxfileeditor.h"

#include <QtCore/QString>

#include <chrono>
#include <string>
#include <vector>

namespace ovsettings {

namespace Ui {
class CRunOnStartupDialog;
}

/// The page "Run on Startup": the forms and scripts that the editor runs when it starts, kept in a file in
/// the user's working directory.
class CRunOnStartupDialog : public CFormPage<Ui::CRunOnStartupDialog> {
    Q_OBJECT

public:
    /// Adds to the list of files a flag for changes, and the care for files that do not exist.
    class CListBoxFileEditorEx : public ListBoxFileEditor {
    public:
        using ListBoxFileEditor::ListBoxFileEditor;

        bool isChanged() const { return changed_ || isChanging(); }
        void clearChanged() { changed_ = false; }

    protected:
        void lineAdded(int row, const QString& text) override;
        void lineRenamed(int row, const QString& text) override;
        void lineDeleted(int row) override;
        void lineMoved(int from, int to) override;

    private:
        void checkFile(int row, const QString& text);

        bool changed_ = false;
    };

    explicit CRunOnStartupDialog(QWidget* parent);
    ~CRunOnStartupDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;
    /// Shows the lists as they were last read or stored. Returns 1.
    virtual int refreshControls();

private:
    enum class Exchange { toControls, fromControls };

    /// Joins one list box to one list of the file.
    class CFileList {
    public:
        virtual ~CFileList() = default;

        void attach(CListBoxFileEditorEx& editor, const QString& title);
        void read(const std::string& fileName, unsigned prefixId);
        virtual void exchange(Exchange direction);
        /// See ScriptsIni::write.
        bool write(std::chrono::milliseconds& patience);
        void clearChanged();
        bool isChanged() const;

    private:
        CListBoxFileEditorEx* editor_ = nullptr;
        std::vector<std::string> strings_;
        ScriptsIni file_;
    };

    CFileList forms_;
    CFileList scripts_;
    std::string fileName_;
};

} // namespace ovsettings
