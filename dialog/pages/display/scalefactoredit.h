#pragma once

#include <QtWidgets/QAbstractSpinBox>

namespace ovsettings {

/// A text field for a factor with arrows that step it. Any text may be typed and stays as it is; only the
/// arrows write a number, in the form in which it is stored.
class ScaleFactorEdit : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit ScaleFactorEdit(QWidget* parent = nullptr);

    void setText(const QString& text);

    QSize sizeHint() const override;
    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;
};

} // namespace ovsettings
