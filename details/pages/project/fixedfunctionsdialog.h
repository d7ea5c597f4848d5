#pragma once

#include "details/widgets/watchedlistboxeditor.h"
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
    class CListBoxEditorEx : public CWatchedListBoxEditor {
    public:
        using CWatchedListBoxEditor::CWatchedListBoxEditor;
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

    void load();
    bool store(StartedBy starter);

    std::unique_ptr<Ui::CFixedFunctionsDialog> ui_;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
};

} // namespace ovsettings
