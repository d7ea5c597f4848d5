#pragma once

#include <QtWidgets/QListWidget>

namespace ovsettings {

/// A list whose items are colours. All items compare equal, so that sorting leaves their order.
class CColorListBox : public QListWidget {
    Q_OBJECT

public:
    explicit CColorListBox(QWidget* parent = nullptr);

    /// @param color packed.
    void addColor(int color);
    /// The packed colour of an item; 0 if there is no such row.
    int color(int row) const;
};

} // namespace ovsettings
