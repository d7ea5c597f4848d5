#include "dialog/shell/dialogunits.h"

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace ovsettings {

namespace {

/// The average character width that dialog units count in is that of the Latin alphabet in both cases (Win32,
/// GetDialogBaseUnits), which is wider than the average that a font file names.
constexpr QLatin1String kAlphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");

} // namespace

QSize fromDialogUnits(const QWidget& widget, QSize units) {
    const QFontMetrics metrics = widget.fontMetrics();
    const auto letters = static_cast<int>(kAlphabet.size());
    return {units.width() * metrics.horizontalAdvance(QString(kAlphabet)) / (4 * letters),
            units.height() * lineHeight(widget.font()) / 8};
}

int lineHeight(const QFont& font) {
    return std::max(QFontMetrics(font).height(), QFontInfo(font).pixelSize() * 6 / 5);
}

} // namespace ovsettings
