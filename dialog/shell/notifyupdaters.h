#pragma once

class QWidget;

namespace ovsettings {

/// Has the settings dialog that `page` lives in tell its updaters; a page hosted elsewhere does nothing.
void notifyUpdatersOf(QWidget& page);

} // namespace ovsettings
