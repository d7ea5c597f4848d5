#include "details/widgets/bindings.h"

#include "details/appcfg/appcfg.h"
#include "details/appcfg/unitglue.h"
#include "details/widgets/decimalspinctrl.h"
#include "details/widgets/lockmark.h"
#include "details/widgets/radiobutton.h"
#include "details/widgets/stringconversion.h"
#include "orv/appconfiguration.h"

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

} // namespace

CBinding::CBinding(std::string key) : key_(std::move(key)) {
}

void CBinding::show(const Orv::iAppConfiguration& appConfig) {
    std::string text;
    locked_ = false;
    Orv::getValue(appConfig, key_, text, locked_);
    showText(appConfig, text);
    unchanged_ = this->text();
    if (locked_)
        showLock(appConfig);
}

void CBinding::store(Orv::iAppConfiguration& appConfig) {
    const std::optional<std::string> value = text();
    if (!value)
        return;
    Orv::setValue(appConfig, key_, *value);
    // What was written, not what a read gives back: the store rounds numbers to six digits.
    unchanged_ = value;
}

bool CBinding::isModified() const {
    const std::optional<std::string> value = text();
    return !locked_ && value && value != unchanged_;
}

CFlagBinding::CFlagBinding(std::string key, QCheckBox& box) : CBinding(std::move(key)), box_(box) {
}

void CFlagBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    box_.setChecked(text == "1");
}

void CFlagBinding::showLock(const Orv::iAppConfiguration& appConfig) {
    markLocked(box_, appConfig, key());
}

std::optional<std::string> CFlagBinding::text() const {
    return flagText(box_.isChecked());
}

CChoiceBinding::CChoiceBinding(std::string key, QGroupBox& group, std::vector<ChoiceButton> buttons,
                               std::size_t other, NoneChecked noneChecked)
    : CBinding(std::move(key)),
      group_(group),
      buttons_(std::move(buttons)),
      other_(other),
      noneChecked_(noneChecked) {
}

void CChoiceBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    const auto found = std::ranges::find(buttons_, value, &ChoiceButton::value);
    checkRadioButton(*(found != buttons_.end() ? *found : buttons_.at(other_)).button);
}

void CChoiceBinding::showLock(const Orv::iAppConfiguration& appConfig) {
    markLocked(group_, appConfig, key());
}

std::optional<std::string> CChoiceBinding::text() const {
    for (const ChoiceButton& choice : buttons_) {
        if (choice.button->isChecked())
            return std::to_string(choice.value);
    }
    if (noneChecked_ == NoneChecked::nothing)
        return std::nullopt;
    return std::to_string(buttons_.at(other_).value);
}

CIndexBinding::CIndexBinding(std::string key, QComboBox& list) : CBinding(std::move(key)), list_(list) {
}

void CIndexBinding::showText(const Orv::iAppConfiguration&, const std::string& text) {
    const long index = std::strtol(text.c_str(), nullptr, 10);
    list_.setCurrentIndex(index >= 0 && index < list_.count() ? static_cast<int>(index) : -1);
}

void CIndexBinding::showLock(const Orv::iAppConfiguration& appConfig) {
    markLocked(list_, appConfig, key());
}

std::optional<std::string> CIndexBinding::text() const {
    return std::to_string(list_.currentIndex());
}

CLengthBinding::CLengthBinding(std::string key, CDecimalSpinCtrl& control, QLabel& unitLabel)
    : CBinding(std::move(key)), control_(control), unitLabel_(unitLabel) {
    setUnit(unit_);
}

void CLengthBinding::followUnit(const Orv::iAppConfiguration& appConfig) {
    const Orv::Metrics::Unit configured = Orv::getConfiguredUnit(appConfig);
    if (configured != unit_)
        render(length(), configured);
}

void CLengthBinding::showText(const Orv::iAppConfiguration& appConfig, const std::string& text) {
    render(Orv::lengthFromText(text), Orv::getConfiguredUnit(appConfig));
}

void CLengthBinding::showLock(const Orv::iAppConfiguration& appConfig) {
    markLocked(control_, appConfig, key());
    markLocked(unitLabel_, appConfig, key());
}

std::optional<std::string> CLengthBinding::text() const {
    return Orv::lengthToText(length());
}

void CLengthBinding::setUnit(Orv::Metrics::Unit unit) {
    const Orv::Metrics::UnitTraits traits(unit);
    const double step = Orv::lengthStep(unit);
    control_.setRange(step, kStepsInRange * step, step);
    control_.setDecimals(traits.Precision());
    unitLabel_.setText(toQString(traits.Abbreviation()));
    control_.setAccessibleDescription(toQString(traits.FullName()));
    unit_ = unit;
}

void CLengthBinding::render(long length, Orv::Metrics::Unit unit) {
    setUnit(unit);
    control_.setValue(Orv::toDisplay(length, unit));
    rendered_ = length;
}

/// A text that the user left alone stands for the length it was made from, not for its own few decimals:
/// otherwise looking at an eighth of an inch would store twelve hundredths.
long CLengthBinding::length() const {
    return control_.isEdited() ? Orv::fromDisplay(control_.getValue(), unit_) : rendered_;
}

void CBindings::show(const Orv::iAppConfiguration& appConfig) {
    for (const auto& binding : bindings_)
        binding->show(appConfig);
}

void CBindings::store(Orv::iAppConfiguration& appConfig) {
    for (const auto& binding : bindings_)
        binding->store(appConfig);
}

bool CBindings::isModified() const {
    return std::ranges::any_of(bindings_, [](const auto& binding) { return binding->isModified(); });
}

} // namespace ovsettings
