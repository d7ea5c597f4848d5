#pragma once

#include <QtWidgets/QAbstractSpinBox>

namespace ovsettings {

/// A text field for a decimal number with arrows that step it.
///
/// The text is the value: any text may be typed, it is read as far as it is a number, and whoever reads the
/// value checks it against the range. Only stepping keeps within the limits, or wraps around at them if the
/// spin box property `wrapping` is set. Numbers are shown with the decimal point that the C locale had when
/// the control was made; typed ones may have that or ".". Nothing here is ever infinite or not a number: such
/// input counts as the largest number of its sign, or as 0.
class CDecimalSpinCtrl : public QAbstractSpinBox {
    Q_OBJECT
    // By these names assistive technology reads and sets a spin box.
    Q_PROPERTY(double value READ getValue WRITE enterValue)
    Q_PROPERTY(double minimum READ minimum)
    Q_PROPERTY(double maximum READ maximum)
    Q_PROPERTY(double singleStep READ step)

public:
    explicit CDecimalSpinCtrl(QWidget* parent = nullptr);

    /// Takes the limits and the change per step; the text stays. A step of 0 leaves the number of positions
    /// as it is.
    void setRange(double minimum, double maximum, double step);
    void getRange(double& minimum, double& maximum, double& step) const;

    /// Decimals to show; -1 means six significant digits in the shortest form. The text stays as it is.
    void setDecimals(int decimals);
    int getDecimals() const { return decimals_; }

    /// Shows a number and forgets that the user edited the text. A number too small for the decimals gets as
    /// many more as it takes not to be shown as 0.
    void setValue(double value);
    /// Shows a number as if the user had typed it.
    void enterValue(double value);
    /// The number that the text begins with; 0 if it begins with none.
    double getValue() const;

    /// True if the value lies within the limits, both included.
    bool isInRange() const;

    /// True once the text was changed in any other way than by setValue, since the last one.
    bool isEdited() const { return edited_; }

    void disable();

    /// The number of steps in the range, at most 32767, and where in it the value stood when the value or the
    /// range was last set; stepping leaves that as it was.
    int positions() const { return positions_; }
    int position() const { return position_; }

    /// A number as this control writes it.
    QString formatted(double value, int decimals) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void stepBy(int delta) override;

protected:
    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    double step() const { return step_; }
    StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void writeText(double value);
    void reposition();

    double minimum_ = 0.0;
    double maximum_ = 100.0;
    double step_ = 1.0;
    int positions_ = 100;
    int position_ = 0;
    int decimals_ = -1;
    QChar decimalPoint_;
    bool edited_ = false;
};

} // namespace ovsettings
