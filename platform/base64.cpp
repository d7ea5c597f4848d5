#include "platform/base64.h"

#include "platform/trim.h"

#include <cstddef>
#include <cstdint>

namespace platform {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';
constexpr std::size_t kGroup = 4;

} // namespace

std::string toBase64(std::string_view bytes) {
    std::string text;
    for (; !bytes.empty(); bytes.remove_prefix(bytes.size() < 3 ? bytes.size() : 3)) {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
        for (std::size_t i = 0; i < kGroup; ++i)
            text += i <= bytes.size() ? kAlphabet[bits >> (18 - 6 * i) & 0x3fU] : kPadding;
    }
    return text;
}

std::optional<std::string> fromBase64(std::string_view text) {
    std::string bytes;
    std::uint32_t bits = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (const char c : text) {
        if (kBlanks.find(c) != std::string_view::npos)
            continue;
        const auto digit = kAlphabet.find(c);
        if (c == kPadding)
            ++padding;
        else if (digit == std::string_view::npos || padding > 0)
            return std::nullopt;
        else {
            bits = bits << 6 | static_cast<std::uint32_t>(digit);
            if (++digits % kGroup != 1)
                bytes += static_cast<char>(bits >> (kGroup - 1 - (digits - 1) % kGroup) * 2 & 0xffU);
        }
    }
    const bool isPadded = padding == 0 || (padding <= 2 && (digits + padding) % kGroup == 0);
    if (!isPadded)
        return std::nullopt;
    return bytes;
}

} // namespace platform
