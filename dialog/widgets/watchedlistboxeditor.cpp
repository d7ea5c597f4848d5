#include "dialog/widgets/watchedlistboxeditor.h"

namespace ovsettings {

void WatchedListBoxEditor::lineAdded(int, const QString&) {
    setChanged();
}

void WatchedListBoxEditor::lineRenamed(int, const QString&) {
    setChanged();
}

void WatchedListBoxEditor::lineDeleted(int) {
    setChanged();
}

void WatchedListBoxEditor::lineMoved(int, int) {
    setChanged();
}

} // namespace ovsettings
