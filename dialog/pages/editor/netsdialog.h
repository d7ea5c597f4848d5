#pragma once

#include "dialog/shell/boundpage.h"
#include "dialog/shell/formpage.h"

namespace ovsettings {

namespace Ui {
class CNetsDialog;
}

/// The page "Nets": how nets are routed, and where attributes and labels go when a net is split.
class CNetsDialog : public CFormPage<Ui::CNetsDialog, BoundPage> {
    Q_OBJECT

public:
    explicit CNetsDialog(QWidget* parent);
    ~CNetsDialog() override;

private:
    LengthRefusal lengthRefusal() const override;
};

} // namespace ovsettings
