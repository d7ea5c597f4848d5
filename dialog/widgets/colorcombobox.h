#pragma once

#include <QtWidgets/QComboBox>

namespace ovsettings {

/// A drop-down list whose items are colours. All items compare equal, so that sorting leaves their order.
class CColorComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit CColorComboBox(QWidget* parent = nullptr);

    /// @param color packed.
    void addColor(int color);
    /// The packed colour of an item; 0 if there is no such index.
    int color(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ovsettings
