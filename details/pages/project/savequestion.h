#pragma once

#include <string>

class QWidget;

namespace ovsettings {

/// The question with which a page of the project lets the user go on to another page.
/// @return true for Yes.
bool asksToSave(QWidget& page);

/// Tells why a page could not save its file.
void tellFailedSave(QWidget& page, const std::string& cause);

} // namespace ovsettings
