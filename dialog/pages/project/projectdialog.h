#pragma once

#include "dialog/pages/project/layouttools.h"
#include "dialog/shell/formpage.h"

#include <memory>
#include <string>

namespace ovsettings {

namespace Ui {
class CProjectDialog;
}

/// The page "Netlist Project": the files of a project without a central library, its remote server and its
/// layout tool.
class CProjectDialog : public CFormPage<Ui::CProjectDialog> {
    Q_OBJECT

public:
    explicit CProjectDialog(QWidget* parent);
    ~CProjectDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    struct Fields;

    std::string propertiesOfProject() const;
    void followProject();
    void loadLayoutTool();
    const LayoutTool& showLayoutTool();
    void followLayoutTool();
    void chooseLayoutTool(int index);
    void storeLayoutTool();
    std::string chosenLayoutTool() const;
    bool checkPropertyDefinitions();

    std::unique_ptr<Fields> fields_; ///< null while no project is open: there is nothing to check and store
    LayoutTools tools_;
    std::string toolKey_; ///< the project's when it was loaded; the list may not show it
    int toolIndex_ = -1;  ///< in the list, of the tool that the project has
};

} // namespace ovsettings
