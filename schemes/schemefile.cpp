#include "schemes/schemefile.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "store/numbers.h"

#include <algorithm>
#include <charconv>

namespace ovsettings {

namespace {

using Orv::CColorScheme;
using Orv::ColorSchemeError;

/// A line is taken in pieces of at most this many characters, its end included; each piece counts as a line.
constexpr std::size_t kPieceLength = 254;
constexpr std::size_t kLongestWord = 17;
constexpr char kComment = '|';

enum class LineClass { newScheme, screenColor, printColor, end, layer, unknown };

/// Cuts a text into pieces, without copying. The file's line ends may be those of another system: a carriage
/// return before a line feed belongs to the line end.
class Pieces {
public:
    explicit Pieces(std::string_view text) : rest_(text) {}

    bool next(std::string_view& piece) {
        if (rest_.empty())
            return false;
        line_ += endsLine_ ? 1 : 0;
        std::size_t length = rest_.substr(0, kPieceLength + 1).find('\n');
        endsLine_ = length != std::string_view::npos;
        std::size_t taken = length + 1;
        if (endsLine_ && length > 0 && rest_[length - 1] == '\r')
            --length;
        if (!endsLine_ || length + 1 > kPieceLength) {
            endsLine_ = false;
            length = taken = std::min(kPieceLength, rest_.size());
        }
        piece = rest_.substr(0, length);
        rest_.remove_prefix(taken);
        // A piece is a string of characters, which a zero ends.
        piece = piece.substr(0, piece.find('\0'));
        return true;
    }

