#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

class QJsonArray;

namespace app {

/// A line for standard output: as it is for a pipe or a file, which a script reads, and printable on a
/// terminal.
std::string forOutput(std::string_view line);

/// Writes rows as JSON to standard output, each line by that rule.
void writeJson(std::ostream& out, const QJsonArray& rows);

} // namespace app
