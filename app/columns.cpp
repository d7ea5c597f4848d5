#include "app/columns.h"

#include "platform/printable.h"
#include "platform/trim.h"

#include <algorithm>
#include <ostream>

namespace app {

namespace {

constexpr std::size_t kGap = 2;

// Characters, not bytes: a UTF-8 continuation byte takes no place on the screen.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

} // namespace

void writeColumns(std::ostream& out, std::vector<std::vector<std::string>> rows, const std::string& indent) {
    for (auto& row : rows)
        std::ranges::transform(row, row.begin(), platform::printable);
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column + 1 < row.size(); ++column)
            widths[column] = std::max(widths[column], widthOf(row[column]));
    }
    for (const auto& row : rows) {
        std::string line = indent;
        for (std::size_t column = 0; column < row.size(); ++column) {
            line += row[column];
            if (column + 1 < row.size())
                line.append(widths[column] + kGap - widthOf(row[column]), ' ');
        }
        out << platform::trimEnd(line, " ") << '\n';
    }
}

} // namespace app
