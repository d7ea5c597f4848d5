#include "details/pages/project/savequestion.h"

#include "details/widgets/messagebox.h"
#include "details/widgets/stringconversion.h"

#include <QtCore/QCoreApplication>

namespace ovsettings {

namespace {

QString translated(const char* text) {
    return QCoreApplication::translate("ovsettings::ProjectPage", text);
}

} // namespace

bool asksToSave(QWidget& page) {
    return askYesNo(
        &page,
        translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage",
                                     "Do you want to save the changes you've made in this page?")),
        translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage", "Project Settings")), QMessageBox::Question);
}

void tellFailedSave(QWidget& page, const std::string& cause) {
    showMessage(&page, toQString(cause), translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage", "Error")),
                QMessageBox::Critical);
}

void tellNoFile(QWidget& page, const QString& caption) {
    const char* const text =
        QT_TRANSLATE_NOOP("ovsettings::ProjectPage",
                          "The changes of \"%1\" cannot be saved: the project names no file for them.");
    tellFailedSave(page, toUtf8(translated(text).arg(caption)));
}

} // namespace ovsettings
