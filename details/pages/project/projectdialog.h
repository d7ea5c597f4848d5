#pragma once

#include "details/pages/project/layouttools.h"
#include "ovsettings/propdialogtemplate.h"

#include <memory>
#include <string>

namespace ovsettings {

namespace Ui {
class CProjectDialog;
}

/// The page "Netlist Project": the files of a project without a central library, its remote server and its
/// layout tool.
class CProjectDialog : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    explicit CProjectDialog(QWidget* parent);
    ~CProjectDialog() override;

    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;

private:
    struct Fields;

    void loadLayoutTool();
    void chooseLayoutTool(int index);
    std::string chosenLayoutTool() const;
    bool checkPropertyDefinitions();

    std::unique_ptr<Ui::CProjectDialog> ui_;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
    std::unique_ptr<Fields> fields_; ///< null while no project is open: there is nothing to check and store
    LayoutTools tools_;
    std::string toolKey_;
    int toolIndex_ = -1; ///< of the list; -1 if the list does not show the tool
};

} // namespace ovsettings
