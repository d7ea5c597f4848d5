#include "dialog/widgets/settingtip.h"

#include "dialog/widgets/formkeys.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/stringconversion.h"
#include "orv/declaration.h"
#include "platform/plaintext.h"
#include "store/appcfg.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>
#include <QtGui/QHelpEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolTip>

#include <algorithm>

namespace ovsettings {

namespace {

/// A setting and the tool tip that stands there by itself.
struct Asked {
    std::optional<SettingField> setting{};
    QString ownTip{};
};

Asked askedOf(const GridWnd& grid, const QPoint& at) {
    const QModelIndex index = grid.indexAt(at);
    const GridCellStyle style = grid.cellStyle(index.row() + 1, index.column() + 1);
    return {style.setting, style.toolTip};
}

/// The control that a widget is, labels or stands in.
Asked askedOf(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const QWidget* control = label && label->buddy() ? label->buddy() : &widget;
    for (; control; control = control->parentWidget()) {
        if (const QVariant name = control->property(kKeyProperty); name.isValid())
            return {settingField(toUtf8(name.toString())), widget.toolTip()};
    }
    return {};
}

/// The field that is locked; of a setting as a whole the first one.
std::optional<std::size_t> lockedField(const Orv::iAppConfiguration& appConfig, const SettingField& setting) {
    std::vector<std::string> values;
    std::vector<bool> locks;
    Orv::getValues(appConfig, setting.key, values, locks);
    for (std::size_t field = 0; field < locks.size(); ++field) {
        if (locks[field] && setting.field.value_or(field) == field)
            return field;
    }
    return std::nullopt;
}

QString defaultInWords(const Orv::SettingDeclaration& setting, std::size_t index,
                       const Orv::FieldDeclaration& field, Orv::Metrics::Unit unit) {
    const std::vector<std::string> defaults = Orv::defaultsOf(setting);
    if (index >= defaults.size())
        return {};
    const std::string& text = defaults[index];
    const auto choice = std::ranges::find(field.choices, text, &Orv::SettingChoice::value);
    if (choice != field.choices.end())
        return toQString(std::string(choice->caption));
    if (setting.kind == Orv::iAppConfiguration::KindFlag)
        return text == "1" ? QCoreApplication::translate("ovsettings", "On")
                           : QCoreApplication::translate("ovsettings", "Off");
    return toQString(field.unit == Orv::SettingUnit::length ? Orv::lengthInWords(text, unit) : text);
}

} // namespace

QString settingTip(const Orv::iAppConfiguration& appConfig, const SettingField& setting) {
    const Orv::SettingDeclaration* declared = Orv::declarationOf(setting.key);
    if (!declared)
        return {};
    const std::size_t index = setting.field.value_or(0);
    const Orv::FieldDeclaration& field = declared->fields[std::min(index, declared->fields.size() - 1)];
    const Orv::Metrics::Unit unit = Orv::unitInUse(appConfig);
    QStringList lines{toQString(std::string(setting.field ? field.caption : declared->caption))};
    if (field.limits) {
        lines << QCoreApplication::translate("ovsettings", "Limits: %1")
                     .arg(toQString(Orv::limitsAsShown(field, unit)));
    }
    // Of several fields, each one has its own.
    const bool isOne = setting.field || declared->fields.front().name.empty();
    if (const QString text = defaultInWords(*declared, index, field, unit); isOne && !text.isEmpty())
        lines << QCoreApplication::translate("ovsettings", "Default: %1").arg(text);
    if (const auto locked = lockedField(appConfig, setting))
        lines << lockToolTip(appConfig, setting.key, *locked);
    return lines.join(QLatin1Char('\n'));
}

void watchSettingTips(QWidget& form) {
    for (const KeyedControl& keyed : keyedControls(form)) {
        for (QWidget* widget : lockedTogether(*keyed.control))
            widget->installEventFilter(&form);
    }
    for (const GridWnd* grid : form.findChildren<GridWnd*>())
        grid->viewport()->installEventFilter(&form);
}

bool showSettingTip(QWidget& asked, const QHelpEvent& event, const Orv::iAppConfiguration& appConfig) {
    const auto* grid = qobject_cast<const GridWnd*>(asked.parentWidget());
    const auto [setting, ownTip] = grid ? askedOf(*grid, event.pos()) : askedOf(asked);
    if (!setting || (!ownTip.isEmpty() && !lockedField(appConfig, *setting)))
        return false;
    const QString tip = settingTip(appConfig, *setting);
    if (!tip.isEmpty())
        QToolTip::showText(event.globalPos(), platform::toToolTip(tip), &asked);
    return !tip.isEmpty();
}

} // namespace ovsettings
