#include "dialog/pages/display/scalefactoredit.h"

#include "dialog/widgets/stringconversion.h"
#include "store/numbers.h"

#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr float kStep = 0.1F;
constexpr float kMinimum = 0.1F;
constexpr float kMaximum = 100;
constexpr int kShownDigits = 10;

} // namespace

ScaleFactorEdit::ScaleFactorEdit(QWidget* parent) : QAbstractSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(false);
}

void ScaleFactorEdit::setText(const QString& text) {
    lineEdit()->setText(text);
}

QSize ScaleFactorEdit::sizeHint() const {
    const int digits = fontMetrics().horizontalAdvance(QString(kShownDigits, QLatin1Char('0')));
    return QAbstractSpinBox::sizeHint() + QSize(digits, 0);
}

void ScaleFactorEdit::stepBy(int steps) {
    const float present = Orv::floatFromText(toUtf8(text()));
    const float stepped = present + static_cast<float>(steps) * kStep;
    // A factor beyond the arrows' limits was typed, and does not jump back to them.
    const float next = steps > 0 ? std::max(present, std::min(stepped, kMaximum))
                                 : std::min(present, std::max(stepped, kMinimum));
    setText(toQString(Orv::floatToText(next > 0 ? next : kMinimum)));
    selectAll();
}

QAbstractSpinBox::StepEnabled ScaleFactorEdit::stepEnabled() const {
    return isReadOnly() ? StepNone : StepUpEnabled | StepDownEnabled;
}

} // namespace ovsettings
