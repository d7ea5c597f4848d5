#pragma once

#include "dialog/widgets/listboxeditor.h"

namespace ovsettings {

/// A list box editor that remembers that the user changed the list. A line that is still open counts.
class WatchedListBoxEditor : public ListBoxEditor {
    Q_OBJECT

public:
    using ListBoxEditor::ListBoxEditor;

    bool isChanged() const { return changed_ || isChanging(); }
    void clearChanged() { changed_ = false; }

protected:
    void setChanged() { changed_ = true; }

    void lineAdded(int row, const QString& text) override;
    void lineRenamed(int row, const QString& text) override;
    void lineDeleted(int row) override;
    void lineMoved(int from, int to) override;

private:
    bool changed_ = false;
};

} // namespace ovsettings
