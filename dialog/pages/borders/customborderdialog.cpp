#include "dialog/pages/borders/customborderdialog.h"

#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/numbertext.h"
#include "dialog/widgets/stringconversion.h"
#include "dialog/widgets/wheelguard.h"
#include "store/unitglue.h"
#include "ui_customborderdialog.h"

#include <cmath>

namespace ovsettings {

namespace {

/// 20 metres, as a stored length. Whatever takes more for a sheet has misread a decimal point.
constexpr long kLongestSide = 2'000'000'000;

/// The longest side as the unit shows it.
double longestSide(Orv::Metrics::Unit unit) {
    const double steps = std::pow(10.0, Orv::Metrics::UnitTraits(unit).Precision());
    return std::floor(Orv::toDisplay(kLongestSide, unit) * steps + 0.001) / steps;
}

} // namespace

CCustomBorderDialog::CCustomBorderDialog(Orv::Metrics::Unit unit, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::CCustomBorderDialog>()) {
    ui_->setupUi(this);
    installWheelGuard(*this);
    const Orv::Metrics::UnitTraits traits(unit);
    for (CDecimalSpinCtrl* side : {ui_->width, ui_->height}) {
        const double step = Orv::lengthStep(unit);
        side->setRange(step, longestSide(unit), step);
        side->setDecimals(traits.Precision());
    }
    for (QLabel* label : {ui_->widthUnit, ui_->heightUnit})
        label->setText(toQString(traits.Abbreviation()));
    connect(ui_->okButton, &QPushButton::clicked, this, &CCustomBorderDialog::accept);
    connect(ui_->cancelButton, &QPushButton::clicked, this, &CCustomBorderDialog::reject);
}

CCustomBorderDialog::~CCustomBorderDialog() = default;

int CCustomBorderDialog::DoModal() {
    return exec();
}

void CCustomBorderDialog::accept() {
    const auto width = lengthIn(*ui_->width, tr("Width should be a number between %1 and %2"));
    if (!width)
        return;
    const auto height = lengthIn(*ui_->height, tr("Height should be a number between %1 and %2"));
    if (!height)
        return;
    width_ = *width;
    height_ = *height;
    QDialog::accept();
}

/// Unlike the lengths of a page this one makes a name that stays, so a number with something behind it is
/// none.
std::optional<double> CCustomBorderDialog::lengthIn(CDecimalSpinCtrl& field, const QString& refusal) {
    double least = 0, most = 0, step = 0;
    field.getRange(least, most, step);
    bool isNumber = false;
    const double length =
        field.text().trimmed().replace(localeDecimalPoint(), QLatin1Char('.')).toDouble(&isNumber);
    if (isNumber && length >= least && length <= most)
        return length;
    refuseEntry(field, refusal.arg(field.formatted(least, field.getDecimals()),
                                   field.formatted(most, field.getDecimals())));
    return std::nullopt;
}

} // namespace ovsettings
