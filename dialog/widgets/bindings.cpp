#include "dialog/widgets/bindings.h"

#include "dialog/widgets/decimalspinctrl.h"
#include "dialog/widgets/formkeys.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/radiobutton.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/unitglue.h"

#include <QtCore/QVariant>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>

#include <algorithm>
#include <cstdlib>

namespace ovsettings {

namespace {

constexpr double kStepsInRange = 1000;

/// The radio buttons of a group that carry a number, in the form's order.
std::vector<ChoiceButton> choiceButtons(const QGroupBox& group) {
    std::vector<ChoiceButton> buttons;
    for (QRadioButton* button : group.findChildren<QRadioButton*>()) {
        const QVariant value = button->property(kValueProperty);
        if (value.isValid())
            buttons.push_back({value.toInt(), button});
    }
    return buttons;
}

std::unique_ptr<Binding> choiceBinding(const std::string& key, QGroupBox& group) {
    std::vector<ChoiceButton> buttons = choiceButtons(group);
    const auto other =
        std::ranges::find(buttons, group.property(kOtherProperty).toInt(), &ChoiceButton::value);
    if (other == buttons.end())
        return nullptr;
    const auto index = static_cast<std::size_t>(other - buttons.begin());
    return std::make_unique<ChoiceBinding>(
        key, group, std::move(buttons), index,
        group.property(kStoresOtherProperty).toBool() ? NoneChecked::otherButton : NoneChecked::nothing);
}

std::unique_ptr<Binding> lengthBinding(const std::string& key, CDecimalSpinCtrl& control, QWidget& form) {
    for (QLabel* label : form.findChildren<QLabel*>()) {
        if (toUtf8(label->property(kUnitProperty).toString()) == key)
            return std::make_unique<LengthBinding>(key, control, *label);
    }
    return nullptr;
}

/// Null for a kind of control that is bound in no one way.
std::unique_ptr<Binding> bindingOf(const std::string& key, QWidget& control, QWidget& form) {
    if (auto* box = qobject_cast<QCheckBox*>(&control))
        return std::make_unique<FlagBinding>(key, *box);
    if (auto* group = qobject_cast<QGroupBox*>(&control))
        return choiceBinding(key, *group);
    if (auto* list = qobject_cast<QComboBox*>(&control))
        return std::make_unique<IndexBinding>(key, *list);
    if (auto* length = qobject_cast<CDecimalSpinCtrl*>(&control))
        return lengthBinding(key, *length, form);
    return nullptr;
}

} // namespace

Binding::Binding(std::string key) : key_(std::move(key)) {
}

Binding::Stored Binding::read(const Orv::iAppConfiguration& appConfig) const {
    Stored stored;
    Orv::getValue(appConfig, key_, stored.text, stored.locked);
    return stored;
}

void Binding::show(const Orv::iAppConfiguration& appConfig) {
    stored_ = read(appConfig);
    showText(appConfig, stored_.text);
    unchanged_ = text();
    if (!stored_.locked)
        return;
    for (QWidget* control : controls())
        markLocked(*control, appConfig, key_);
}

void Binding::store(Orv::iAppConfiguration& appConfig) {
    const std::optional<std::string> value = text();
    if (!value)
        return;
    Orv::setValue(appConfig, key_, *value);
    // What was written, not what a read gives back: the store rounds numbers to six digits.
    unchanged_ = value;
    stored_ = read(appConfig);
}

bool Binding::follow(const Orv::iAppConfiguration& appConfig) {
    const Stored now = read(appConfig);
    if (now == stored_)
        return false;
    const bool edited = isModified();
    if (edited && !now.locked) {
        stored_ = now;
        unchanged_ = shownFor(now.text);
        return false;
    }
    if (stored_.locked) {
        for (QWidget* control : controls())
            unmarkLocked(*control);
    }
    show(appConfig);
    return edited;
}

bool Binding::isModified() const {
    const std::optional<std::string> value = text();
    return !stored_.locked && value && value != unchanged_;
}

FlagBinding::FlagBinding(std::string key, QCheckBox& box) : Binding(std::move(key)), box_(box) {
}

void FlagBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    box_.setChecked(text == "1");
}

std::vector<QWidget*> FlagBinding::controls() const {
    return {&box_};
}

std::string FlagBinding::shownFor(const std::string& text) const {
    return Orv::flagText(text == "1");
}

std::optional<std::string> FlagBinding::text() const {
    return Orv::flagText(box_.isChecked());
}

ChoiceBinding::ChoiceBinding(std::string key, QGroupBox& group, std::vector<ChoiceButton> buttons,
                             std::size_t other, NoneChecked noneChecked)
    : Binding(std::move(key)),
      group_(group),
      buttons_(std::move(buttons)),
      other_(other),
      noneChecked_(noneChecked) {
}

const ChoiceButton& ChoiceBinding::choiceFor(const std::string& text) const {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    const auto found = std::ranges::find(buttons_, value, &ChoiceButton::value);
    return found != buttons_.end() ? *found : buttons_.at(other_);
}

void ChoiceBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    checkRadioButton(*choiceFor(text).button);
}

std::vector<QWidget*> ChoiceBinding::controls() const {
    return {&group_};
}

std::string ChoiceBinding::shownFor(const std::string& text) const {
    return std::to_string(choiceFor(text).value);
}

std::optional<std::string> ChoiceBinding::text() const {
    for (const ChoiceButton& choice : buttons_) {
        if (choice.button->isChecked())
            return std::to_string(choice.value);
    }
    if (noneChecked_ == NoneChecked::nothing)
        return std::nullopt;
    return std::to_string(buttons_.at(other_).value);
}

IndexBinding::IndexBinding(std::string key, QComboBox& list) : Binding(std::move(key)), list_(list) {
}

int IndexBinding::indexFor(const std::string& text) const {
    const long index = std::strtol(text.c_str(), nullptr, 10);
    return index >= 0 && index < list_.count() ? static_cast<int>(index) : -1;
}

void IndexBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    list_.setCurrentIndex(indexFor(text));
}

std::vector<QWidget*> IndexBinding::controls() const {
    return {&list_};
}

std::string IndexBinding::shownFor(const std::string& text) const {
    return std::to_string(indexFor(text));
}

std::optional<std::string> IndexBinding::text() const {
    return std::to_string(list_.currentIndex());
}

LengthBinding::LengthBinding(std::string key, CDecimalSpinCtrl& control, QLabel& unitLabel)
    : Binding(std::move(key)), control_(control), unitLabel_(unitLabel) {
    setUnit(unit_);
}

void LengthBinding::followUnit(const Orv::iAppConfiguration& appConfig) {
    const Orv::Metrics::Unit configured = Orv::getConfiguredUnit(appConfig);
    if (configured != unit_)
        render(length(), configured);
}

void LengthBinding::showText(const Orv::iAppConfiguration& appConfig, const std::string& text) {
    render(Orv::lengthFromText(text), Orv::getConfiguredUnit(appConfig));
}

std::vector<QWidget*> LengthBinding::controls() const {
    return {&control_, &unitLabel_};
}

std::string LengthBinding::shownFor(const std::string& text) const {
    return Orv::lengthToText(Orv::lengthFromText(text));
}

std::optional<std::string> LengthBinding::text() const {
    return Orv::lengthToText(length());
}

void LengthBinding::setUnit(Orv::Metrics::Unit unit) {
    const Orv::Metrics::UnitTraits traits(unit);
    const double step = Orv::lengthStep(unit);
    control_.setRange(step, kStepsInRange * step, step);
    control_.setDecimals(traits.Precision());
    unitLabel_.setText(toQString(traits.Abbreviation()));
    control_.setAccessibleDescription(toQString(traits.FullName()));
    unit_ = unit;
}

void LengthBinding::render(long length, Orv::Metrics::Unit unit) {
    setUnit(unit);
    control_.setValue(Orv::toDisplay(length, unit));
    rendered_ = length;
}

/// A text that the user left alone stands for the length it was made from, not for its own few decimals:
/// otherwise looking at an eighth of an inch would store twelve hundredths.
long LengthBinding::length() const {
    return control_.isEdited() ? Orv::fromDisplay(control_.getValue(), unit_) : rendered_;
}

void Bindings::bind(QWidget& form, std::span<const char* const> order) {
    for (const KeyedControl& keyed : keyedControls(form, order)) {
        if (auto binding = bindingOf(keyed.setting.key, *keyed.control, form))
            bindings_.push_back(std::move(binding));
    }
}

void Bindings::show(const Orv::iAppConfiguration& appConfig) {
    for (const auto& binding : bindings_)
        binding->show(appConfig);
}

void Bindings::store(Orv::iAppConfiguration& appConfig) {
    for (const auto& binding : bindings_)
        binding->store(appConfig);
}

std::vector<Orv::RefreshResult::Field> Bindings::follow(const Orv::iAppConfiguration& appConfig) {
    std::vector<Orv::RefreshResult::Field> dropped;
    for (const auto& binding : bindings_) {
        if (binding->follow(appConfig))
            dropped.push_back({binding->key(), 0});
    }
    return dropped;
}

bool Bindings::isModified() const {
    return std::ranges::any_of(bindings_, [](const auto& binding) { return binding->isModified(); });
}

void Bindings::followUnit(const Orv::iAppConfiguration& appConfig) {
    for (const auto& binding : bindings_)
        binding->followUnit(appConfig);
}

std::vector<const LengthBinding*> Bindings::lengths() const {
    std::vector<const LengthBinding*> lengths;
    for (const auto& binding : bindings_) {
        if (const auto* length = dynamic_cast<const LengthBinding*>(binding.get()))
            lengths.push_back(length);
    }
    return lengths;
}

} // namespace ovsettings
