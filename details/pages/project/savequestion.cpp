#include "details/pages/project/savequestion.h"

#include "details/widgets/messagebox.h"

#include <QtCore/QCoreApplication>

namespace ovsettings {

bool asksToSave(QWidget& page) {
    const auto translated = [](const char* text) {
        return QCoreApplication::translate("ovsettings::ProjectPage", text);
    };
    return askYesNo(
        &page,
        translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage",
                                     "Do you want to save the changes you've made in this page?")),
        translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage", "Project Settings")), QMessageBox::Question);
}

} // namespace ovsettings
