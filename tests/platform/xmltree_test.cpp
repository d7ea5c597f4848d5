#include "platform/xmltree.h"

#include <gtest/gtest.h>

using platform::XmlNode;
using platform::XmlTree;

namespace {

using namespace std::string_literals;

std::string repeated(const std::string& piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
        text += piece;
    return text;
}

std::string attributes(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += " a" + std::to_string(i) + "=''";
    return text;
}

struct Row {
    const char* what;
    std::string bytes;
    const char* problem = ""; ///< none where it is read
};

} // namespace

TEST(XmlTree, RefusesWithLineAndCauseWhatIsNoXmlOrNoneOfOurs) {
    const Row rows[] = {
        {"nothing", "", "line 1: there is no element"},
        {"remarks only", "<!-- a -->\n", "line 2: the file ends too early"},
        {"two roots", "<a/>\n<b/>", "line 2: there is more than one root element"},
        {"text before", "\n x<a/>", "line 2: text stands beside the root element"},
        {"text behind", "<a/>\nx", "line 2: text stands beside the root element"},
        {"a section beside", "<a/><![CDATA[x]]>", "line 1: a tag is not well-formed"},
        {"an end tag only", "</a>", "line 1: an end tag has no start tag"},
        {"a NUL behind", "<a/>\n\0<!"s, "line 2: a control character, or none of XML, stands in the file"},
        {"a NUL in a text", "<a>\0</a>"s, "line 1: a control character, or none of XML, stands in the file"},
        {"a control character", "<a>\n\x1b</a>",
         "line 2: a control character, or none of XML, stands in the file"},
        {"one in a comment", "<a><!--\n\x01--></a>",
         "line 2: a control character, or none of XML, stands in the file"},
        {"one in an attribute", "<a b='\x7f\x02'/>",
         "line 1: a control character, or none of XML, stands in the file"},
        {"a character beyond", "<a>\xef\xbf\xbf</a>",
         "line 1: a control character, or none of XML, stands in the file"},
        {"a reference to a control character", "<a>&#8;</a>", "line 1: a reference is to no character"},
        {"a reference to a surrogate", "<a b='&#xD800;'/>", "line 1: a reference is to no character"},
        {"a reference that overflows", "<a>&#4294967361;</a>", "line 1: a reference is to no character"},
        {"a reference without a number", "<a>&#x;</a>", "line 1: a reference is to no character"},
        {"a reference without an end", "<a>&lt </a>", "line 1: an & begins no reference"},
        {"an unknown entity", "<a>\n&nbsp;</a>", "line 2: the entity nbsp is not known"},
        {"Latin letters", "<a>\xe9</a>", "line 1: a byte is no UTF-8"},
        {"a surrogate", "<a><![CDATA[\xed\xa0\x80]]></a>", "line 1: a byte is no UTF-8"},
        {"a name of none", "<a\xc3/>", "line 1: a byte is no UTF-8"},
        {"an entity", "<!DOCTYPE a [\n<!-- <!ENTITY -->]><a/>",
         "line 2: entity declarations are not allowed"},
        {"an attribute that is declared", "<!DOCTYPE a SYSTEM '[' [\n<!ATTLIST a b (c|d) \"c\">]><a/>",
         "line 2: attribute declarations are not allowed"},
        {"an element that is declared", "<!DOCTYPE a [<!ELEMENT a ANY>]><a/>",
         "line 1: a document type with an inner part is not allowed"},
        {"a document type behind", "<a/><!DOCTYPE a>", "line 1: a document type stands in a wrong place"},
        {"a < in an attribute", "<a b='<'/>", "line 1: a < stands in an attribute"},
        {"an attribute twice", "<a b='1'\nc='2' b='3'/>", "line 2: an attribute is given twice"},
        {"one of many twice", "<a" + attributes(500) + " a77=''/>", "line 1: an attribute is given twice"},
        {"attributes side by side", "<a b=''c=''/>", "line 1: a tag is not well-formed"},
        {"no quotes", "<a b=c/>", "line 1: an attribute has no value in quotes"},
        {"a declaration inside", "<a>\n<?xml version='1.0'?></a>",
         "line 2: a declaration stands elsewhere than at the start"},
        {"one behind a blank", "\n<?XML version='1.0'?><a/>",
         "line 2: a declaration stands elsewhere than at the start"},
        {"a declaration without a version", "<?xml encoding='UTF-8'?><a/>",
         "line 1: the declaration at the start is not well-formed"},
        {"tags that cross", "<a>\n<b></a></b>", "line 2: the end of <b> is missing"},
        {"a longer end", "<a></ab>", "line 1: the end of <a> is missing"},
        {"the end of a section in a text", "<a>]]></a>", "line 1: ]]> stands in a text"},
        {"hyphens in a comment", "<!-- -- --><a/>", "line 1: two hyphens stand in a comment"},
        {"a comment without an end", "<a>\n<!-- \n", "line 2: a comment is not ended"},
        {"an end in a tag", "<a>\n<b c='", "line 2: the file ends inside of <a>"},
        {"an end in a text", "<a>\nb", "line 2: the file ends inside of <a>"},
        {"too deep", repeated("<a>", 256) + repeated("</a>", 256), "line 1: elements are nested too deeply"},
        {"too crowded", "\n<a" + attributes(1001) + "/>", "line 2: too many attributes"},
        {"half a letter", "\xff\xfe<\0a\0/\0>"s, "line 1: something is no UTF-16"},
        {"half a pair", "\xfe\xff\0<\0a\0\n\xd8\0\0/\0>"s, "line 2: something is no UTF-16"},
        {"another encoding", "<?xml version='1.0' encoding='KOI8-R'?><a/>",
         "line 1: the encoding KOI8-R is not read, but UTF-8, UTF-16 and ISO-8859-1 are"},

        {"deep", repeated("<a>", 255) + repeated("</a>", 255)},
        {"crowded", "<a" + attributes(1000) + "/>"},
        {"whatever may stand there", "\xef\xbb\xbf<?xml version=\"1.1\" encoding='utf-8' standalone='no' "
                                     "?><!-- - --><!DOCTYPE a PUBLIC \"x>\" "
                                     "'y'><?p ? ]]> -- <?><a\t\xc3\xa9 = '>\"' b=\"'\n\" ><![CDATA[<&]] "
                                     "]]>&#x10FFFF;&apos;></a ><?q?>\n"},
    };
    for (const Row& row : rows) {
        const auto tree = XmlTree::parse(row.bytes);
        const std::string line = tree ? "" : "line " + std::to_string(tree.error().line) + ": ";
        EXPECT_EQ(tree ? "" : line + tree.error().cause, row.problem) << row.what;
    }
}

