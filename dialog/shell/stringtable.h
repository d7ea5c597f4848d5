#pragma once

#include <optional>
#include <string>

namespace ovsettings {

/// Language ids are those of Windows (MS-LCID): 1033 is English (United States), 1041 Japanese.
constexpr unsigned kEnglish = 1033;

/// The string of an id in exactly that language, UTF-8; nothing if the language or the id has none.
std::optional<std::string> loadString(unsigned id, unsigned languageId);

/// The largest id that a language has a string for; 0 if it has none.
unsigned lastStringId(unsigned languageId);

/// The language id of the user's locale; 0 for a language without a string table.
unsigned userLanguageId();

/// The string of an id in the user's language, or else in English.
std::string stringForUser(unsigned id);

} // namespace ovsettings
