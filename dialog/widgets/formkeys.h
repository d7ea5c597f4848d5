#pragma once

#include <cstddef>
#include <optional>
#include <span>
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

/// A setting, or one of its fields.
struct SettingField {
    std::string key;
    std::optional<std::size_t> field{}; ///< index from 0; nothing for a setting as a whole

    bool operator==(const SettingField&) const = default;
};

/// What a text "KEY" or "KEY.FIELD" names. A field that the key does not have counts as none.
SettingField settingField(const std::string& name);

/// A control that stands for a key.
struct KeyedControl {
    QWidget* control;
    SettingField setting;
};

/// The controls of a form that stand for keys. Several may stand for one key.
/// @param order of the keys; what it does not name comes behind, in the form's order.
std::vector<KeyedControl> keyedControls(const QWidget& form, std::span<const char* const> order = {});

} // namespace ovsettings
