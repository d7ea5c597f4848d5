#include "dialog/widgets/radiobutton.h"

#include <QtWidgets/QRadioButton>

namespace ovsettings {

void checkRadioButton(QRadioButton& button) {
    button.setChecked(true);
    if (!button.isEnabled())
        return;
    const QWidget& group = *button.parentWidget();
    for (QRadioButton* each : group.findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
        each->setFocusPolicy(each == &button ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace ovsettings
