#include "dialog/widgets/decimalspinctrl.h"

#include "dialog/widgets/numbertext.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <cmath>

namespace ovsettings {

namespace {

constexpr int kMostPositions = 32767;
constexpr double kRelativeTolerance = 1e-9;
constexpr double kLeastTolerance = 1e-9;
constexpr int kShownDigits = 10;

double tolerance(double value) {
    return std::max(std::abs(kRelativeTolerance * value), kLeastTolerance);
}

} // namespace

CDecimalSpinCtrl::CDecimalSpinCtrl(QWidget* parent)
    : QAbstractSpinBox(parent), decimalPoint_(localeDecimalPoint()) {
    setFocusPolicy(Qt::StrongFocus);
    // The text is the value, so the base class need not work one out at each key.
    setKeyboardTracking(false);
    // Whatever changes the text: assistive technology does so without a key.
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] { edited_ = true; });
    setRange(minimum_, maximum_, step_);
}

void CDecimalSpinCtrl::setRange(double minimum, double maximum, double step) {
    minimum_ = finite(minimum);
    maximum_ = finite(maximum);
    step_ = finite(step);
    if (step_ != 0.0) {
        const double count = std::abs((maximum_ - minimum_) / step_);
        positions_ = static_cast<int>(std::min<double>(count, kMostPositions));
    }
    reposition();
}

void CDecimalSpinCtrl::getRange(double& minimum, double& maximum, double& step) const {
    minimum = minimum_;
    maximum = maximum_;
    step = step_;
}

void CDecimalSpinCtrl::setDecimals(int decimals) {
    decimals_ = decimals;
}

void CDecimalSpinCtrl::setValue(double value) {
    writeText(finite(value));
    edited_ = false;
    reposition();
}

void CDecimalSpinCtrl::enterValue(double value) {
    setValue(value);
    edited_ = true;
}

double CDecimalSpinCtrl::getValue() const {
    return numberFromTyped(text(), decimalPoint_);
}

bool CDecimalSpinCtrl::isInRange() const {
    const double value = getValue();
    return value >= minimum_ && value <= maximum_;
}

void CDecimalSpinCtrl::disable() {
    setEnabled(false);
}

QString CDecimalSpinCtrl::formatted(double value, int decimals) const {
    return numberText(value, decimals, decimalPoint_);
}

/// A number below the resolution of the display is never shown as 0.
void CDecimalSpinCtrl::writeText(double value) {
    int decimals = decimals_;
    lineEdit()->setText(formatted(value, decimals));
    while (value != 0.0 && decimals < kMostDecimals && getValue() == 0.0)
        lineEdit()->setText(formatted(value, ++decimals));
}

void CDecimalSpinCtrl::reposition() {
    if (minimum_ == maximum_)
        return;
    const double value = getValue();
    if (value < minimum_) {
        position_ = 0;
    } else if (value > maximum_) {
        position_ = positions_;
    } else {
        // The wider type holds the difference of any two limits.
        const long double range = static_cast<long double>(maximum_) - minimum_;
        const long double fraction = (static_cast<long double>(value) - minimum_) / range;
        position_ = static_cast<int>(fraction * positions_ + 0.5L);
    }
}

void CDecimalSpinCtrl::stepBy(int delta) {
    double value = finite(getValue() + delta * step_);
    if (delta >= 0) {
        if (value - maximum_ > tolerance(std::max(value, maximum_)))
            value = wrapping() ? minimum_ : maximum_;
    } else {
        if (minimum_ - value > tolerance(std::max(value, minimum_)))
            value = wrapping() ? maximum_ : minimum_;
    }
    writeText(value);
    edited_ = true;
    selectAll();
}

/// The arrows work at the limits too: there they wrap, or bring a value typed beyond a limit back to it.
QAbstractSpinBox::StepEnabled CDecimalSpinCtrl::stepEnabled() const {
    return isReadOnly() ? StepNone : StepUpEnabled | StepDownEnabled;
}

void CDecimalSpinCtrl::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

QSize CDecimalSpinCtrl::sizeHint() const {
    const int digits = fontMetrics().horizontalAdvance(QString(kShownDigits, QLatin1Char('0')));
    return QAbstractSpinBox::sizeHint() + QSize(digits, 0);
}

QSize CDecimalSpinCtrl::minimumSizeHint() const {
    return sizeHint();
}

} // namespace ovsettings
