#include "dialog/widgets/lockmark.h"

#include "dialog/widgets/grid/gridcellstyle.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/appconfiguration.h"
#include "platform/plaintext.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

namespace ovsettings {

namespace {

void lock(QWidget& widget, const QString& toolTip) {
    widget.setEnabled(false);
    widget.setToolTip(platform::toToolTip(toolTip));
    // The tool tip serves in its place, but with its markup.
    if (widget.toolTip() != toolTip && widget.accessibleDescription().isEmpty())
        widget.setAccessibleDescription(toolTip);
}

void unlock(QWidget& widget) {
    if (platform::toToolTip(widget.accessibleDescription()) == widget.toolTip())
        widget.setAccessibleDescription({});
    widget.setToolTip({});
    widget.setEnabled(true);
}

} // namespace

QWidgetList lockedTogether(QWidget& control) {
    QWidgetList widgets{&control};
    for (QAbstractButton* button : control.findChildren<QAbstractButton*>())
        widgets.append(button);
    if (const QWidget* around = control.parentWidget()) {
        for (QLabel* label : around->findChildren<QLabel*>()) {
            if (label->buddy() == &control)
                widgets.append(label);
        }
    }
    return widgets;
}

QString lockToolTip(const Orv::iAppConfiguration& appConfig, const std::string& key, std::size_t field) {
    QString text = QCoreApplication::translate("ovsettings", "Locked by %1")
                       .arg(toQString(appConfig.lockingDirectory(key, field)));
    const Orv::LockNote note = appConfig.lockNote(key, field);
    if (!note.reason.empty())
        text += '\n' + toQString(note.reason);
    if (!note.contact.empty())
        text += '\n' + QCoreApplication::translate("ovsettings", "Contact: %1").arg(toQString(note.contact));
    return text;
}

void markLocked(QWidget& control, const Orv::iAppConfiguration& appConfig, const std::string& key,
                std::size_t field) {
    const QString toolTip = lockToolTip(appConfig, key, field);
    for (QWidget* widget : lockedTogether(control))
        lock(*widget, toolTip);
}

void unmarkLocked(QWidget& control) {
    for (QWidget* widget : lockedTogether(control))
        unlock(*widget);
}

bool isUsersToMend(const QWidget& control) {
    return control.isEnabled();
}

bool isUsersToMend(const GridCellStyle& cell) {
    return !cell.readOnly;
}

} // namespace ovsettings
