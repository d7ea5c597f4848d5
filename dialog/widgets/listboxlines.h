#pragma once

#include <string>
#include <vector>

namespace ovsettings {

class CListBoxEditor;

/// Between the lines of a list editor and byte strings. A string that is no UTF-8 comes back as it was until
/// the user changes its line.
void showStrings(CListBoxEditor& editor, const std::vector<std::string>& strings);
void insertString(CListBoxEditor& editor, int row, const std::string& string);
std::vector<std::string> stringsOf(const CListBoxEditor& editor);

} // namespace ovsettings
