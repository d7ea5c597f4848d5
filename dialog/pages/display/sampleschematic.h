#pragma once

#include <QtGui/QColor>

#include <optional>

namespace ovsettings {

struct DrawItem;

/// What the sample schematic is painted in.
struct SampleColors {
    QColor background;
    QColor border;
    QColor box;
    QColor pin;
    QColor net;
    QColor label;
    QColor attribute;
    QColor text;
    QColor circle;
    std::optional<QColor> grid = {}; ///< without it there are no grid points
};

/// Paints a small piece of schematic that has one of each kind of object in it.
void paintSampleSchematic(const DrawItem& item, const SampleColors& colors);

} // namespace ovsettings
