#include "schemes/objectschema.h"

#include "tests/support/childprocess.h"
#include "tests/support/testsupport.h"

#include <cerrno>

using ovsettings::CObjectSchema;
using namespace testsupport;

namespace {

constexpr const char* kRoot = "<Schema_file version=\"1.2\"><schema>";
constexpr const char* kEnd = "</schema></Schema_file>";

std::string nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<schema>";
    for (int i = 0; i < depth; ++i)
        text += "</schema>";
    return text;
}

class ObjectSchema : public testing::Test {
protected:
    TemporaryDirectory directory_;
    const std::string path_ = (directory_ / "some.ovc").string();
};

} // namespace

TEST_F(ObjectSchema, WritesTheFileToTheLetter) {
    CObjectSchema schema;
    schema.addItem("OV", {"TEXT", "0x1", "0x1"});
    schema.addItem("OV", {"ARC", "0xff00", "0xffffff"});
    schema.addItem("OV", {"LABEL", "0x2", "0x2"});
    schema.addItem("ICT", {"TEXT", "0x3", "0x4"});
    ASSERT_TRUE(schema.write(path_));
    EXPECT_EQ(readFile(path_), R"(<?xml version="1.0"?>
<Schema_file version="1.2">
  <schema>
    <schematic>
      <item name="ARC" color="0xff00"/>
      <item name="LABEL" text="0x2"/>
      <item name="TEXT" text="0x1"/>
    </schematic>
    <ict>
      <item name="TEXT" color="0x3" text="0x4"/>
    </ict>
  </schema>
</Schema_file>
)");
}

TEST_F(ObjectSchema, AWriteThatFailsLeavesTheOldFileWhole) {
    writeFile(path_, "old");
    std::filesystem::permissions(path_, std::filesystem::perms::owner_read);
    for (const std::string& file : {path_, directory_.path().string()})
        ASSERT_TRUE(giveToUnprivileged(file.c_str()));
    EXPECT_EQ(runUnprivileged([this] {
                  CObjectSchema schema;
                  schema.addItem("OV", {"ARC", "0x1", "0x1"});
                  const auto written = schema.write(path_);
                  return written.code() == EACCES && written.error().path == path_ ? 0 : 1;
              }),
              0);
    EXPECT_EQ(readFile(path_), "old");
}

TEST_F(ObjectSchema, TrustsNeitherRootNorVersionNorOrder) {
    std::vector<std::string> told;
    CObjectSchema schema([&told](const std::string& text) { told.push_back(text); });
    ASSERT_TRUE(schema.parse(R"(<?xml version="1.0" encoding="ISO-8859-1"?><any version="9">
        <strange/> text <!-- remark -->
        <schema>
          <ict><whatever text="0x1" name="A"/><item name="A" color="0x2"/></ict>
          <schematic><item color="ff" name="UNPLACED COMPONENT" extra=""/><item name="low"/></schematic>
        </schema></any>)"));
    EXPECT_EQ(told, std::vector<std::string>{"Error during XML parsing\n"});
    ASSERT_NE(schema.item("ict", "a"), nullptr);
    EXPECT_EQ(schema.item("ict", "a")->color, "0x2") << "a later item replaces the earlier one";
    EXPECT_EQ(schema.item("ict", "a")->text, "");
    ASSERT_NE(schema.item("schematic", "Unplaced component"), nullptr);
    EXPECT_EQ(schema.item("schematic", "low"), nullptr) << "names stand in upper case in a file";
    EXPECT_EQ(schema.item("SCHEMATIC", "UNPLACED COMPONENT"), nullptr);
}

/// A parser that compares each attribute with all the others would be busy with it for an hour.
std::string crowdedElement(int attributes) {
    std::string element = "<item";
    for (int i = 0; i < attributes; ++i)
        element += " a" + std::to_string(i) + "='>'";
    return element + "/>";
}

TEST_F(ObjectSchema, TakesManyEqualSignsWhereTheyAreNoAttributes) {
    const std::string signs(5000, '=');
    writeFile(path_, kRoot +
                         ("<!--<a \"" + signs + "--><?b " + signs + "?><ict><![CDATA[<c " + signs + "]]>" +
                          signs + "<item color='" + signs + "' name=\"NET\"/></ict>") +
                         kEnd);
    CObjectSchema schema;
    EXPECT_TRUE(schema.read(path_)) << schema.error();
    EXPECT_NE(schema.item("ict", "NET"), nullptr);
}

TEST_F(ObjectSchema, RefusesWhatIsNoDocumentAndSaysWhy) {
    const std::string secret = (directory_ / "secret").string();
    writeFile(secret, "0xabcdef");
    const std::string document = std::string(kRoot) + "<ict><item name=\"NET\" color=\"0x1\"/></ict>" + kEnd;
    const std::pair<const char*, std::string> rows[] = {
        {"empty", ""},
        {"binary", std::string("\0\x01\x89PNG\xff\xfe", 8)},
        {"Latin-1", std::string(kRoot) + "<ict><item name=\"\xe4\"/></ict>" + kEnd},
        {"deep", nested(10000)},
        {"entities that grow",
         "<!DOCTYPE a [<!ENTITY b \"" + std::string(1000, 'x') + "\"><!ENTITY c \"" +
             "&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;\">]><a c=\"&d;&e;\"/>"},
        {"an entity from outside",
         "<!DOCTYPE a [<!ENTITY e SYSTEM \"file://" + secret + "\">]><a><schema><ict>&e;</ict></schema></a>"},
        {"an element of many attributes", "<a><schema>" + crowdedElement(100'000) + "</schema></a>"},
        {"a long attribute", "<a><schema b=\"" + std::string(11'000'000, 'x') + "\"/></a>"},
    };
    for (const auto& [what, bytes] : rows) {
        SCOPED_TRACE(what);
        writeFile(path_, bytes);
        CObjectSchema schema;
        EXPECT_FALSE(schema.read(path_));
        EXPECT_EQ(schema.error().rfind(path_ + ": ", 0), 0u) << schema.error();
        EXPECT_FALSE(contains(schema.error(), "\n"));
    }
    for (std::size_t length = 0; length < document.size(); ++length) {
        CObjectSchema schema;
        EXPECT_FALSE(schema.parse(document.substr(0, length))) << length;
        EXPECT_EQ(schema.item("ict", "NET"), nullptr);
    }
}

TEST_F(ObjectSchema, TellsAMissingFileFromOneThatCannotBeRead) {
    CObjectSchema missing;
    EXPECT_FALSE(missing.read(path_));
    EXPECT_EQ(missing.error(), "");

    CObjectSchema directory;
    EXPECT_FALSE(directory.read(directory_.path().string()));
    EXPECT_TRUE(contains(directory.error(), directory_.path().string()));

    writeFile(path_, "");
    std::filesystem::resize_file(path_, 100u << 20);
    CObjectSchema large;
    EXPECT_FALSE(large.read(path_));
    EXPECT_TRUE(contains(large.error(), path_));
}

TEST_F(ObjectSchema, DoesNotAnnoyWithAFileOfStrangeElements) {
    std::string strange;
    for (int i = 0; i < 1000; ++i)
        strange += "<strange/>";
    int told = 0;
    CObjectSchema schema([&told](const std::string&) { ++told; });
    EXPECT_TRUE(schema.parse("<a>" + strange + "<schema><ict><item name=\"NET\"/></ict></schema></a>"));
    EXPECT_EQ(told, 10);
    EXPECT_NE(schema.item("ict", "NET"), nullptr);
}
