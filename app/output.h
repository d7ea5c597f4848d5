#pragma once

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>
#include <string>
#include <string_view>

namespace app {

/// A line for standard output: as it is for a pipe or a file, which a script reads, and printable on a
/// terminal.
std::string forOutput(std::string_view line);

/// Writes rows as JSON to standard output, each line by that rule. U+FFFD stands for what is no UTF-8.
void writeJson(std::ostream& out, const nlohmann::json& rows);

} // namespace app
