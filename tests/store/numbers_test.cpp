#include "store/colors.h"
#include "store/numbers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Orv;

TEST(Numbers, TextReadsAsAStreamWouldReadIt) {
    constexpr float kMost = std::numeric_limits<float>::max();
    const std::pair<const char*, float> rows[] = {
        {"254000", 254000.0F},     {" \t\n+0.5mm", 0.5F}, {"-2.5e3,", -2500.0F},
        {"1.016e+06", 1016000.0F}, {".5", 0.5F},          {"1e", 1.0F},
        {"1e39", kMost},           {"-1e39", -kMost},     {"1e999999999999", kMost},
        {"0.0000001e45", 1e38F},
    };
    for (const auto& [text, number] : rows)
        EXPECT_EQ(floatFromText(text), number) << text;
    for (const char* text : {"0,5", "", "-", "+-1", "in", "inf", "-nan", "1e-999", "0x10"})
        EXPECT_EQ(floatFromText(text), 0.0F) << text;
    const std::string nines(400, '9');
    const std::string zeros(400, '0');
    EXPECT_EQ(floatFromText(nines), kMost);
    EXPECT_EQ(floatFromText("0." + zeros + "1"), 0.0F);
    EXPECT_EQ(floatFromText(nines + "e-1"), kMost);
}

TEST(Numbers, IntegersStopAtTheFirstOtherCharacterAndAtTheirLimits) {
    const std::pair<const char*, int> rows[] = {
        {" 12px", 12}, {"+7", 7},
        {"-3", -3},    {"0x1", 0},
        {"x", 0},      {"99999999999", std::numeric_limits<int>::max()},
        {"", 0},       {"-99999999999", std::numeric_limits<int>::min()},
    };
    for (const auto& [text, number] : rows)
        EXPECT_EQ(integerFromText(text), number) << text;
}

TEST(Numbers, ColorsSwapRedAndBlueAndComeBackInLowerCase) {
    const struct {
        const char* text;
        int packed;
        const char *normal, *brief;
    } rows[] = {
        {"0x00FF00", 0x00ff00, "0x00ff00", "0xff00"},
        {"0xfffbf0", 0xf0fbff, "0xfffbf0", "0xfffbf0"},
        {"0x80", 0x800000, "0x000080", "0x80"},
        {" c0c0c0", 0xc0c0c0, "0xc0c0c0", "0xc0c0c0"},
        {"0Xff", 0xff0000, "0x0000ff", "0xff"},
        {"green", 0, "0x000000", "0x0"},
        {"0x", 0, "0x000000", "0x0"},
        {"0x12ff8000", 0x0080ff, "0xff8000", "0xff8000"},
        {"-1", 0xffffff, "0xffffff", "0xffffff"},
        {"0xfffffffffffffffffff", 0xffffff, "0xffffff", "0xffffff"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(colorFromText(row.text), row.packed) << row.text;
        EXPECT_EQ(colorToText(row.packed), row.normal) << row.text;
        EXPECT_EQ(colorToShortText(row.packed), row.brief) << row.text;
    }
}
