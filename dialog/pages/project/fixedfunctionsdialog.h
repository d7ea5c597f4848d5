#pragma once

#include "dialog/shell/formpage.h"
#include "dialog/widgets/watchedlistboxeditor.h"

namespace ovsettings {

namespace Ui {
class CFixedFunctionsDialog;
}

/// The page "Fixed Functions": a list of names in the project, whose meaning is the host's.
class CFixedFunctionsDialog : public CFormPage<Ui::CFixedFunctionsDialog> {
    Q_OBJECT

public:
    class CListBoxEditorEx : public WatchedListBoxEditor {
    public:
        using WatchedListBoxEditor::WatchedListBoxEditor;
    };

    explicit CFixedFunctionsDialog(QWidget* parent);
    ~CFixedFunctionsDialog() override;

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
};

} // namespace ovsettings