TEST(XmlTree, GivesTextsToTheByteAndLinesAndEnds) {
    const auto tree = XmlTree::parse("<r>\r\n<v a='x\r\n\ty&#10;'> 1\r\n2\r3&#13; </v>\n<v> <!-- a\n "
                                     "--> <![CDATA[<\r\n]]><w>no</w>&gt; </v><v>"
                                     " </v>\n<v/></r>");
    ASSERT_TRUE(tree) << tree.error().text();
    const struct {
        std::string text;
        long line;
        std::string whole;
    } rows[] = {
        {" 1\n2\n3\r ", 2, "v a='x\r\n\ty&#10;'> 1\r\n2\r3&#13; </v>"},
        {"  <\n> ", 5, "v> <!-- a\n --> <![CDATA[<\r\n]]><w>no</w>&gt; </v>"},
        {" ", 7, "v> </v>"},
        {"", 8, "v/>"},
    };
    XmlNode element = tree->root().child("v");
    EXPECT_EQ(element.attribute("a"), "x  y\n");
    for (const auto& row : rows) {
        std::string storage;
        EXPECT_EQ(element.text(storage), row.text);
        EXPECT_EQ(tree->lineOf(element), row.line) << row.whole;
        const auto& extent = element.extent();
        EXPECT_EQ(tree->text().substr(extent.name, extent.end - extent.name), row.whole);
        element = element.next("v");
    }
    EXPECT_FALSE(element);
}

TEST(XmlTree, KnowsItsElementsWhenTheirTextsAreOthers) {
    const std::string text = "<r>\n <v a='1'>2</v><v>&lt;</v>\n <w><v b=\"3\"></v></w> <x/></r>";
    auto made = XmlTree::parse(text);
    ASSERT_TRUE(made);
    XmlTree& tree = *made;
    EXPECT_EQ(tree.lineOf(tree.node(5)), 3);
    tree.replaceContents({{1, ""}, {2, "a longer text"}, {4, "&amp;\r\n"}});
    EXPECT_EQ(tree.lineOf(tree.node(5)), 4) << "another line than before";
    EXPECT_EQ(tree.text(),
              "<r>\n <v a='1'></v><v>a longer text</v>\n <w><v b=\"3\">&amp;\r\n</v></w> <x/></r>");
    const auto again = XmlTree::parse(tree.text());
    ASSERT_TRUE(again);
    ASSERT_EQ(tree.size(), again->size());
    for (std::uint32_t place = 0; place < tree.size(); ++place) {
        const XmlNode one = tree.node(place);
        const XmlNode other = again->node(place);
        std::string storage;
        std::string otherStorage;
        EXPECT_EQ(one.text(storage), other.text(otherStorage)) << place;
        EXPECT_EQ(one.extent().name, other.extent().name);
        EXPECT_EQ(one.extent().end, other.extent().end);
        EXPECT_EQ(one.extent().hasText, other.extent().hasText);
        EXPECT_EQ(one.extent().isPlain, other.extent().isPlain);
        EXPECT_EQ(one.attribute("a"), other.attribute("a"));
        EXPECT_EQ(one.attribute("b"), other.attribute("b"));
    }
}
