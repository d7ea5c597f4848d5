#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class QString;

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

inline constexpr std::size_t kMostKeysOfAChoice = 2;

/// One text for each key of a choice row. In a pattern null matches any text.
using ChoiceValues = std::array<const char*, kMostKeysOfAChoice>;

/// What is shown for stored values.
struct ChoiceShown {
    ChoiceValues stored;
    const char* text;
};

/// What is written for a choice.
struct ChoiceWritten {
    const char* choice;
    ChoiceValues values;
};

/// What a row of choices shows and writes for its one or two keys.
struct ChoiceTable {
    std::span<const char* const> keys; ///< the first is the row's key
    /// Brings a stored text into the form of the patterns.
    std::string (*normalForm)(const std::string& stored);
    std::span<const ChoiceShown> shown; ///< the first match counts; nothing is shown for none
    std::span<const ChoiceWritten> written;
    bool showsLock; ///< whether the row of a locked key looks locked
};

/// The table of a row's key; null if the row is none of choices.
const ChoiceTable* choiceTableOf(std::string_view key);

/// A text of the tables in the user's language.
QString choiceCaption(const char* text);

/// The text to show for what is stored, in the user's language; empty if there is none.
QString shownChoice(const ChoiceTable& table, const Orv::iAppConfiguration& appConfig);
/// What to write for the text that is on show; null if it is no choice, and then nothing is written.
const ChoiceWritten* writtenFor(const ChoiceTable& table, const QString& shown);
/// @return false if the store holds another value afterwards: a key is locked.
bool writeChoice(const ChoiceTable& table, const ChoiceWritten& written, Orv::iAppConfiguration& appConfig);

} // namespace ovsettings
