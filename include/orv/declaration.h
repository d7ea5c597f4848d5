#pragma once

#include "orv/appconfiguration.h"
#include "orv/metrics.h"
#include "ovsettings/export.h"

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// What a stored number counts.
enum class SettingUnit : int {
    none = 0,   ///< nothing, or what only the host knows
    length = 1, ///< units of 10 nanometres, 2,540,000 to the inch; shown in the unit that the key UNIT names
};

/// In what a limit is judged.
enum class LimitScale : int {
    stored = 0, ///< the number as it is stored
    shown = 1,  ///< the whole part of a length in the unit in use
    steps = 2,  ///< a length in steps of the unit in use; a step is one of the last decimal that it shows
};

/// Between what a number has to be. Both limits are inside, unless `above` is set.
struct SettingLimits {
    double least = 0;
    double most = std::numeric_limits<double>::infinity();
    LimitScale scale = LimitScale::stored;
    bool above = false; ///< true: `least` itself is outside

    bool operator==(const SettingLimits&) const = default;
};

/// One of the values that a field is chosen from.
struct SettingChoice {
    std::string_view value{}; ///< as it is stored
    std::string_view caption{};
};

/// What one field of a setting means. A view: all of it lasts as long as the process.
struct FieldDeclaration {
    std::string_view name{};    ///< as iAppConfiguration::fieldNames has it; empty where that has none
    std::string_view caption{}; ///< as the dialog shows it, in English
    std::string_view meaning{}; ///< one sentence in English
    SettingUnit unit = SettingUnit::none;
    std::optional<SettingLimits> limits{};
    std::span<const SettingChoice> choices{}; ///< empty where the field is no choice
};

/// What a setting means. A view: all of it lasts as long as the process.
struct SettingDeclaration {
    std::string_view key{};
    iAppConfiguration::Kind kind = iAppConfiguration::KindFlag;
    std::string_view defaultText{}; ///< the built-in default, its fields joined by ", "
    std::string_view caption{};     ///< as the dialog shows it, in English
    std::string_view meaning{};     ///< one sentence in English
    /// One entry a field. Of a kind without named fields one entry, with the caption and the sentence of the
    /// setting; of a list it stands for all entries.
    std::span<const FieldDeclaration> fields{};
};

/// All settings in table order, whether a configuration is loaded or not. Laid together at the first call;
/// valid as long as the process. To be called on any thread.
OVSETTINGS_API std::span<const SettingDeclaration> declarations();
/// The declaration of a key; null if there is no such key.
OVSETTINGS_API const SettingDeclaration* declarationOf(std::string_view key);

/// The built-in default, field by field; empty for a list or a text without one.
OVSETTINGS_API std::vector<std::string> defaultsOf(const SettingDeclaration& setting);

/// The unit in which lengths are shown, typed and judged: the one that the key UNIT names, inches if it names
/// none.
OVSETTINGS_API Metrics::Unit unitInUse(const iAppConfiguration& appConfig);
/// A stored length as the dialog shows it, "0.10 in".
OVSETTINGS_API std::string lengthInWords(std::string_view stored, Metrics::Unit unit);

/// Whether a text is one of the choices and inside the limits; true for a field that has neither. It does not
/// say whether the text is fit for the setting's kind. Lengths are judged as the dialog does when they are
/// typed in.
/// @param unit the unit in use.
OVSETTINGS_API bool isAllowed(const FieldDeclaration& field, std::string_view text, Metrics::Unit unit);
/// The limits as "between 0.01 and 10.00 in (25400 to 25400000 as it is stored)"; empty without limits.
/// @param unit the unit in use.
OVSETTINGS_API std::string limitsInWords(const FieldDeclaration& field, Metrics::Unit unit);
/// The limits as a user reads them, "between 0.01 and 10.00 in"; empty without limits.
/// @param unit the unit in use.
OVSETTINGS_API std::string limitsAsShown(const FieldDeclaration& field, Metrics::Unit unit);

} // namespace Orv
