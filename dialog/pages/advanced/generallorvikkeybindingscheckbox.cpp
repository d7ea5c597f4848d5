#include "dialog/pages/advanced/generallorvikkeybindingscheckbox.h"

#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

namespace {

constexpr char kLorvikBindings[] = "lorvik_wvo.vbs";
constexpr char kOwnBindings[] = "pdbindings.vbs";

} // namespace

unsigned CGeneralLorvikKeyBindingsCheckBox::init(unsigned rowIndex) {
    CGeneralRowCheckBox::setDisplayValue("0");
    CGeneralRowCheckBox::setDisplayValue("1");
    select(checked_.substr(0, checked_.find('\n')));
    return CGeneralRowCheckBox::init(rowIndex);
}

void CGeneralLorvikKeyBindingsCheckBox::store(std::string& text) {
    text = valueText() == QLatin1String("1") ? kLorvikBindings : kOwnBindings;
}

void CGeneralLorvikKeyBindingsCheckBox::setDisplayValue(const std::string& text) {
    checked_ = text == kOwnBindings ? "0" : "1";
    checked_ += '\n';
}

} // namespace ovsettings
