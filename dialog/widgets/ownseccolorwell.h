#pragma once

#include <QtWidgets/QFrame>

#include <vector>

class QAbstractButton;

namespace ovsettings {

/// A colour well that drops down: the colours of a palette, and a button for any other colour. It deletes
/// itself when it closes.
///
/// The arrows go from colour to colour, Enter or Space takes one, Escape takes none; so does a click outside.
class COwnSECColorWell : public QFrame {
    Q_OBJECT

public:
    /// @param palette packed colours, in the order in which they are shown; may be empty.
    /// @param current packed; if the palette holds it, it has the focus at first.
    COwnSECColorWell(const std::vector<int>& palette, int current, QWidget* parent);

    /// Shows the well below a rectangle in global coordinates, or above it where there is no room below.
    void dropDown(const QRect& below);

Q_SIGNALS:
    /// The user has chosen a colour, packed. The well is hidden already.
    void chosen(int color);
    /// The well has done its work, and will be deleted. While a dialog for another colour is open, it has
    /// not.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addColor(int color);
    void choose(int color);
    void chooseOther();
    void moveFocus(int key);

    int current_;
    int columns_;
    std::vector<QAbstractButton*> buttons_; ///< the colours, then the one for any other
};

} // namespace ovsettings
