#pragma once

class QRadioButton;

namespace ovsettings {

/// Checks a button and has Tab lead to it, as users know it: left to itself, Tab leads to the first button of
/// a group until one of them has had the focus. A disabled button cannot be led to; Tab then stays with the
/// others.
void checkRadioButton(QRadioButton& button);

} // namespace ovsettings
