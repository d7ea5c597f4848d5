#pragma once

#include <cstddef>
#include <string>
#include <vector>

class QWidget;

namespace ovsettings {

// The properties of a control in a form. They are no texts, so the form says `notr` of them.
/// The key that the control stands for, "KEY" or, of a group of fields, "KEY.FIELD".
inline constexpr const char* kKeyProperty = "settingKey";
/// Of a label: the key whose unit it shows.
inline constexpr const char* kUnitProperty = "settingUnit";
/// Of a radio button: the number that it is stored as.
inline constexpr const char* kValueProperty = "settingValue";
/// Of a group of radio buttons: the number of the button that shows each number that no button has.
inline constexpr const char* kOtherProperty = "settingOther";
/// Of a group of radio buttons: true if that number is stored while no button is checked, and not nothing.
inline constexpr const char* kStoresOtherProperty = "settingStoresOther";

/// A field of a setting.
struct SettingField {
    std::string key;
    std::size_t field = 0; ///< index from 0; 0 too for what has no fields

    bool operator==(const SettingField&) const = default;
};

/// What a text "KEY" or "KEY.FIELD" names. A field that the key does not have counts as the first one.
SettingField settingField(const std::string& name);

/// A control that stands for a key.
struct KeyedControl {
    QWidget* control;
    SettingField setting;
};

/// The controls of a form that stand for keys, in the form's order. Several may stand for one key.
std::vector<KeyedControl> keyedControls(const QWidget& form);

} // namespace ovsettings
