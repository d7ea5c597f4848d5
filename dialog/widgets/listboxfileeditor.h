#pragma once

#include "dialog/widgets/listboxeditor.h"

namespace ovsettings {

/// A list of files: a button, and F4 in the list, chooses the file of the current line, or of a new one.
class ListBoxFileEditor : public ListBoxEditor {
    Q_OBJECT

public:
    explicit ListBoxFileEditor(QWidget* parent = nullptr);

private:
    void browse();
};

} // namespace ovsettings
