#include "dialog/pages/editor/newobjectdialog.h"

#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "ui_newobjectdialog.h"

namespace ovsettings {

namespace {

constexpr unsigned kTemplate = 136;

/// A text's origin is stored as its index in this list.
constexpr const char* kOrigins[] = {
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "None"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Upper left"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Middle left"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Lower left"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Upper center"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Middle center"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Lower center"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Upper right"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Middle right"),
    QT_TRANSLATE_NOOP("ovsettings::CNewObjectDialog", "Lower right"),
};

} // namespace

CNewObjectDialog::CNewObjectDialog(QWidget* parent)
    : Page(parent, kTemplate, "New Object", "OV_SETUP_SETTINGS_SCH_ED_NEW_OBJECTS"),
      ui_(std::make_unique<Ui::CNewObjectDialog>()) {
}

CNewObjectDialog::~CNewObjectDialog() = default;

bool CNewObjectDialog::buildTemplate() {
    ui_->setupUi(this);
    return true;
}

bool CNewObjectDialog::OnInitDialog() {
    for (const char* origin : kOrigins)
        ui_->textOrigin->addItem(tr(origin));
    bindings_.add<IndexBinding>("TEXTORIGIN", *ui_->textOrigin);
    size_ = &bindings_.add<LengthBinding>("TEXTSIZE_HR", *ui_->textSize, *ui_->textSizeUnit);
    if (!appConfig_)
        return false;
    bindings_.show(*appConfig_);
    return true;
}

bool CNewObjectDialog::onApply() {
    if (!appConfig_)
        return false;
    bindings_.store(*appConfig_);
    return true;
}

bool CNewObjectDialog::onEnter() {
    if (appConfig_ && size_)
        size_->followUnit(*appConfig_);
    return true;
}

bool CNewObjectDialog::onLeave() {
    return checkSize();
}

bool CNewObjectDialog::isValid() {
    return checkSize();
}

bool CNewObjectDialog::isModified() const {
    return appConfig_ && bindings_.isModified();
}

DroppedEdits CNewObjectDialog::followConfiguration() {
    if (!appConfig_ || !size_)
        return {};
    size_->followUnit(*appConfig_);
    return bindings_.follow(*appConfig_);
}

/// A stored size may be finer or coarser than the unit in use lets one type. It is refused only when it is
/// typed in.
bool CNewObjectDialog::checkSize() {
    if (!size_)
        return true;
    CDecimalSpinCtrl& control = size_->control();
    if (!control.isEdited() || control.isInRange() || !isUsersToMend(control))
        return true;

    double minimum = 0, maximum = 0, step = 0;
    control.getRange(minimum, maximum, step);
    refuseEntry(control, tr("Default Text Size value should be between %1 and %2")
                             .arg(control.formatted(minimum, control.getDecimals()),
                                  control.formatted(maximum, control.getDecimals())));
    return false;
}

} // namespace ovsettings
