#include "details/shell/dialogunits.h"

#include <QtGui/QFontMetrics>
#include <QtWidgets/QWidget>

namespace ovsettings {

QSize fromDialogUnits(const QWidget& widget, QSize units) {
    const QFontMetrics metrics = widget.fontMetrics();
    return {units.width() * metrics.averageCharWidth() / 4, units.height() * metrics.height() / 8};
}

} // namespace ovsettings
