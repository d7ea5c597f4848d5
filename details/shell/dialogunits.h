#pragma once

#include <QtCore/QSize>

class QWidget;

namespace ovsettings {

/// The size in pixels of a size in dialog units: a quarter of the font's average character width across, an
/// eighth of its height down.
QSize fromDialogUnits(const QWidget& widget, QSize units);

} // namespace ovsettings
