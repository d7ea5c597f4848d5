#include "app/columns.h"

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

std::string printable(std::string text) {
    constexpr char kFirstOfTwo = '\xc2'; // of a control character beyond ASCII, in UTF-8
    char before = '\0';
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isFurther = byte >= 0x80 && byte < 0xa0;
        // As part of a longer sequence such a byte is harmless.
        const bool isAlone = (static_cast<unsigned char>(before) & 0x80) == 0;
        if (byte < ' ' || byte == 0x7f || (isFurther && (before == kFirstOfTwo || isAlone)))
            c = '?';
        before = static_cast<char>(byte);
    }
    return text;
}

void writeColumns(std::ostream& out, std::vector<std::vector<std::string>> rows, const std::string& indent) {
    for (auto& row : rows)
        std::ranges::transform(row, row.begin(), printable);
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
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

} // namespace app
