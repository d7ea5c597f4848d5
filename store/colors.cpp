#include "store/colours.h"

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
std::string printed(const char (&format)[size], int colour) {
    char text[16];
    const int length =
        std::snprintf(text, sizeof text, format, static_cast<unsigned>(swapRedAndBlue(colour)));
    return {text, static_cast<std::size_t>(length)};
}

} // namespace

int swapRedAndBlue(int colour) {
    return (colour & 0xff) << 16 | (colour & 0xff00) | (colour >> 16 & 0xff);
}

int colourFromText(std::string_view text) {
    return packedFromRedFirst(hexadecimalFromText(text));
}

std::string colourToText(int colour) {
    return printed("0x%06x", colour);
}

std::string colourToShortText(int colour) {
    return printed("0x%x", colour);
}

} // namespace Orv
