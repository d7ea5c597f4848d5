#include "dialog/shell/dialogunits.h"

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace ovsettings {

namespace {

/// Dialog units count in the average width of the capital and small letters A to Z (Win32,
/// GetDialogBaseUnits). It is larger than the average width that a font file names.
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
