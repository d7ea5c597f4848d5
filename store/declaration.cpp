#include "orv/declaration.h"

#include "store/kinds.h"
#include "store/numbers.h"
#include "store/unitglue.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Orv {

namespace {

using Metrics::Unit;
using Metrics::UnitTraits;

/// The limits of a length as they are stored, both inside.
struct StoredLimits {
    long least;
    long most;
};

StoredLimits storedLimits(const SettingLimits& limits, Unit unit) {
    if (limits.scale == LimitScale::steps) {
        const double step = lengthStep(unit);
        return {fromDisplay(limits.least * step, unit), fromDisplay(limits.most * step, unit)};
    }
    // Whole parts: what is less than one above the limit counts as the limit.
    return {fromDisplay(limits.least, unit), fromDisplay(limits.most + 1, unit) - 1};
}

bool isInside(const SettingLimits& limits, std::string_view text, Unit unit) {
    if (limits.scale != LimitScale::stored) {
        const StoredLimits stored = storedLimits(limits, unit);
        const long length = lengthFromText(text);
        return length >= stored.least && length <= stored.most;
    }
    const double number = doubleFromText(text);
    return (limits.above ? number > limits.least : number >= limits.least) && number <= limits.most;
}

/// Whether two texts are one value: the same text, or the same number.
bool isSame(std::string_view one, std::string_view other) {
    const auto number = [](std::string_view text, double& value) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        return error == std::errc{} && end == text.data() + text.size();
    };
    double left = 0;
    double right = 0;
    return one == other || (number(one, left) && number(other, right) && left == right);
}

std::string fixed(double number, int decimals) {
    char text[64];
    const auto result = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, decimals);
    return {text, result.ptr};
}

std::string range(const std::string& least, const std::string& most) {
    return "between " + least + " and " + most;
}

} // namespace

std::vector<std::string> defaultsOf(const SettingDeclaration& setting) {
    return cutFields(setting.defaultText);
}

Metrics::Unit unitInUse(const iAppConfiguration& appConfig) {
    return getConfiguredUnit(appConfig);
}

std::string lengthInWords(std::string_view stored, Unit unit) {
    const UnitTraits traits(unit);
    return fixed(toDisplay(lengthFromText(stored), unit), traits.Precision()) + ' ' + traits.Abbreviation();
}

bool isAllowed(const FieldDeclaration& field, std::string_view text, Unit unit) {
    const auto isText = [text](const SettingChoice& choice) {
        return isSame(choice.value, text);
    };
    return (field.choices.empty() || std::ranges::any_of(field.choices, isText)) &&
           (!field.limits || isInside(*field.limits, text, unit));
}

std::string limitsInWords(const FieldDeclaration& field, Unit unit) {
    std::string words = limitsAsShown(field, unit);
    if (words.empty() || field.limits->scale == LimitScale::stored)
        return words;
    const StoredLimits stored = storedLimits(*field.limits, unit);
    return words + " (" + lengthToText(stored.least) + " to " + lengthToText(stored.most) +
           " as it is stored)";
}

std::string limitsAsShown(const FieldDeclaration& field, Unit unit) {
    if (!field.limits)
        return {};
    const SettingLimits& limits = *field.limits;
    if (limits.scale == LimitScale::stored) {
        if (std::isinf(limits.most))
            return (limits.above ? "above " : "at least ") + decimalToText(limits.least);
        return range(decimalToText(limits.least), decimalToText(limits.most));
    }
    const UnitTraits traits(unit);
    const bool isWhole = limits.scale == LimitScale::shown;
    const double scale = isWhole ? 1 : lengthStep(unit);
    const int decimals = isWhole ? 0 : traits.Precision();
    return range(fixed(limits.least * scale, decimals), fixed(limits.most * scale, decimals)) + ' ' +
           traits.Abbreviation();
}

} // namespace Orv
