#include "dialog/pages/display/editgrid.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr long kLeastWidth = 1;
constexpr long kGreatestWidth = 10;

} // namespace

GridCellLimits CEditGrid::limits() {
    return {kLeastWidth, kGreatestWidth,
            QCoreApplication::translate("ovsettings", "Please enter a value between 1 and 10")};
}

bool CEditGrid::takes(const QString& text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace ovsettings
