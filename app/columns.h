#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// Writes rows of texts, made printable, with their columns aligned, two blanks between them and no blanks at
/// the end of a line. A column is as wide as its widest cell; the last cell of a row may be of any length.
void writeColumns(std::ostream& out, std::vector<std::vector<std::string>> rows,
                  const std::string& indent = {});

} // namespace app
