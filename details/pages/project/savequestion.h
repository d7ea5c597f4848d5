#pragma once

class QWidget;

namespace ovsettings {

/// The question with which a page of the project lets the user go on to another page.
/// @return true for Yes.
bool asksToSave(QWidget& page);

} // namespace ovsettings
