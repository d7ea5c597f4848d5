#include "dialog/projectfile/savequestion.h"

#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "platform/printable.h"

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

bool asksToWriteForeignFile(QWidget& page, const std::string& place) {
    const char* const text =
        QT_TRANSLATE_NOOP("ovsettings::ProjectPage",
                          "%1\n\nThe project names this file, which lies outside of the project, its "
                          "libraries and the working directories.\nWrite to it anyway?");
    return askYesNo(&page, translated(text).arg(toQString(platform::printable(place))),
                    translated(QT_TRANSLATE_NOOP("ovsettings::ProjectPage", "Project Settings")),
                    QMessageBox::Question, QMessageBox::No);
}

void tellDeclinedFile(QWidget& page, const std::string& place) {
    const char* const text = QT_TRANSLATE_NOOP(
        "ovsettings::ProjectPage", "%1: cannot save: the file lies outside of the project, its libraries and "
                                   "the working directories, and you chose not to write to it");
    tellFailedSave(page, toUtf8(translated(text).arg(toQString(platform::printable(place)))));
}

} // namespace ovsettings
