#include "dialog/shell/notifyupdaters.h"

#include "dialog/shell/settingsdialog.h"

namespace ovsettings {

void notifyUpdatersOf(QWidget& page) {
    for (QWidget* widget = &page; widget; widget = widget->parentWidget()) {
        if (auto* frame = dynamic_cast<CSettingsDialog*>(widget)) {
            frame->notifyUpdaters();
            return;
        }
    }
}

} // namespace ovsettings
