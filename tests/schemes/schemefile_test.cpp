#include "schemes/schemefile.h"

#include "tests/support/testsupport.h"

#include <limits>

using Orv::CColorScheme;
using Orv::ColorSchemeError;
using ovsettings::readSchemes;
using ovsettings::SchemeReading;

namespace {

std::string repeated(const char* text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::vector<std::string> namesIn(const SchemeReading& reading) {
    std::vector<std::string> names;
    for (const CColorScheme& scheme : reading.schemes)
        names.push_back(scheme.name);
    return names;
}

CColorScheme manyColors() {
    CColorScheme scheme;
    scheme.name = "calm";
    for (int entry = 0; entry < 16; ++entry) {
        scheme.screenColors[static_cast<std::size_t>(entry)] = 1000 * entry;
        scheme.printColors[static_cast<std::size_t>(entry)] = 0xffffff - entry;
    }
    scheme.layerSlots = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 4, 6, 255, 7, 3, 9};
    return scheme;
}

} // namespace

TEST(SchemeFile, TakesTheRawRestOfASchemeLineAsItsName) {
    const std::string filled(247, 'n');
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"SCHEME calm\n", {"calm"}},
        {"SCHEME calm", {"calm"}},
        {"scheme two words  \n", {"two words  "}},
        {" \tScheme\t blank first\n", {" blank first"}},
        {"SCHEME\nSCHEME \n", {"", ""}},
        {"SCHEME calm\r\nSCHEME\r\n", {"calm", ""}},
        {"SCHEME Gr\xfcn\n", {"Gr\xfcn"}},
        {std::string("SCHEME cut\0off\n", 15), {"cut"}},
        {"SCHEME " + filled + "SCHEME more\n", {filled, "more"}},
        {"SCHEME " + filled + "\r\n", {filled}},
        {"| SCHEME a\n\n \t\nSCHEMES b\nLINE 99\nEND SCHEME c\n", {}},
        {" |SCHEME no comment, for the bar comes second\n", {}},
        {"", {}},
    };
    for (const auto& [text, names] : rows) {
        const SchemeReading reading = readSchemes(text);
        EXPECT_EQ(namesIn(reading), names) << text;
        EXPECT_EQ(reading.error, ColorSchemeError::none) << text;
    }
}

TEST(SchemeFile, ReadsNumbersAsFarAsTheyAreSome) {
    const SchemeReading reading = readSchemes("SCREEN_COLOR 1 5\nSCHEME a\nScreen_Color\t0 +12x rest\n"
                                              "PRINT_COLOR 15 -1\nPRINT_COLOR word 7\n"
                                              "SCREEN_COLOR 2 99999999999\nHIGHLIGHT 9 -8 70000000000\n"
                                              "SCHEME b\nWINDOW_BACKGROUND 3 4 5\n");
    ASSERT_EQ(reading.error, ColorSchemeError::none);
    ASSERT_EQ(reading.schemes.size(), 2U);
    constexpr int kMost = std::numeric_limits<int>::max();
    const CColorScheme& a = reading.schemes[0];
    EXPECT_EQ(a.screenColors, (CColorScheme::Numbers{12, 0, kMost}));
    EXPECT_EQ(a.printColors, (CColorScheme::Numbers{7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -1}));
    EXPECT_EQ(a.layerSlots[15], 9);
    EXPECT_EQ(a.layerSecond[15], -8);
    EXPECT_EQ(a.layerThird[15], kMost);
    EXPECT_EQ(a.layerSlots[12], CColorScheme::kNoSlot);
    EXPECT_EQ(reading.schemes[1].layerSlots[12], 3);
    EXPECT_EQ(reading.schemes[1].screenColors, CColorScheme::Numbers{});
}

TEST(SchemeFile, EndsAtTheFirstBadLineAndKeepsWhatItHasRead) {
    const std::pair<const char*, ColorSchemeError> rows[] = {
        {"SCREEN_COLOR", ColorSchemeError::noPaletteNumber},
        {"print_color \t", ColorSchemeError::noPaletteNumber},
        {"SCREEN_COLOR 16 0", ColorSchemeError::paletteNumberOutOfRange},
        {"PRINT_COLOR -1 0", ColorSchemeError::paletteNumberOutOfRange},
        {"PRINT_COLOR 4294967296 0", ColorSchemeError::paletteNumberOutOfRange},
        {"SCREEN_COLOR 15 ", ColorSchemeError::noColor},
        {"ANNO_LAYER", ColorSchemeError::noLayerNumber},
        {"WINDOW_BACKGROUND 255 0 0", ColorSchemeError::layerNumberOutOfRange},
        {"VALUE_LAYER 1", ColorSchemeError::noSecondNumber},
        {"border_layer 1 2", ColorSchemeError::noThirdNumber},
    };
    for (const auto& [line, error] : rows) {
        // A line that is longer than a piece is still one line.
        const std::string start = "SCHEME a\n|" + std::string(600, 'c') + "\nSCREEN_COLOR 0 1\n";
        const SchemeReading reading = readSchemes(start + line + "\nSCREEN_COLOR 0 2\nSCHEME b\n");
        EXPECT_EQ(reading.error, error) << line;
        EXPECT_EQ(reading.line, 4U) << line;
        ASSERT_EQ(reading.schemes.size(), 1U) << line;
        EXPECT_EQ(reading.schemes[0].screenColors[0], 1) << line;
        EXPECT_EQ(readSchemes(line).error, error) << "ahead of the first scheme: " << line;
    }
}

