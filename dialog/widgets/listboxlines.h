#pragma once

#include <string>
#include <vector>

namespace ovsettings {

class ListBoxEditor;

/// Between the lines of a list editor and byte strings. A string that is no UTF-8 comes back as it was until
/// the user changes its line.
void showStrings(ListBoxEditor& editor, const std::vector<std::string>& strings);
void insertString(ListBoxEditor& editor, int row, const std::string& string);
std::vector<std::string> stringsOf(const ListBoxEditor& editor);

} // namespace ovsettings
