#include "dialog/pages/display/displaydialog.h"

#include "dialog/shell/internalpages.h"
#include "platform/trim.h"
#include "store/appcfg.h"
#include "ui_displaydialog.h"

#include <QtWidgets/QStyle>

namespace ovsettings {

namespace {

constexpr std::string_view kSeparator = " ,";

QCheckBox& boxOf(const KeyedControl& keyed) {
    return static_cast<QCheckBox&>(*keyed.control);
}

} // namespace

CDisplayDialog::CDisplayDialog(QWidget* parent) : CFormPage(parent, internalPage("Display")) {
}

CDisplayDialog::~CDisplayDialog() = default;

bool CDisplayDialog::buildTemplate() {
    CFormPage::buildTemplate();
    boxes_ = keyedControls(*this, row().writes);
    // The boxes below another begin where its text does.
    const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    ui_->numbersLayout->setContentsMargins(isRightToLeft() ? 0 : indent, 0, isRightToLeft() ? indent : 0, 0);
    connect(ui_->commonProperties, &QCheckBox::toggled, this, &CDisplayDialog::enableNumbers);
    return true;
}

bool CDisplayDialog::OnInitDialog() {
    if (!appConfig_)
        return false;
    CPropDialogTemplateEx::OnInitDialog();
    fill();
    keep();
    return true;
}

/// The two boxes below Common Properties show what is stored for them while they are disabled, too.
void CDisplayDialog::fill() {
    for (const KeyedControl& keyed : boxes_) {
        std::vector<std::string> values;
        Orv::getValues(*appConfig_, keyed.setting.key, values);
        if (values.empty()) // a configuration that holds nothing
            return;
        boxOf(keyed).setChecked(values[keyed.setting.field.value_or(0)] != "0");
    }
    enableNumbers(ui_->commonProperties->isChecked());
    std::vector<std::string> properties;
    Orv::getValues(*appConfig_, "PROPERTIES_TOOLTIP", properties);
    tooltipProperties_ = joinProperties(properties);
}

bool CDisplayDialog::onApply() {
    if (!appConfig_) // opened without a configuration: there is nothing to store
        return true;
    const bool common = ui_->commonProperties->isChecked();
    for (const KeyedControl& keyed : boxes_) {
        const bool isNumber = keyed.control == ui_->pinNumbers || keyed.control == ui_->referenceDesignators;
        const char* text = Orv::flagText(boxOf(keyed).isChecked() && (common || !isNumber));
        if (keyed.setting.field)
            Orv::setValueAt(*appConfig_, *keyed.setting.field, keyed.setting.key, text);
        else
            Orv::setValue(*appConfig_, keyed.setting.key, text);
    }
    keep();
    return true;
}

bool CDisplayDialog::hasUnsavedEdits() const {
    return appConfig_ && marks() != kept_;
}

DroppedEdits CDisplayDialog::followConfiguration() {
    DroppedEdits dropped;
    if (kept_.empty() || readAll() == stored_)
        return dropped;
    const std::vector<bool> shown = marks();
    const std::vector<bool> before = kept_;
    fill();
    keep();
    for (std::size_t at = 0; at < shown.size(); ++at) {
        if (shown[at] == before[at])
            continue;
        if (stored_[at].locked)
            dropped.push_back({boxes_[at].setting.key, 0});
        else
            boxOf(boxes_[at]).setChecked(shown[at]);
    }
    return dropped;
}

std::vector<CDisplayDialog::Stored> CDisplayDialog::readAll() const {
    std::vector<Stored> all;
    for (const KeyedControl& keyed : boxes_) {
        Stored& stored = all.emplace_back();
        Orv::getValue(*appConfig_, keyed.setting.key, stored.text, stored.locked);
    }
    return all;
}

void CDisplayDialog::keep() {
    kept_ = marks();
    stored_ = readAll();
}

std::vector<bool> CDisplayDialog::marks() const {
    std::vector<bool> marks;
    for (const KeyedControl& keyed : boxes_)
        marks.push_back(boxOf(keyed).isChecked());
    return marks;
}

void CDisplayDialog::enableNumbers(bool enabled) {
    ui_->referenceDesignators->setEnabled(enabled);
    ui_->pinNumbers->setEnabled(enabled);
}

std::string CDisplayDialog::joinProperties(const std::vector<std::string>& properties) {
    std::string text;
    for (const std::string& property : properties) {
        if (&property != &properties.front())
            text += kSeparator;
        text += property;
    }
    return text;
}

std::vector<std::string> CDisplayDialog::splitProperties(std::string_view text) {
    std::vector<std::string> properties;
    const auto add = [&properties](std::string_view piece) {
        if (!piece.empty())
            properties.emplace_back(piece);
    };
    for (std::size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',')) {
        add(platform::trim(text.substr(0, comma), " "));
        text.remove_prefix(comma + 1);
    }
    add(text);
    return properties;
}

} // namespace ovsettings
