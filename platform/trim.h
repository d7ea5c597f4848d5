#pragma once

#include <string_view>

namespace platform {

/// What the C locale takes for a blank.
inline constexpr std::string_view kBlanks = " \t\n\v\f\r";

/// What stands around the words of a line, and what a line of XML or a file of lines is empty with.
inline constexpr std::string_view kLineBlanks = " \t\r\n";

/// The text without the blanks behind it. @param blanks the characters that count as such.
constexpr std::string_view trimEnd(std::string_view text, std::string_view blanks = kBlanks) {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// The text without the blanks before it.
constexpr std::string_view trimBegin(std::string_view text, std::string_view blanks = kBlanks) {
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

/// The text without the blanks around it.
constexpr std::string_view trim(std::string_view text, std::string_view blanks = kBlanks) {
    return trimBegin(trimEnd(text, blanks), blanks);
}

} // namespace platform
