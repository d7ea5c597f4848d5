#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// A text with "?" for each byte that a terminal would take for a command or a line end.
std::string printable(std::string text);

/// Writes rows of printable text with their columns aligned, two blanks between them and no blanks at the end
/// of a line. A column is as wide as its widest cell; the last cell of a row may be of any length.
void writeColumns(std::ostream& out, std::vector<std::vector<std::string>> rows,
                  const std::string& indent = {});

} // namespace app
