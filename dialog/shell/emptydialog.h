#pragma once

#include "ovsettings/propdialogtemplate.h"

namespace ovsettings {

/// The page of a category that only groups others.
class CEmptyDialog : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    explicit CEmptyDialog(QWidget* parent);

    bool buildTemplate() override;
};

} // namespace ovsettings
