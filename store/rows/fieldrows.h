#pragma once

#include "orv/declaration.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>

namespace Orv {

using enum iAppConfiguration::Kind;

/// One setting, as it is declared.
struct SettingRow {
    std::string_view key{};
    iAppConfiguration::Kind kind = KindFlag;
    std::string_view defaultText{}; ///< the fields, joined by ", "; see cutFields
    std::string_view caption{};
    std::string_view meaning{};
    SettingUnit unit = SettingUnit::none; ///< this and the next two of kinds without named fields
    std::optional<SettingLimits> limits{};
    std::span<const SettingChoice> choices{};
    std::span<const FieldDeclaration> fields{}; ///< where they are not those of the kind
};

// Limits.
inline constexpr SettingLimits kThousandSteps{.least = 1, .most = 1000, .scale = LimitScale::steps};
inline constexpr SettingLimits kSheetSide{.least = 1, .most = 100000000, .scale = LimitScale::shown};
inline constexpr SettingLimits kLineWidth{.least = 1, .most = 10};
inline constexpr SettingLimits kAboveZero{.least = 0, .above = true};

// Choices.
inline constexpr auto kOffOn = std::to_array<SettingChoice>({{"0", "Off"}, {"1", "On"}});
inline constexpr auto kUnits = std::to_array<SettingChoice>(
    {{"in", "Inches"}, {"mm", "Millimeters"}, {"cm", "Centimeters"}, {"th", "Thousandths of an inch"}});
inline constexpr auto kLanguages =
    std::to_array<SettingChoice>({{"Default", "Default"}, {"ENG", "English"}, {"JPN", "Japanese"}});
inline constexpr auto kCrosshairs =
    std::to_array<SettingChoice>({{"0", "None"}, {"1", "Small"}, {"2", "Full Extent"}});
inline constexpr auto kRouteModes =
    std::to_array<SettingChoice>({{"0", "Straight"}, {"1", "Orthogonal"}, {"2", "Avoidance"}});
inline constexpr auto kSplitAttributes = std::to_array<SettingChoice>({
    {"0", "Top or Left Segment"},
    {"1", "Bottom or Right Segment"},
    {"2", "Both Segments"},
    {"3", "None"},
});
inline constexpr auto kSplitLabels = std::to_array<SettingChoice>({
    {"0", "Dangling, solder, or corner joint"},
    {"1", "Top or Left Segment"},
    {"2", "Bottom or Right Segment"},
    {"3", "None"},
});
inline constexpr auto kOrientations = std::to_array<SettingChoice>({{"0", "Landscape"}, {"1", "Portrait"}});
inline constexpr auto kSheetSizes = std::to_array<SettingChoice>({
    {"0", "A"},
    {"1", "B"},
    {"2", "C"},
    {"3", "D"},
    {"4", "E"},
    {"5", "A4"},
    {"6", "A3"},
    {"7", "A2"},
    {"8", "A1"},
    {"9", "A0"},
    {"10", "Custom"},
});
inline constexpr auto kTextOrigins = std::to_array<SettingChoice>({
    {"0", "None"},
    {"1", "Upper left"},
    {"2", "Middle left"},
    {"3", "Lower left"},
    {"4", "Upper center"},
    {"5", "Middle center"},
    {"6", "Lower center"},
    {"7", "Upper right"},
    {"8", "Middle right"},
    {"9", "Lower right"},
});
inline constexpr auto kFillStyles = std::to_array<SettingChoice>({
    {"0", "Hollow"},
    {"1", "Solid"},
    {"2", "Diagdn1"},
    {"3", "Diagup2"},
    {"4", "Grey08"},
    {"5", "Diagdn2"},
    {"6", "Diagup1"},
    {"7", "Horiz"},
    {"8", "Vert"},
    {"9", "Grid2"},
    {"10", "Grid1"},
    {"11", "X2"},
    {"12", "X1"},
    {"13", "Grey50"},
    {"14", "Grey92"},
    {"15", "Grey04"},
});
inline constexpr auto kLineStyles = std::to_array<SettingChoice>({
    {"0", "Solid"},
    {"1", "Dash"},
    {"2", "Center"},
    {"3", "Phantom"},
    {"4", "Big dash"},
    {"5", "Dot"},
    {"6", "Dash-Dot"},
    {"7", "Medium Dash"},
});
inline constexpr auto kStrokeFonts = std::to_array<SettingChoice>({
    {"0", "Fixed"},
    {"1", "Roman"},
    {"2", "Roman Italic"},
    {"3", "Roman Bold"},
    {"4", "Roman Bold Italic"},
    {"5", "Sans Serif"},
    {"6", "Script"},
    {"7", "Sans Serif Bold"},
    {"8", "Script Bold"},
    {"9", "Gothic"},
    {"10", "Old English"},
    {"11", "Kanji"},
    {"12", "Plot"},
});

// The fields of the kinds that name them, in order.
inline constexpr FieldDeclaration kColorField{
    .name = "COLOR", .caption = "Color", .meaning = "The color that it is drawn in."};
inline constexpr FieldDeclaration kFillField{.name = "FILL_STYLE",
                                             .caption = "Fill Style",
                                             .meaning = "The pattern that it is filled with.",
                                             .choices = kFillStyles};
inline constexpr FieldDeclaration kLineField{.name = "LINE_STYLE",
                                             .caption = "Line Style",
                                             .meaning = "The style of its lines.",
                                             .choices = kLineStyles};
inline constexpr std::array kObjectFields{
    FieldDeclaration{
        .name = "VISIBLE", .caption = "Visible", .meaning = "Whether it is shown.", .choices = kOffOn},
    FieldDeclaration{.name = "SELECTABLE",
                     .caption = "Selectable",
                     .meaning = "Whether it can be selected.",
                     .choices = kOffOn},
    kColorField,
    kFillField,
    kLineField,
    FieldDeclaration{.name = "LINE_THICKNESS", .caption = "Width", .meaning = "The thickness of its lines."},
};
inline constexpr std::array kLayerFields{kColorField, kFillField, kLineField};
inline constexpr std::array kIctFields{
    kColorField,
    FieldDeclaration{.name = "TEXTCOLOR", .caption = "Text", .meaning = "The color of its text."},
};
inline constexpr std::array kSizeFields{
    FieldDeclaration{.name = "WIDTH",
                     .caption = "Width",
                     .meaning = "The width of the sheet in landscape orientation.",
                     .unit = SettingUnit::length},
    FieldDeclaration{.name = "HEIGHT",
                     .caption = "Height",
                     .meaning = "The height of the sheet in landscape orientation.",
                     .unit = SettingUnit::length},
};
inline constexpr std::array kFontFields{
    FieldDeclaration{
        .name = "FACE",
        .caption = "Scaleable font",
        .meaning =
            "The face of the screen font; 0 stands for no mapping, and Remove mapping leaves it empty."},
    FieldDeclaration{
        .name = "STYLE", .caption = "Style", .meaning = "The name of the font's style, NONE if it has none."},
    FieldDeclaration{.name = "WEIGHT", .caption = "Weight", .meaning = "The weight of the font."},
    FieldDeclaration{.name = "CHARSET", .caption = "Character set", .meaning = "The font's character set."},
    FieldDeclaration{
        .name = "ITALIC", .caption = "Italic", .meaning = "Whether the font is italic.", .choices = kOffOn},
    FieldDeclaration{.name = "UNDERLINE",
                     .caption = "Underline",
                     .meaning = "Whether the font is underlined.",
                     .choices = kOffOn},
    FieldDeclaration{.name = "STRIKEOUT",
                     .caption = "Strikeout",
                     .meaning = "Whether the font is struck out.",
                     .choices = kOffOn},
    FieldDeclaration{
        .name = "BOLD", .caption = "Bold", .meaning = "Whether the font is bold.", .choices = kOffOn},
};

/// The fields of a kind; none for kinds without named fields.
constexpr std::span<const FieldDeclaration> fieldsOfKind(int kind) {
    switch (kind) {
    case KindLayer:
        return kLayerFields;
    case KindObject:
        return kObjectFields;
    case KindSize:
        return kSizeFields;
    case KindFont:
        return kFontFields;
    case KindIctObject:
        return kIctFields;
    default:
        return {};
    }
}

// The fields of single rows.
/// A kind's fields with some of them declared otherwise.
template <std::size_t Count>
consteval auto differing(std::array<FieldDeclaration, Count> fields,
                         std::initializer_list<FieldDeclaration> others) {
    for (const FieldDeclaration& other : others) {
        const auto field = std::ranges::find(fields, other.name, &FieldDeclaration::name);
        *field = other; // no constant if there is no such field
    }
    return fields;
}

inline constexpr auto kStrokeFields = differing(kObjectFields, {{.name = "LINE_THICKNESS",
                                                                 .caption = "Width",
                                                                 .meaning = "The thickness of its lines.",
                                                                 .limits = kLineWidth}});
// The editor reads the font of a text in both fields.
inline constexpr FieldDeclaration kFontInFill{.name = "FILL_STYLE",
                                              .caption = "Font",
                                              .meaning = "The stroke font; LINE_STYLE holds the same.",
                                              .choices = kStrokeFonts};
inline constexpr FieldDeclaration kFontInLine{.name = "LINE_STYLE",
                                              .caption = "Font",
                                              .meaning = "The stroke font; FILL_STYLE holds the same.",
                                              .choices = kStrokeFonts};
inline constexpr FieldDeclaration kTextColorField{
    .name = "COLOR", .caption = "Text", .meaning = "The color of the text."};
inline constexpr auto kAttributeFields =
    differing(kObjectFields, {{.name = "VISIBLE",
                               .caption = "Common Properties",
                               .meaning = "Whether properties are shown.",
                               .choices = kOffOn},
                              kFontInFill,
                              kFontInLine});
inline constexpr auto kNameFields = differing(
    kObjectFields,
    {{.name = "VISIBLE", .caption = "Name", .meaning = "Whether names are shown.", .choices = kOffOn},
     kTextColorField,
     kFontInFill,
     kFontInLine});
inline constexpr auto kTextFields = differing(kObjectFields, {{.name = "VISIBLE",
                                                               .caption = "Graphical Text",
                                                               .meaning = "Whether graphical text is shown.",
                                                               .choices = kOffOn},
                                                              kTextColorField,
                                                              kFontInFill,
                                                              kFontInLine});
inline constexpr auto kCustomSizeFields = differing(kSizeFields, {{.name = "WIDTH",
                                                                   .caption = "Width",
                                                                   .meaning = "The width of the sheet.",
                                                                   .unit = SettingUnit::length,
                                                                   .limits = kSheetSide},
                                                                  {.name = "HEIGHT",
                                                                   .caption = "Height",
                                                                   .meaning = "The height of the sheet.",
                                                                   .unit = SettingUnit::length,
                                                                   .limits = kSheetSide}});

} // namespace Orv
