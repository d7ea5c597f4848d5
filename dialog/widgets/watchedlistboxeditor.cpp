#include "dialog/widgets/watchedlistboxeditor.h"

namespace ovsettings {

void CWatchedListBoxEditor::lineAdded(int, const QString&) {
    setChanged();
}

void CWatchedListBoxEditor::lineRenamed(int, const QString&) {
    setChanged();
}

void CWatchedListBoxEditor::lineDeleted(int) {
    setChanged();
}

void CWatchedListBoxEditor::lineMoved(int, int) {
    setChanged();
}

} // namespace ovsettings
