#include "dialog/widgets/listboxlines.h"

#include "dialog/widgets/listboxeditor.h"
#include "dialog/widgets/stringconversion.h"

namespace ovsettings {

void showStrings(ListBoxEditor& editor, const std::vector<std::string>& strings) {
    editor.setLines({});
    for (int row = 0; const std::string& string : strings)
        insertString(editor, row++, string);
}

void insertString(ListBoxEditor& editor, int row, const std::string& string) {
    const QString line = toQString(string);
    editor.insertLine(row, line);
    if (toUtf8(line) != string)
        editor.setOrigin(row, QByteArray::fromStdString(string));
}

std::vector<std::string> stringsOf(const ListBoxEditor& editor) {
    std::vector<std::string> strings;
    for (int row = 0; row < editor.lineCount(); ++row) {
        const QVariant origin = editor.origin(row);
        strings.push_back(origin.isValid() ? origin.toByteArray().toStdString() : toUtf8(editor.line(row)));
    }
    return strings;
}

} // namespace ovsettings
