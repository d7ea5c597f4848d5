#include "app/fieldtext.h"

#include <orv/appconfiguration.h>

#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

namespace app {

namespace {

using Configuration = Orv::iAppConfiguration;

enum class TextForm { any, flag, singleNumber, number, integer, color };

struct KindRow {
    int kind;
    std::string_view name;
    TextForm form; ///< of a field that the table below does not name
};

constexpr std::array kKinds{
    KindRow{Configuration::KindFlag, "flag", TextForm::flag},
    KindRow{Configuration::KindNumber, "number", TextForm::singleNumber},
    KindRow{Configuration::KindLayer, "layer", TextForm::integer},
    KindRow{Configuration::KindObject, "object", TextForm::integer},
    KindRow{Configuration::KindList, "list", TextForm::any},
    KindRow{Configuration::KindText, "text", TextForm::any},
    KindRow{Configuration::KindSize, "size", TextForm::number},
    KindRow{Configuration::KindFont, "font", TextForm::any},
    KindRow{Configuration::KindIctObject, "ict object", TextForm::color},
};

struct FieldRow {
    std::string_view field;
    TextForm form;
};

constexpr std::array kFields{
    FieldRow{"VISIBLE", TextForm::flag},    FieldRow{"SELECTABLE", TextForm::flag},
    FieldRow{"COLOR", TextForm::color},     FieldRow{"WEIGHT", TextForm::integer},
    FieldRow{"CHARSET", TextForm::integer}, FieldRow{"ITALIC", TextForm::flag},
    FieldRow{"UNDERLINE", TextForm::flag},  FieldRow{"STRIKEOUT", TextForm::flag},
    FieldRow{"BOLD", TextForm::flag},
};

const KindRow* findKind(int kind) {
    const auto row = std::ranges::find(kKinds, kind, &KindRow::kind);
    return row == kKinds.end() ? nullptr : &*row;
}

TextForm formOf(int kind, std::size_t field) {
    const std::vector<std::string> names = Configuration::fieldNames(kind);
    if (field < names.size()) {
        const auto row = std::ranges::find(kFields, names[field], &FieldRow::field);
        if (row != kFields.end())
            return row->form;
    }
    const KindRow* row = findKind(kind);
    return row ? row->form : TextForm::any;
}

// The whole text as a number; nothing for what is none, infinite or out of the type's range.
template <typename Number>
std::optional<Number> parse(std::string_view text) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number))
            return std::nullopt;
    }
    return number;
}

constexpr std::size_t kColorDigits = 6;

std::optional<unsigned> parseColor(std::string_view text) {
    const auto isDigit = [](unsigned char c) {
        return std::isxdigit(c) != 0;
    };
    if (!text.starts_with("0x") || text.size() != 2 + kColorDigits ||
        !std::ranges::all_of(text.substr(2), isDigit))
        return std::nullopt;
    unsigned color = 0;
    std::from_chars(text.data() + 2, text.data() + text.size(), color, 16);
    return color;
}

// Values end up in XML, which has no means to hold most control characters.
bool isStorable(std::string_view text) {
    return platform::isUtf8Of(
        text, [](char32_t c) { return (c >= 0x20 || c == '\t' || c == '\n') && c != 0xfffe && c != 0xffff; });
}

} // namespace

std::string_view kindName(int kind) {
    const KindRow* row = findKind(kind);
    return row ? row->name : std::string_view{};
}

std::optional<std::string> objectionToText(int kind, std::size_t field, std::string_view text) {
    switch (formOf(kind, field)) {
    case TextForm::any:
        if (!isStorable(text))
            return "a text has to be UTF-8 without control characters";
        break;
    case TextForm::flag:
        if (text != "0" && text != "1")
            return "a flag is 0 or 1";
        break;
    case TextForm::singleNumber:
        if (!parse<float>(text))
            return "a number is written with digits, \".\" for the decimal point, and fits single precision";
        break;
    case TextForm::number:
        if (!parse<double>(text))
            return "a length is written with digits and \".\" for the decimal point";
        break;
    case TextForm::integer:
        if (!parse<int>(text))
            return "a whole number is needed";
        break;
    case TextForm::color:
        if (!parseColor(text))
            return "a colour is 0x and six hexadecimal digits, red first";
        break;
    }
    return std::nullopt;
}

bool sameMeaning(int kind, std::size_t field, std::string_view one, std::string_view other) {
    if (one == other)
        return true;
    switch (formOf(kind, field)) {
    case TextForm::singleNumber:
    case TextForm::number:
        return parse<double>(one) && parse<double>(one) == parse<double>(other);
    case TextForm::integer:
        return parse<int>(one) && parse<int>(one) == parse<int>(other);
    case TextForm::color:
        return parseColor(one) && parseColor(one) == parseColor(other);
    case TextForm::any:
    case TextForm::flag:
        break;
    }
    return false;
}

} // namespace app
