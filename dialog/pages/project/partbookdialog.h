#pragma once

#include "dialog/shell/formpage.h"

#include <QtCore/QString>

namespace ovsettings {

namespace Ui {
class CPartBookDialog;
}

/// The page "OvPartBook": the user configuration file of the add-in of that name.
class CPartBookDialog : public CFormPage<Ui::CPartBookDialog> {
    Q_OBJECT

public:
    explicit CPartBookDialog(QWidget* parent);
    ~CPartBookDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;

private:
    void browse();

    QString shown_; ///< the text as it was last loaded or stored
};

} // namespace ovsettings
