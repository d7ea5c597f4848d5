#pragma once

#include "details/widgets/listboxeditor.h"
#include "ovsettings/propdialogtemplate.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CFixedFunctionsDialog;
}

/// The page "Fixed Functions": a list of names in the project, whose meaning is the host's.
class CFixedFunctionsDialog : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    /// Adds to the list editor a flag for changes.
    class CListBoxEditorEx : public CListBoxEditor {
    public:
        using CListBoxEditor::CListBoxEditor;

        bool isChanged() const { return changed_; }
        void clearChanged() { changed_ = false; }

    protected:
        void lineAdded(int row, const QString& text) override;
        void lineRenamed(int row, const QString& text) override;
        void lineDeleted(int row) override;
        void lineMoved(int from, int to) override;

    private:
        bool changed_ = false;
    };

    explicit CFixedFunctionsDialog(QWidget* parent);
    ~CFixedFunctionsDialog() override;

    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    enum class StartedBy { frame, page };

    bool hasProject() const;
    void load();
    bool store(StartedBy starter);

    std::unique_ptr<Ui::CFixedFunctionsDialog> ui_;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
};

} // namespace ovsettings