TEST(SchemeFile, SurvivesWhatIsNoSchemeFile) {
    EXPECT_TRUE(readSchemes(std::string(100'000'000, 'x')).schemes.empty());
    EXPECT_EQ(readSchemes(repeated("LINE 1\nSCREEN_COLOR 1 1\n", 500'000)).error, ColorSchemeError::none);
    const SchemeReading endless = readSchemes(repeated("SCHEME\n", 65'537));
    EXPECT_EQ(endless.error, ColorSchemeError::tooManySchemes);
    EXPECT_EQ(endless.schemes.size(), ovsettings::kMostSchemes);

    const std::string whole = ovsettings::schemeText(manyColors());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(readSchemes(whole.substr(0, length)).schemes.size(), length < 6 ? 0U : 1U);
}

TEST(SchemeFile, WritesOneSchemeInTheOrderThatOtherProgramsKnow) {
    std::string expected = "SCHEME calm\n\n";
    for (int entry = 0; entry < 16; ++entry)
        expected += "SCREEN_COLOR " + std::to_string(entry) + ' ' + std::to_string(1000 * entry) + '\n';
    expected += '\n';
    for (int entry = 0; entry < 16; ++entry)
        expected += "PRINT_COLOR " + std::to_string(entry) + ' ' + std::to_string(0xffffff - entry) + '\n';
    expected += "\nANNO_LAYER 4 0 0\nSELECTION_LAYER 6 0 0\nVALUE_LAYER 7 0 0\nBORDER_LAYER 3 0 0\n"
                "HIGHLIGHT 9 0 0\n\nEND SCHEME\n\n";
    CColorScheme scheme = manyColors();
    EXPECT_EQ(ovsettings::schemeText(scheme), expected);
    scheme.layerSlots[12] = 2;
    scheme.name = "line\nbreak";
    const SchemeReading again = readSchemes(ovsettings::schemeText(scheme));
    EXPECT_EQ(namesIn(again), std::vector<std::string>{"line"});
    EXPECT_EQ(again.schemes.at(0).layerSlots[12], 2);
}

TEST(SchemeFile, WritesNoMoreOfANameThanItsLineHolds) {
    for (const char* letter : {"x", "\xc3\xa9", "\x99"}) {
        CColorScheme scheme = manyColors();
        scheme.name.clear();
        while (scheme.name.size() < 300)
            scheme.name += letter;
        const auto read = readSchemes(ovsettings::schemeText(scheme));
        EXPECT_EQ(read.error, Orv::ColorSchemeError::none);
        ASSERT_EQ(read.schemes.size(), 1U);
        EXPECT_TRUE(scheme.name.starts_with(read.schemes[0].name)) << read.schemes[0].name;
        EXPECT_EQ(read.schemes[0].name.size(), 246U);
    }
}

TEST(SchemeFile, NamesASchemeByItsFileUpToTheFirstDot) {
    const std::pair<const char*, const char*> rows[] = {
        {"/home/ann/calm.scm", "calm"},
        {"C:\\data.d\\calm.old.scm", "calm"},
        {"/home/ann.b/calm", ""},
        {".scm", ""},
    };
    for (const auto& [path, name] : rows)
        EXPECT_EQ(ovsettings::schemeNameOf(path), name) << path;
}

TEST(SchemeFile, TellsWhereAFileEndsEarlyAndThatOneCannotBeRead) {
    const testsupport::TemporaryDirectory directory;
    testsupport::writeFile(directory / "Bad.scm", "SCHEME a\nSCREEN_COLOR 16 0\n");
    testsupport::writeFile(directory / "empty.scm", "");
    const std::string path = (directory / "bad.scm").string();
    const Orv::ColorSchemes bad = Orv::readColorSchemes(path);
    EXPECT_EQ(bad.schemes.size(), 1U) << "found in another case";
    EXPECT_EQ(bad.reason, path + ":2: the palette number is not between 0 and 15");
    EXPECT_EQ(Orv::readColorSchemes((directory / "empty.scm").string()).error, ColorSchemeError::none);
    for (const std::string& none : {(directory / "none.scm").string(), directory.path().string()}) {
        const Orv::ColorSchemes unreadable = Orv::readColorSchemes(none);
        EXPECT_EQ(unreadable.error, ColorSchemeError::unreadable);
        EXPECT_TRUE(testsupport::contains(unreadable.reason, none));
    }
}
