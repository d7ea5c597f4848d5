#include "platform/printable.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace platform {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array kObeyed{
    Range{0x00, 0x1f},     // control characters
    Range{0x7f, 0x9f},     // and those beyond ASCII
    Range{0x2028, 0x202e}, // separators of lines and paragraphs, directional embeddings and overrides
    Range{0x2066, 0x2069}, // directional isolates
};

struct Character {
    char32_t code;
    std::size_t length; ///< in bytes
};

constexpr std::size_t lengthAfter(unsigned char lead) {
    if (lead < 0xc0 || lead >= 0xf8)
        return 1;
    return lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
}

// The first character. A byte that begins no sequence of UTF-8 is one by itself, since a terminal of single
// bytes takes it for one; a sequence that is longer than it need be is what a lenient terminal reads.
Character firstOf(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lengthAfter(lead);
    if (length == 1 || length > text.size())
        return {lead, 1};
    char32_t code = lead & (0x7fu >> length);
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xc0) != 0x80)
            return {lead, 1};
        code = code << 6 | (byte & 0x3fu);
    }
    return {code, length};
}

bool isObeyed(char32_t code) {
    return std::ranges::any_of(
        kObeyed, [code](const Range& range) { return code >= range.first && code <= range.last; });
}

} // namespace

std::string printable(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstOf(text);
        if (isObeyed(character.code))
            shown += '?';
        else
            shown += text.substr(0, character.length);
        text.remove_prefix(character.length);
    }
    return shown;
}

void tell(std::string_view line) {
    // In one piece, since other threads and programs write there, too.
    std::cerr << printable(line) + '\n';
}

} // namespace platform
