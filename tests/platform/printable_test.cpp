#include "platform/printable.h"

#include <gtest/gtest.h>

namespace {

TEST(Printable, KeepsEveryScriptAndShowsWhatATerminalWouldObey) {
    const std::string kept = "Größe 日本語 العربية \U0001F600 \\ \xff\xc3";
    const std::pair<std::string, std::string> rows[] = {
        {kept, kept},
        {std::string("\0\t\r\n\x1b]0;x\a\x7f", 11), "?????]0;x??"},
        {"\u0080\u009b31m\u00a0", "??31m\u00a0"},
        {"\x9b"
         "31m",
         "?31m"},
        {"\u2028\u202a\u202e\u2066\u2069\u200f", "?????\u200f"},
        {"\xc0\x9b\xe0\x80\x9b\xf0\x80\x82\x9b", "???"}, // escapes in more bytes than they need
        {"\xe2\x80\x1b[m\xe2\x80", "\xe2??[m\xe2?"},     // sequences cut short
        {"\xf8\x88\x80\x80\x80", "\xf8????"},
    };
    for (const auto& [text, shown] : rows)
        EXPECT_EQ(platform::printable(text), shown) << testing::PrintToString(text);
}

} // namespace
