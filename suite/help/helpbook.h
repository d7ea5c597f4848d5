#pragma once

#include <QtCore/QString>

#include <optional>

/// The books of the online help: directories of HTML pages under `RSR_HOME`/standard/help. Names are found in
/// their exact spelling first, then without regard to case.
namespace helpbook {

/// Whether a text can be the name of a book or a topic: not empty, no path separator, no "..".
bool isPlainName(const QString& name);

/// The directory of a book, with its links resolved; nothing if there is none, or for a name that would lead
/// out of the help directory.
std::optional<QString> findBook(const QString& book);

/// The file of a topic, a plain name, in a book's directory.
std::optional<QString> findTopic(const QString& bookDirectory, const QString& topic);

/// The page that a link of a page leads to; nothing if it leads out of the book, is no HTML page, or is
/// missing.
std::optional<QString> findLinked(const QString& bookDirectory, const QString& file);

} // namespace helpbook
