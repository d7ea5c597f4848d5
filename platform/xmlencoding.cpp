#include "platform/xmlencoding.h"

#include "platform/asciicase.h"
#include "platform/utf8.h"

#include <algorithm>
#include <string_view>

namespace platform {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";

/// What files in an encoding that is not read begin with; "?" stands for any byte.
struct ForeignBegin {
    std::string_view bytes;
    const char* encoding;
};
constexpr ForeignBegin kForeignBegins[] = {
    {"\xff\xfe\0\0"sv, "UTF-32"},
    {"\0\0\xfe\xff"sv, "UTF-32"},
    {"<\0\0\0"sv, "UTF-32 without its mark"},
    {"\0\0\0<"sv, "UTF-32 without its mark"},
    {"<\0?\0"sv, "UTF-16 without its mark"},
    {"\0<\0?"sv, "UTF-16 without its mark"},
    {"\x4c\x6f\xa7\x94"sv, "EBCDIC"},
};

struct WideMark {
    std::string_view bytes;
    unsigned low; ///< which byte of two is the low one
};
constexpr WideMark kWideMarks[] = {{"\xff\xfe", 0}, {"\xfe\xff", 1}};

bool matches(std::string_view bytes, std::string_view pattern) {
    const auto isSame = [](char c, char wanted) {
        return wanted == '?' ? c != '\0' : c == wanted;
    };
    return bytes.size() >= pattern.size() &&
           std::ranges::equal(bytes.substr(0, pattern.size()), pattern, isSame);
}

Error refused(std::string_view encoding) {
    return {{},
            "the encoding " + std::string(encoding) + " is not read, but UTF-8, UTF-16 and ISO-8859-1 are",
            1,
            kForeignEncoding};
}

/// The name of the encoding in a declaration, as a view into the text; empty if none is named.
std::string_view declaredEncoding(std::string_view text) {
    if (text.starts_with(kUtf8Mark))
        text.remove_prefix(kUtf8Mark.size());
    const auto declaration = text.substr(0, text.find("?>"));
    const auto word = declaration.find("encoding");
    const auto open = declaration.find_first_of("\"'", word);
    if (!declaration.starts_with("<?xml") || word == std::string_view::npos || open == std::string_view::npos)
        return {};
    const auto name = declaration.substr(open + 1);
    const auto length = name.find(declaration[open]);
    const bool isName = length != std::string_view::npos &&
                        name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                               "0123456789._-") >= length;
    return isName ? name.substr(0, length) : std::string_view();
}

std::string fromLatin(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes)
        appendUtf8(text, static_cast<unsigned char>(c));
    return text;
}

/// @return false at what is no UTF-16; the text then ends there.
bool fromWide(std::string_view bytes, unsigned low, std::string& text) {
    const auto unit = [&](std::size_t at) {
        const auto byte = [&](std::size_t place) {
            return static_cast<char32_t>(static_cast<unsigned char>(bytes[place]));
        };
        return byte(at + low) | byte(at + 1 - low) << 8;
    };
    text.reserve(bytes.size());
    std::size_t at = 0;
    for (; at + 1 < bytes.size(); at += 2) {
        char32_t character = unit(at);
        if (character >= 0xd800 && character < 0xe000) {
            const char32_t second = character < 0xdc00 && at + 3 < bytes.size() ? unit(at + 2) : 0;
            if (second < 0xdc00 || second >= 0xe000)
                return false;
            character = 0x10000 + ((character - 0xd800) << 10) + (second - 0xdc00);
            at += 2;
        }
        appendUtf8(text, character);
    }
    return at == bytes.size();
}

void declareUtf8(std::string& text) {
    if (const auto name = declaredEncoding(text); !name.empty())
        text.replace(static_cast<std::size_t>(name.data() - text.data()), name.size(), kUtf8);
}

} // namespace

Result<> toUtf8(std::string& bytes, std::string* foreign) {
    for (const ForeignBegin& begin : kForeignBegins) {
        if (matches(bytes, begin.bytes))
            return refused(begin.encoding);
    }
    std::string text;
    const auto* wide =
        std::ranges::find_if(kWideMarks, [&](const WideMark& mark) { return bytes.starts_with(mark.bytes); });
    const bool isWide = wide != std::end(kWideMarks);
    if (isWide && !fromWide(std::string_view(bytes).substr(wide->bytes.size()), wide->low, text))
        return Error{{}, "something is no UTF-16", std::ranges::count(text, '\n') + 1};
    const std::string_view declared = declaredEncoding(isWide ? text : bytes);
    const std::string encoding = inUpperCase(std::string(declared));
    const bool isMarked = isWide || bytes.starts_with(kUtf8Mark);
    const bool isLatin = encoding == "ISO-8859-1";
    if (!encoding.empty() && encoding != kUtf8 && !isLatin && !(isMarked && encoding.starts_with("UTF-16")))
        return refused(encoding.starts_with("UTF-16") ? encoding + " without its mark"
                                                      : std::string(declared));
    if (isLatin && !isMarked)
        text = fromLatin(bytes);
    else if (!isWide && (encoding.empty() || encoding == kUtf8))
        return {};
    else if (!isWide)
        text = bytes; // its mark counts, and not what it declares
    declareUtf8(text);
    bytes.swap(text);
    if (foreign)
        *foreign = std::move(text);
    return {};
}

} // namespace platform
