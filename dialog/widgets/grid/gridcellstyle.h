#pragma once

#include "dialog/widgets/formkeys.h"

#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <optional>

namespace ovsettings {

/// The control that a cell is shown and edited with. What the cell's text means follows from it.
enum class GridCellKind {
    text,       ///< any text, in a line
    maskedEdit, ///< a text that fits `mask`
    checkBox,   ///< "1" is checked, any other text is not
    dropDown,   ///< one of `choices`; another text is shown until one is chosen
    radioGroup, ///< the index, from 0, of one of `choices`
    color,      ///< a packed colour, red in the low byte, in decimal
};

/// What a whole number typed into a cell must lie between, and what the user is told otherwise.
struct GridCellLimits {
    long minimum;
    long maximum;
    QString message;
};

/// How a cell looks and what can be done with it.
struct GridCellStyle {
    GridCellKind kind = GridCellKind::text;
    /// The cell can be reached and read, not changed.
    bool readOnly = false;
    /// A cell that is not enabled is never the current one; it looks as any other.
    bool enabled = true;
    /// Drawn as a disabled control is.
    bool greyed = false;
    QStringList choices = {};
    /// Of a cell with choices: a text that is none of them may be typed, too.
    bool typed = false;
    int listWidth = 0; ///< least width of an open list of choices, in pixels; that of the cell if less
    Qt::Orientation orientation = Qt::Horizontal; ///< of a radio group
    /// One "#" for each digit there may be, any other character for itself; empty allows any text.
    QString mask = {};
    std::optional<GridCellLimits> limits = {};
    std::optional<QColor> interior = {};
    QString toolTip = {};                     ///< plain text
    std::optional<SettingField> setting = {}; ///< that the cell stands for
    /// What the cell is for, in place of the first cell of its row and the header of its column.
    QString accessibleName = {};
};

} // namespace ovsettings
