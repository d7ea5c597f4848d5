#pragma once

#include <string>

class QString;
class QWidget;

namespace ovsettings {

/// The question with which a page of the project lets the user go on to another page.
/// @return true for Yes.
bool asksToSave(QWidget& page);

/// Tells why a page could not save its file.
void tellFailedSave(QWidget& page, const std::string& cause);

/// Tells that a page has changes of a file that the project names no more.
/// @param caption of the page, which need not be the one on show.
void tellNoFile(QWidget& page, const QString& caption);

/// Asks whether to write to a file outside of the project. No is the default.
/// @param place of the file, with its links followed.
/// @return true for Yes.
bool asksToWriteForeignFile(QWidget& page, const std::string& place);

/// Tells that such a file is not written, as the user has answered before.
void tellDeclinedFile(QWidget& page, const std::string& place);

} // namespace ovsettings
