#pragma once

#include "dialog/widgets/grid/gridcellstyle.h"

#include <QtCore/QString>

namespace ovsettings {

/// The control of a width cell: takes a whole number, in digits.
class CEditGrid {
public:
    static GridCellLimits limits();
    static bool takes(const QString& text);
};

} // namespace ovsettings
