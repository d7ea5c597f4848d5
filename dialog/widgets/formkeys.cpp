#include "dialog/widgets/formkeys.h"

#include "dialog/widgets/stringconversion.h"
#include "orv/appconfiguration.h"

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace ovsettings {

SettingField settingField(const std::string& name) {
    const auto point = name.find('.');
    SettingField setting{name.substr(0, point)};
    if (point == std::string::npos)
        return setting;
    const std::vector<std::string> fields =
        Orv::iAppConfiguration::fieldNames(Orv::iAppConfiguration::kindOf(setting.key));
    const auto field = std::ranges::find(fields, name.substr(point + 1));
    if (field != fields.end())
        setting.field = static_cast<std::size_t>(field - fields.begin());
    return setting;
}

std::vector<KeyedControl> keyedControls(const QWidget& form, std::span<const char* const> order) {
    std::vector<KeyedControl> controls;
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const QVariant name = control->property(kKeyProperty);
        if (name.isValid())
            controls.push_back({control, settingField(toUtf8(name.toString()))});
    }
    std::ranges::stable_sort(controls, {}, [order](const KeyedControl& keyed) {
        return std::ranges::find(order, keyed.setting.key) - order.begin();
    });
    return controls;
}

} // namespace ovsettings
