#pragma once

#include <QtCore/QSize>

class QFont;
class QWidget;

namespace ovsettings {

/// The size in pixels of a size in dialog units: a quarter of the font's average character width across, an
/// eighth of a line's height down.
QSize fromDialogUnits(const QWidget& widget, QSize units);

/// In pixels, what a line of text needs. Fonts for Chinese and Japanese often give the height of their
/// ideographs alone, and Latin letters reach below them.
int lineHeight(const QFont& font);

} // namespace ovsettings
