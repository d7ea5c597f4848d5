#pragma once

#include "dialog/widgets/grid/gridwnd.h"

namespace ovsettings {

/// A table for global nets and their aliases. What is typed into it lives as long as it does.
class CGlobalsGrid : public GridWnd {
    Q_OBJECT

public:
    explicit CGlobalsGrid(QWidget* parent = nullptr);

    void onInitialUpdate();

protected:
    void layoutColumns() override;
};

} // namespace ovsettings
