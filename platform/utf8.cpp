#include "platform/utf8.h"

#include <array>
#include <cstddef>

namespace platform {

namespace {

/// What a lead byte begins. Second bytes are limited where a sequence would be longer than it need be, a
/// surrogate, or beyond the last character (table 3-7 of the Unicode Standard).
struct Form {
    unsigned char firstLead, lastLead;
    unsigned char firstSecond, lastSecond;
    std::size_t length;
};

constexpr std::array kForms{
    Form{0x00, 0x7f, 0, 0, 1},       Form{0xc2, 0xdf, 0x80, 0xbf, 2}, Form{0xe0, 0xe0, 0xa0, 0xbf, 3},
    Form{0xe1, 0xec, 0x80, 0xbf, 3}, Form{0xed, 0xed, 0x80, 0x9f, 3}, Form{0xee, 0xef, 0x80, 0xbf, 3},
    Form{0xf0, 0xf0, 0x90, 0xbf, 4}, Form{0xf1, 0xf3, 0x80, 0xbf, 4}, Form{0xf4, 0xf4, 0x80, 0x8f, 4},
};

const Form* formOf(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    for (const Form& form : kForms) {
        if (lead < form.firstLead || lead > form.lastLead)
            continue;
        if (form.length == 1)
            return &form;
        const auto second = static_cast<unsigned char>(text.size() < form.length ? 0 : text[1]);
        return second >= form.firstSecond && second <= form.lastSecond ? &form : nullptr;
    }
    return nullptr;
}

} // namespace

std::size_t utf8Character(std::string_view text, char32_t& character) {
    const Form* form = text.empty() ? nullptr : formOf(text);
    if (!form)
        return 0;
    const auto lead = static_cast<unsigned char>(text.front());
    character = form->length == 1 ? lead : lead & (0x7fU >> form->length);
    for (std::size_t i = 1; i < form->length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xc0) != 0x80)
            return 0;
        character = character << 6 | (byte & 0x3fU);
    }
    return form->length;
}

bool isUtf8Of(std::string_view text, bool (*accepts)(char32_t character)) {
    while (!text.empty()) {
        char32_t character = 0;
        const std::size_t length = utf8Character(text, character);
        if (length == 0 || !accepts(character))
            return false;
        text.remove_prefix(length);
    }
    return true;
}

void appendUtf8(std::string& text, char32_t character) {
    constexpr unsigned char kLeads[] = {0x00, 0xc0, 0xe0, 0xf0};
    const int following = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text += static_cast<char>(kLeads[following] | character >> (6 * following));
    for (int i = following - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (character >> (6 * i) & 0x3f));
}

} // namespace platform
