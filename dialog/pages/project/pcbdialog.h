#pragma once

#include "ovsettings/propdialogtemplate.h"

#include <memory>
#include <vector>

namespace ovsettings {

namespace Ui {
class CPCBDialog;
}

class CPropFile;

/// The page "PCB": a form of file names and options for a PCB flow. It only checks the names; the host takes
/// nothing from here.
class CPCBDialog : public CPropDialogTemplate {
    Q_OBJECT

public:
    explicit CPCBDialog(QWidget* parent);
    ~CPCBDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onLeave() override;
    bool isValid() override;

private:
    std::unique_ptr<Ui::CPCBDialog> ui_;
    std::vector<std::unique_ptr<CPropFile>> files_; ///< in the order in which they are asked
};

} // namespace ovsettings
