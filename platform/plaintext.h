#pragma once

// For those who have the toolkit. Nothing else on this floor knows it.

#include <QtCore/QString>
#include <QtGui/QTextDocument>

#include <algorithm>

namespace platform {

/// A text whose characters stand in the order in which they are shown: what would turn the direction of the
/// writing, and so make one file's name look like another's, becomes a replacement character.
inline QString inItsOrder(QString text) {
    std::ranges::replace_if(
        text,
        [](QChar c) {
            return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
        },
        QChar(QChar::ReplacementCharacter));
    return text;
}

/// What is drawn of a name. To lay out one of megabytes, which a file may give, takes seconds each time.
inline QString shortened(const QString& name) {
    constexpr qsizetype kMost = 1000;
    return name.size() <= kMost ? name : name.left(kMost) + QChar(0x2026);
}

/// A text for a tool tip, which would read markup in it, load the pictures it names and turn its writing: it
/// is shown as it stands.
inline QString toToolTip(const QString& text) {
    const QString shown = inItsOrder(text);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal) : shown;
}

} // namespace platform
