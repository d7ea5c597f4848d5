#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <string>

class QWidget;

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

struct GridCellStyle;

/// What a user is told of a locked field, as plain text: the directory that locks it and, a line each, the
/// administrator's reason and whom to ask.
/// @param field index from 0.
QString lockToolTip(const Orv::iAppConfiguration& appConfig, const std::string& key, std::size_t field = 0);

/// A control, the label whose buddy it is, and the buttons inside it.
QList<QWidget*> lockedTogether(QWidget& control);

/// Makes a control look locked: it and the label whose buddy it is are disabled, and a tool tip on both names
/// the directory that locks the field. A group box takes the buttons inside it along.
/// @param field index from 0.
void markLocked(QWidget& control, const Orv::iAppConfiguration& appConfig, const std::string& key,
                std::size_t field = 0);

/// Takes that away again.
void unmarkLocked(QWidget& control);

/// Whether a value may keep the user on a page until he has mended it. One that is locked, or greyed for
/// another reason, is out of his reach, so no check refuses it.
bool isUsersToMend(const QWidget& control);
bool isUsersToMend(const GridCellStyle& cell);

} // namespace ovsettings
