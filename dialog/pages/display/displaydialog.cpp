#include "dialog/pages/display/displaydialog.h"

#include "dialog/shell/internalpages.h"
#include "platform/trim.h"
#include "store/appcfg.h"
#include "ui_displaydialog.h"

#include <QtWidgets/QStyle>

#include <span>

namespace ovsettings {

namespace {

constexpr std::size_t kVisible = 0; ///< the field of an object that says whether it is shown
constexpr std::string_view kSeparator = " ,";

struct FlagBox {
    QCheckBox* Ui::CDisplayDialog::*box;
    const char* key; ///< its first field
};

// In the order in which they are stored; those of tool tips are the last.
constexpr FlagBox kBoxes[] = {
    {&Ui::CDisplayDialog::commonProperties, "ATTRIBUTE"},
    {&Ui::CDisplayDialog::pinNumbers, "PNUMSON"},
    {&Ui::CDisplayDialog::referenceDesignators, "RNUMSON"},
    {&Ui::CDisplayDialog::names, "LABEL"},
    {&Ui::CDisplayDialog::symbolText, "COMPTEXTON"},
    {&Ui::CDisplayDialog::graphicalText, "TEXT"},
    {&Ui::CDisplayDialog::border, "BORDERON"},
    {&Ui::CDisplayDialog::netTooltips, "NET_TOOLTIPS"},
    {&Ui::CDisplayDialog::pinTooltips, "PIN_TOOLTIPS"},
    {&Ui::CDisplayDialog::componentTooltips, "COMPONENT_TOOLTIPS"},
};
constexpr auto kTooltips = std::span(kBoxes).last<3>();

void showText(QCheckBox& box, const std::string& text) {
    box.setChecked(text != "0");
}

void showFlag(QCheckBox& box, const Orv::iAppConfiguration& appConfig, const std::string& key) {
    std::string text;
    Orv::getValue(appConfig, key, text);
    showText(box, text);
}

const char* textOf(const QCheckBox& box) {
    return Orv::flagText(box.isChecked());
}

} // namespace

CDisplayDialog::CDisplayDialog(QWidget* parent) : CFormPage(parent, internalPage("Display")) {
}

CDisplayDialog::~CDisplayDialog() = default;

bool CDisplayDialog::buildTemplate() {
    CFormPage::buildTemplate();
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

void CDisplayDialog::fill() {
    std::vector<std::string> attribute;
    Orv::getValues(*appConfig_, "ATTRIBUTE", attribute);
    if (attribute.empty())
        return;
    if (attribute[kVisible] == "0") {
        ui_->commonProperties->setChecked(false);
        ui_->pinNumbers->setChecked(false);
        ui_->referenceDesignators->setChecked(false);
        enableNumbers(false);
    } else {
        ui_->commonProperties->setChecked(true);
        showFlag(*ui_->pinNumbers, *appConfig_, "PNUMSON");
        showFlag(*ui_->referenceDesignators, *appConfig_, "RNUMSON");
    }

    std::vector<std::string> label;
    Orv::getValues(*appConfig_, "LABEL", label);
    if (label.empty())
        return;
    showText(*ui_->names, label[kVisible]);
    showFlag(*ui_->symbolText, *appConfig_, "COMPTEXTON");
    // Again, after the box that they depend on: so the user sees what is stored for them while they are
    // disabled.
    showFlag(*ui_->pinNumbers, *appConfig_, "PNUMSON");
    showFlag(*ui_->referenceDesignators, *appConfig_, "RNUMSON");

    std::vector<std::string> text;
    Orv::getValues(*appConfig_, "TEXT", text);
    if (text.empty())
        return;
    showText(*ui_->graphicalText, text[kVisible]);
    showFlag(*ui_->border, *appConfig_, "BORDERON");
    for (const FlagBox& tooltip : kTooltips)
        showFlag(*(*ui_.*tooltip.box), *appConfig_, tooltip.key);

    std::vector<std::string> properties;
    Orv::getValues(*appConfig_, "PROPERTIES_TOOLTIP", properties);
    tooltipProperties_ = joinProperties(properties);
}

bool CDisplayDialog::onApply() {
    if (!appConfig_) // opened without a configuration: there is nothing to store
        return true;
    const bool common = ui_->commonProperties->isChecked();
    Orv::setValueAt(*appConfig_, kVisible, "ATTRIBUTE", Orv::flagText(common));
    Orv::setValue(*appConfig_, "PNUMSON", common ? textOf(*ui_->pinNumbers) : "0");
    Orv::setValue(*appConfig_, "RNUMSON", common ? textOf(*ui_->referenceDesignators) : "0");
    Orv::setValueAt(*appConfig_, kVisible, "LABEL", textOf(*ui_->names));
    Orv::setValue(*appConfig_, "COMPTEXTON", textOf(*ui_->symbolText));
    Orv::setValueAt(*appConfig_, kVisible, "TEXT", textOf(*ui_->graphicalText));
    Orv::setValue(*appConfig_, "BORDERON", textOf(*ui_->border));
    for (const FlagBox& tooltip : kTooltips)
        Orv::setValue(*appConfig_, tooltip.key, textOf(*(*ui_.*tooltip.box)));
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
            dropped.push_back({kBoxes[at].key, 0});
        else
            (*ui_.*kBoxes[at].box)->setChecked(shown[at]);
    }
    return dropped;
}

std::vector<CDisplayDialog::Stored> CDisplayDialog::readAll() const {
    std::vector<Stored> all;
    for (const FlagBox& box : kBoxes) {
        Stored& stored = all.emplace_back();
        Orv::getValue(*appConfig_, box.key, stored.text, stored.locked);
    }
    return all;
}

void CDisplayDialog::keep() {
    kept_ = marks();
    stored_ = readAll();
}

std::vector<bool> CDisplayDialog::marks() const {
    std::vector<bool> marks;
    for (const FlagBox& box : kBoxes)
        marks.push_back((*ui_.*box.box)->isChecked());
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
