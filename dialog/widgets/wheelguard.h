#pragma once

class QWidget;

namespace ovsettings {

/// Keeps the mouse wheel from changing what the user only scrolls past: below `page`, a spin box or combo box
/// without the focus leaves the wheel to the widgets around it, also where it edits the cell of a table.
/// Lists and tables scroll; the wheel gives the focus to none of them. Controls that come to the page later
/// are guarded once they have been shown. Call once for a page.
void installWheelGuard(QWidget& page);

} // namespace ovsettings
