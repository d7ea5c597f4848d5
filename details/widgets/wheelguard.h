#pragma once

class QWidget;

namespace ovsettings {

/// Keeps the mouse wheel from changing what the user only scrolls past: below `page`, a spin box, combo box,
/// list or table without the focus leaves the wheel to the widgets around it, and the wheel never gives it
/// the focus. Controls that come to the page later are guarded once they have been shown. Call once for a
/// page.
void installWheelGuard(QWidget& page);

} // namespace ovsettings
