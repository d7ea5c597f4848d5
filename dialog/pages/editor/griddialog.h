#pragma once

#include "dialog/shell/boundpage.h"
#include "dialog/shell/formpage.h"

namespace ovsettings {

namespace Ui {
class CGridDialog;
}

/// The page "Grid": whether the schematic shows its grid, and how wide the grid is.
class CGridDialog : public CFormPage<Ui::CGridDialog, BoundPage> {
    Q_OBJECT

public:
    explicit CGridDialog(QWidget* parent);
    ~CGridDialog() override;

private:
    LengthRefusal lengthRefusal() const override;
};

} // namespace ovsettings
