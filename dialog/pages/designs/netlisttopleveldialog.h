#pragma once

#include "dialog/pages/designs/navigator.h"
#include "dialog/shell/formpage.h"

#include <memory>
#include <string>

namespace ovsettings {

namespace Ui {
class CNetlistTopLevelDialog;
}

/// The page of a design in a project of the netlist tool: its top-level block.
class CNetlistTopLevelDialog : public CFormPage<Ui::CNetlistTopLevelDialog> {
    Q_OBJECT

public:
    CNetlistTopLevelDialog(QWidget* parent, const std::string& designName);
    ~CNetlistTopLevelDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool onCancel() override;
    /// True once another block is selected than at the filling or the last store.
    bool isModified() const override;

private:
    std::string blockName_;
    Navigator navigator_;
    int storedBlock_ = -1; ///< its place among the blocks
};

} // namespace ovsettings
