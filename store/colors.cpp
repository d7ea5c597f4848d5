#include "store/colors.h"

#include "store/numbers.h"

#include <cstdint>
#include <cstdio>

namespace Orv {

namespace {

// A number beyond 24 bits counts by its low 24.
int packedFromRedFirst(std::int64_t number) {
    return swapRedAndBlue(static_cast<int>(number & 0xffffff));
}

template <std::size_t size>
std::string printed(const char (&format)[size], int color) {
    char text[16];
    const int length = std::snprintf(text, sizeof text, format, static_cast<unsigned>(swapRedAndBlue(color)));
    return {text, static_cast<std::size_t>(length)};
}

} // namespace

int swapRedAndBlue(int color) {
    return (color & 0xff) << 16 | (color & 0xff00) | (color >> 16 & 0xff);
}

int colorFromText(std::string_view text) {
    return packedFromRedFirst(hexadecimalFromText(text));
}

std::string colorToText(int color) {
    return printed("0x%06x", color);
}

std::string colorToShortText(int color) {
    return printed("0x%x", color);
}

} // namespace Orv
