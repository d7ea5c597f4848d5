#pragma once

#include "dialog/shell/boundpage.h"
#include "dialog/shell/formpage.h"

namespace ovsettings {

namespace Ui {
class CNewObjectDialog;
}

/// The page "New Objects": origin and size of a text that the schematic editor places.
class CNewObjectDialog : public CFormPage<Ui::CNewObjectDialog, BoundPage> {
    Q_OBJECT

public:
    explicit CNewObjectDialog(QWidget* parent);
    ~CNewObjectDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;

private:
    LengthRefusal lengthRefusal() const override;
};

} // namespace ovsettings
