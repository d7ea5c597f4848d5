#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace platform {

/// The case of ASCII letters, whatever the locale: names in files compare the same for every user.

constexpr char toLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isLetter(char c) {
    return toLower(c) >= 'a' && toLower(c) <= 'z';
}

constexpr char toUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string inLowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), toLower);
    return text;
}

inline std::string inUpperCase(std::string text) {
    std::ranges::transform(text, text.begin(), toUpper);
    return text;
}

constexpr bool equalsWithoutCase(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, toLower, toLower);
}

} // namespace platform
