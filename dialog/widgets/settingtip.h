#pragma once

#include <QtCore/QString>

class QHelpEvent;
class QWidget;

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

struct SettingField;

/// What a tool tip says of a setting, as plain text of a line each: its caption, its limits in the unit in
/// use, its default and who locks it.
QString settingTip(const Orv::iAppConfiguration& appConfig, const SettingField& setting);

/// Has an event filter of the form's see when a tool tip is asked for: of the controls that stand for keys,
/// their labels, and the grids. That is all it costs until then.
void watchSettingTips(QWidget& form);

/// Shows the tool tip of the setting that stands where it was asked for. A tool tip that is there by itself
/// stays, unless it is the mark of the setting's lock.
/// @return false if nothing was shown.
bool showSettingTip(QWidget& asked, const QHelpEvent& event, const Orv::iAppConfiguration& appConfig);

} // namespace ovsettings
