#pragma once

#include "ovsettings/propdialogtemplate.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CGlobalNetsDialog;
}

/// The page "Global Nets": a table that is stored nowhere.
class CGlobalNetsDialog : public CPropDialogTemplate {
    Q_OBJECT

public:
    explicit CGlobalNetsDialog(QWidget* parent);
    ~CGlobalNetsDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;

private:
    std::unique_ptr<Ui::CGlobalNetsDialog> ui_;
};

} // namespace ovsettings