    /// The line of the last piece, from 1.
    std::size_t line() const { return line_; }

private:
    std::string_view rest_;
    std::size_t line_ = 0;
    bool endsLine_ = true;
};

bool isBetweenTokens(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

/// Takes the next token and the one separator behind it; empty if there is none.
std::string_view takeToken(std::string_view& line) {
    const auto first = std::ranges::find_if_not(line, isBetweenTokens);
    const auto last = std::find_if(first, line.end(), isBetweenTokens);
    const std::string_view token(first, last);
    line = std::string_view(last == line.end() ? last : last + 1, line.end());
    return token;
}

/// @param slot receives the slot of a layer line.
LineClass classify(std::string_view token, std::size_t& slot) {
    if (token.size() > kLongestWord)
        return LineClass::unknown;
    char folded[kLongestWord];
    const std::string_view word(folded, std::ranges::transform(token, folded, platform::toUpper).out);
    if (word == "SCREEN_COLOR")
        return LineClass::screenColor;
    if (word == "PRINT_COLOR")
        return LineClass::printColor;
    if (word == "SCHEME")
        return LineClass::newScheme;
    if (word == "END")
        return LineClass::end;
    const auto layer = std::find(kSlotWords.begin() + kFirstLayerSlot, kSlotWords.end(), word);
    slot = static_cast<std::size_t>(layer - kSlotWords.begin());
    return layer == kSlotWords.end() ? LineClass::unknown : LineClass::layer;
}

bool isPaletteNumber(int number) {
    return number >= 0 && number < static_cast<int>(kPaletteSize);
}

/// Takes the lines of a file one after the other. A colour or layer line ahead of the first scheme is checked
/// as any other, and goes nowhere.
class Reader {
public:
    ColorSchemeError take(std::string_view line) {
        if (line.starts_with(kComment))
            return ColorSchemeError::none;
        const std::string_view keyword = takeToken(line);
        std::size_t slot = 0;
        switch (classify(keyword, slot)) {
        case LineClass::newScheme:
            return takeScheme(line);
        case LineClass::screenColor:
            return takeColor(line, &CColorScheme::screenColors);
        case LineClass::printColor:
            return takeColor(line, &CColorScheme::printColors);
        case LineClass::layer:
            return takeLayer(line, slot);
        case LineClass::end: // the token behind it is one that nothing is done with
        case LineClass::unknown:
            break;
        }
        return ColorSchemeError::none;
    }

    std::vector<CColorScheme> takeSchemes() { return std::move(schemes_); }

private:
    ColorSchemeError takeScheme(std::string_view name) {
        if (schemes_.size() == kMostSchemes)
            return ColorSchemeError::tooManySchemes;
        schemes_.emplace_back().name = name;
        return ColorSchemeError::none;
    }

    ColorSchemeError takeColor(std::string_view line, CColorScheme::Numbers CColorScheme::*colors) {
        const std::string_view number = takeToken(line);
        if (number.empty())
            return ColorSchemeError::noPaletteNumber;
        const int entry = Orv::integerFromText(number);
        if (!isPaletteNumber(entry))
            return ColorSchemeError::paletteNumberOutOfRange;
        const std::string_view color = takeToken(line);
        if (color.empty())
            return ColorSchemeError::noColor;
        if (!schemes_.empty())
            (schemes_.back().*colors)[static_cast<std::size_t>(entry)] = Orv::integerFromText(color);
        return ColorSchemeError::none;
    }

    ColorSchemeError takeLayer(std::string_view line, std::size_t slot) {
        const std::string_view first = takeToken(line);
        if (first.empty())
            return ColorSchemeError::noLayerNumber;
        const int entry = Orv::integerFromText(first);
        if (!isPaletteNumber(entry))
            return ColorSchemeError::layerNumberOutOfRange;
        const std::string_view second = takeToken(line);
        if (second.empty())
            return ColorSchemeError::noSecondNumber;
        const std::string_view third = takeToken(line);
        if (third.empty())
            return ColorSchemeError::noThirdNumber;
        if (!schemes_.empty()) {
            schemes_.back().layerSlots[slot] = entry;
            schemes_.back().layerSecond[slot] = Orv::integerFromText(second);
            schemes_.back().layerThird[slot] = Orv::integerFromText(third);
        }
        return ColorSchemeError::none;
    }

    std::vector<CColorScheme> schemes_;
};

void appendColors(std::string& text, std::string_view keyword, const CColorScheme::Numbers& colors) {
    for (std::size_t entry = 0; entry < kPaletteSize; ++entry) {
        text.append(keyword) += ' ' + Orv::integerToText(static_cast<int>(entry)) + ' ' +
                                Orv::integerToText(colors[entry]) + '\n';
    }
    text += '\n';
}

/// As much of a name as the reader finds on its line, in whole characters.
std::string_view nameForLine(std::string_view name) {
    constexpr std::size_t kLongestName = kPieceLength - std::string_view("SCHEME \n").size();
    name = name.substr(0, name.find('\n'));
    if (name.size() <= kLongestName)
        return name;
    // A character of UTF-8 has up to three bytes behind its first one; other bytes are cut anywhere.
    constexpr std::size_t kMostTrailing = 3;
    for (std::size_t size = kLongestName; size + kMostTrailing >= kLongestName; --size) {
        if ((static_cast<unsigned char>(name[size]) & 0xc0) != 0x80)
            return name.substr(0, size);
    }
    return name.substr(0, kLongestName);
}

} // namespace

SchemeReading readSchemes(std::string_view text) {
    SchemeReading reading;
    Reader reader;
    Pieces pieces(text);
    std::string_view piece;
    while (reading.error == ColorSchemeError::none && pieces.next(piece))
        reading.error = reader.take(piece);
    if (reading.error != ColorSchemeError::none)
        reading.line = pieces.line();
    reading.schemes = reader.takeSchemes();
    return reading;
}

std::string schemeText(const CColorScheme& scheme) {
    std::string text = "SCHEME " + std::string(nameForLine(scheme.name)) + "\n\n";
    appendColors(text, "SCREEN_COLOR", scheme.screenColors);
    appendColors(text, "PRINT_COLOR", scheme.printColors);
    for (std::size_t slot = kFirstLayerSlot; slot < kPaletteSize; ++slot) {
        const int entry = scheme.layerSlots[slot];
        // A reader refuses a background in the system's colour.
        if (entry == CColorScheme::kNoSlot ||
            (slot == kBackgroundSlot && entry == CColorScheme::kSystemColor))
            continue;
        text.append(kSlotWords[slot]) += ' ' + Orv::integerToText(entry) + " 0 0\n";
    }
    return text + "\nEND SCHEME\n\n";
}

std::string schemeNameOf(std::string_view path) {
    const std::string_view name = platform::splitPath(path).name;
    const auto dot = name.find('.');
    return std::string(dot == std::string_view::npos ? std::string_view() : name.substr(0, dot));
}

} // namespace ovsettings
