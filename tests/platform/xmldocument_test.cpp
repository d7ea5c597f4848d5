#include "platform/xmldocument.h"

#include <gtest/gtest.h>

using platform::lineOfCrowdedElement;

namespace {

std::string attributes(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += " a" + std::to_string(i) + "=''";
    return text;
}

std::string inUtf16(const std::string& text) {
    std::string wide = "\xff\xfe";
    for (const char c : text)
        wide += {c, '\0'};
    return wide;
}

} // namespace

TEST(XmlDocument, AnElementOfManyAttributesIsFoundWhereverItHides) {
    const std::string crowded = "<a" + attributes(2000) + "/>";
    const struct {
        const char* what;
        std::string bytes;
        long line;
    } rows[] = {
        {"few", "<a" + attributes(500) + "/>", 0},
        {"plain", "\n" + crowded, 2},
        {"in a comment only", "<!-- " + crowded + " --><a/>", 0},
        {"behind a quote in a type's comment", "<!DOCTYPE a [<!-- it's -->]>\n" + crowded, 2},
        {"behind a type with a quoted bracket", "<!DOCTYPE a SYSTEM \"[\">\n" + crowded, 2},
        {"of two bytes a letter, behind a comment", inUtf16("<!-- it's -->\n" + crowded), 2},
        {"in an encoding without the signs of a tag",
         "<?xml version='1.0' encoding='UTF-7'?>\n+ADw-a" + attributes(2000) + "/+AD4-", 2},
        {"in an encoding that nobody knows", "<?xml version='1.0' encoding='none'?>\n" + crowded, 2},
    };
    for (const auto& row : rows)
        EXPECT_EQ(lineOfCrowdedElement(row.bytes), row.line) << row.what;
}

TEST(XmlDocument, DeclaredAttributesAreRefused) {
    std::string reason;
    EXPECT_FALSE(platform::parseXml("<!DOCTYPE a [\n<!ATTLIST a b (c|d) \"c\">]><a/>", 0, &reason));
    EXPECT_EQ(reason, "line 2: attribute declarations are not allowed");
    EXPECT_TRUE(platform::parseXml("<!DOCTYPE a [<!ENTITY b 'c'>]><a/>", 0, &reason)) << reason;
}
