#pragma once

#include <QtWidgets/QFontDialog>

class QListView;

namespace ovsettings {

/// The platform's chooser of a font, for a mapping that may name a face which this machine lacks. The toolkit
/// would begin with another face as if it were chosen; here such a face is shown by its name, and no face of
/// the list is chosen until the user does so.
class FontChooser : public QFontDialog {
    Q_OBJECT

public:
    /// @param start what the choice begins with. @param face the mapped one; empty if there is none.
    FontChooser(const QFont& start, const QString& face, QWidget* parent);

    /// False while there is no face to go with the rest of the font.
    bool hasFace() const;

private:
    void showMissingFace(const QString& face);

    QListView* faces_ = nullptr; ///< where none is chosen at first; otherwise null
};

} // namespace ovsettings
