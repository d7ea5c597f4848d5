#pragma once

#include "dialog/shell/page.h"

#include <QtCore/QString>

#include <memory>

namespace ovsettings {

namespace Ui {
class CPartBookDialog;
}

/// The page "OvPartBook": the user configuration file of the add-in of that name.
class CPartBookDialog : public Page {
    Q_OBJECT

public:
    explicit CPartBookDialog(QWidget* parent);
    ~CPartBookDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;

private:
    void browse();

    std::unique_ptr<Ui::CPartBookDialog> ui_;
    QString shown_; ///< the text as it was last loaded or stored
};

} // namespace ovsettings
