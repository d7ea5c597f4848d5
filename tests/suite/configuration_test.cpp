#include "suite/configuration.h"

#include "tests/support/childprocess.h"
#include "tests/support/syscalltracer.h"
#include "tests/support/testsupport.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <csignal>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using Orv::IOvConfiguration;
using Orv::IOvConfigurationManager;
using Access = IOvConfigurationManager::Access;
using Values = std::vector<std::string>;
using Locks = std::vector<std::uint8_t>;
using Attributes = std::map<std::string, std::string>;
using AttributeLocks = std::map<std::string, int>;
using namespace testsupport;

constexpr const char* kPath = "Orvane/SETTINGS";

class ConfigurationFile : public testing::Test {
protected:
    ConfigurationFile() {
        manager().SetErrorHandler([this](const std::string& message) { messages_.push_back(message); });
    }
    ~ConfigurationFile() override { manager().SetErrorHandler({}); }

    static IOvConfigurationManager& manager() { return IOvConfigurationManager::Instance(); }
    std::string directory() const { return root_.path().string(); }
    fs::path file() const { return root_ / "orvane.xml"; }
    IOvConfiguration* open(Access access = Access::write) const {
        return manager().GetConfiguration(directory(), access);
    }

    bool edit(const std::function<void(IOvConfiguration&)>& steps) const {
        IOvConfiguration* configuration = open();
        if (!configuration)
            return false;
        steps(*configuration);
        return manager().ReleaseConfiguration(configuration);
    }

    Values valuesOf(const std::string& key, Locks* locks = nullptr) const {
        Values values;
        Locks ignored;
        IOvConfiguration* configuration = open();
        configuration->readList(kPath, key, values, locks ? *locks : ignored);
        manager().ReleaseConfiguration(configuration);
        return values;
    }

    /// All that a directory's configuration says, an entry a line; each is what one asks for by its name,
    /// too.
    static std::string toldBy(const fs::path& directory) {
        IOvConfiguration* configuration = manager().GetConfiguration(directory.string(), Access::write);
        std::string told;
        std::vector<std::pair<std::string, std::string>> keys;
        std::vector<Values> texts;
        EXPECT_TRUE(configuration->readAll([&](const Orv::ConfigurationEntry& entry) {
            told.append(entry.path).append("|").append(entry.typeWord).append("|").append(entry.key);
            Values& values = texts.emplace_back();
            for (const auto& part : entry.parts) {
                told.append("|").append(part.name).append("=").append(part.text);
                told += std::string(part.hasText ? "" : "?") + (part.isLocked ? "!" : "");
                values.emplace_back(part.text);
            }
            told += "\n";
            keys.emplace_back(entry.path, entry.key);
            if (!entry.typeWord.empty())
                keys.back().second.clear();
        }));
        for (std::size_t i = 0; i < keys.size(); ++i) {
            Values values;
            Locks locks;
            if (!keys[i].second.empty()) {
                EXPECT_TRUE(configuration->readList(keys[i].first, keys[i].second, values, locks)) << told;
                EXPECT_EQ(values, texts[i]) << told;
            }
        }
        manager().ReleaseConfiguration(configuration);
        return told;
    }

    /// What is kept of the file after a save is what anybody else reads in it.
    void expectKeptAsWritten(const std::string& what) const {
        const TemporaryDirectory other;
        fs::copy_file(file(), other / "orvane.xml");
        EXPECT_EQ(toldBy(root_.path()), toldBy(other.path())) << what;
    }

    std::size_t entriesInDirectory() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(root_.path()), fs::directory_iterator()));
    }

    TemporaryDirectory root_;
    std::vector<std::string> messages_;
};

TEST_F(ConfigurationFile, SaysValuesListsGroupsAndLocks) {
    writeFile(file(), R"(<?xml version="1.0"?>
<configuration>
  <section path="Orvane/SETTINGS/">
    <value name="PLAIN">1</value>
    <value name="LOCKED" locked="true">2 &amp; <![CDATA[<3>]]></value>
    <value name="MISTYPED" locked="Yes">4</value>
    <value name="PLAIN">second</value>
    <value name="EMPTY"/>
    <value name="TAB	BED" type="t">&lt;</value>
    <list name="ITEMS">
      <other>no item</other><?item neither?>
      <item>a &amp;</item><item locked="1">&gt;<deep>no<er/></deep>b<er/></item></list>
    <list name="ALL" locked="yes"><item>a</item><item locked="no">b</item></list>
    <list name="NONE">6</list>
    <value>nameless</value>
  </section>
  <section path="Orvane/OBJECTS">
    <group type="object" name="NET">
      <attribute name="COLOR" locked="yes">0x00ff00</attribute>
      <attribute name="LOCK_ONLY" locked="yes"/>
      <attribute name="EMPTY"/>
      <attribute name="LOCKED_EMPTY" locked="yes" empty="yes"/>
    </group>
    <group type="layer" name="NET" locked="yes"/>
    <group type="many" name="NET">
      <attribute name="1"/><attribute name="2"/><attribute name="3"/><attribute name="4"/><attribute name="5"/>
      <attribute name="6"/><attribute name="7"/><attribute name="8"/><attribute name="9">first</attribute>
      <attribute name="9">second</attribute>
    </group>
  </section>
  <section path="Orvane/SETTINGS"><value name="LATER">5</value></section>
</configuration>
)");
    IOvConfiguration* configuration = open(Access::read);
    ASSERT_NE(configuration, nullptr);
    struct Row {
        const char* key;
        bool present;
        Values values;
        Locks locks;
    };
    const Row kRows[] = {
        {"PLAIN", true, {"1"}, {0}},
        {"LOCKED", true, {"2 & <3>"}, {1}},
        {"MISTYPED", true, {"4"}, {1}},
        {"EMPTY", true, {""}, {0}},
        {"ITEMS", true, {"a &", ">b"}, {0, 1}},
        {"ALL", true, {"a", "b"}, {1, 1}},
        {"TAB BED", true, {"<"}, {0}},
        {"NONE", true, {}, {}},
        {"LATER", true, {"5"}, {0}},
        {"ABSENT", false, {}, {}},
        {"plain", false, {}, {}},
    };
    for (const Row& row : kRows) {
        Values values{"stale"};
        Locks locks{1, 1, 1};
        EXPECT_EQ(configuration->readList(kPath, row.key, values, locks), row.present) << row.key;
        EXPECT_EQ(values, row.values) << row.key;
        EXPECT_EQ(locks, row.locks) << row.key;
    }
    Values keys;
    configuration->listKeys(std::string(kPath) + "/", keys);
    EXPECT_EQ(keys,
              (Values{"PLAIN", "LOCKED", "MISTYPED", "EMPTY", "TAB BED", "ITEMS", "ALL", "NONE", "LATER"}));

    Attributes attributes{{"stale", ""}};
    AttributeLocks locks{{"stale", 1}};
    bool groupLocked = false;
    EXPECT_TRUE(configuration->readGroup("Orvane/OBJECTS/", "object", "NET", attributes, locks, groupLocked));
    EXPECT_EQ(attributes, (Attributes{{"COLOR", "0x00ff00"}, {"EMPTY", ""}, {"LOCKED_EMPTY", ""}}));
    EXPECT_EQ(locks, (AttributeLocks{{"COLOR", 1}, {"LOCK_ONLY", 1}, {"LOCKED_EMPTY", 1}}));
    EXPECT_FALSE(groupLocked);
    EXPECT_TRUE(configuration->readGroup("Orvane/OBJECTS", "layer", "NET", attributes, locks, groupLocked));
    EXPECT_TRUE(attributes.empty() && locks.empty() && groupLocked);
    EXPECT_TRUE(configuration->readGroup("Orvane/OBJECTS", "many", "NET", attributes, locks, groupLocked));
    EXPECT_EQ(attributes["9"], "first");
    EXPECT_FALSE(configuration->readGroup("Orvane/OBJECTS", "size", "NET", attributes, locks, groupLocked));
    EXPECT_TRUE(manager().ReleaseConfiguration(configuration));

    const std::string path = file().string();
    EXPECT_EQ(messages_,
              (Values{path + ":7: PLAIN is given twice, the first counts",
                      path + ":14: text in <list> NONE means nothing outside of <item>",
                      path + ":15: <value> without a name is passed over",
                      path + ":6: MISTYPED: locked=\"Yes\" is neither yes nor no, it is taken as yes",
                      path + ":28: NET 9 is given twice, the first counts"}));
    EXPECT_NE(toldBy(root_.path()).find("|ITEMS|=a &|=>b!\n"), std::string::npos);
}

struct EditCase {
    const char* what;
    std::optional<std::string> before; ///< none for no file
    std::function<void(IOvConfiguration&)> steps;
    std::string after;
};

/// A file with this content between the tags of its document element.
std::string framed(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<configuration>\n" + content + "</configuration>\n";
}

/// With its mark.
std::string inUtf16(const std::string& text) {
    std::string wide = "\xff\xfe";
    for (const char16_t unit : QString::fromStdString(text).toStdU16String())
        wide += {static_cast<char>(unit & 0xff), static_cast<char>(unit >> 8)};
    return wide;
}

TEST_F(ConfigurationFile, KeepsWhatAnEditDoesNotConcern) {
    const EditCase kCases[] = {
        {"a new file", std::nullopt,
         [](IOvConfiguration& c) {
             c.writeValue("Orvane/SETTINGS", "GRID_HR", "254000");
             c.writeList("Orvane", "RECENT", {"a", ""});
             c.writeGroup("Orvane/OBJECTS/", "object", "NET", {{"COLOR", "0xff0000"}, {"NAME", "é"}});
         },
         framed(R"(  <section path="Orvane">
    <list name="RECENT">
      <item>a</item>
      <item/>
    </list>
  </section>
  <section path="Orvane/SETTINGS">
    <value name="GRID_HR">254000</value>
  </section>
  <section path="Orvane/OBJECTS">
    <group type="object" name="NET">
      <attribute name="COLOR">0xff0000</attribute>
      <attribute name="NAME">é</attribute>
    </group>
  </section>
)")},
        {"values, and all that surrounds them",
         R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- of the site -->
<configuration owner="cad">
	<!-- lengths -->
	<section path="Orvane/SETTINGS" note="x">
		<value name="A" why="house rule" locked="yes">1</value> <!-- behind A -->
		<future name="A"><deep/></future>

		<value name="B"><![CDATA[<b>]]></value>
		<value name="C">3</value> <!-- behind C -->
	</section>
	<unknown/>
</configuration>
<!-- end -->
)",
         [](IOvConfiguration& c) {
             c.writeValue(kPath, "A", "2");
             c.writeValue(kPath, "NEW", "n");
             c.removeKey(kPath, "C");
             c.removeKey(kPath, "B");
         },
         R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- of the site -->
<configuration owner="cad">
	<!-- lengths -->
	<section path="Orvane/SETTINGS" note="x">
		<value name="A" why="house rule" locked="yes">2</value> <!-- behind A -->
		<future name="A"><deep/></future>

		 <!-- behind C -->
		<value name="NEW">n</value>
	</section>
	<unknown/>
</configuration>
<!-- end -->
)"},
        {"lists keep the marks of their places, groups lose theirs",
         framed(R"(  <section path="Orvane/SETTINGS">
    <list name="L" locked="yes">
      <!-- first -->
      <item locked="yes">a</item>
      <item>b</item>
      <item>c</item>
    </list>
    <group type="t" name="G" locked="yes">
      <attribute name="Z" locked="yes">1</attribute>
      <!-- about B -->
      <attribute name="B" empty="yes" locked="yes"/>
      <attribute name="OLD">1</attribute>
    </group>
    <value name="V" locked="yes">1</value>
  </section>
)"),
         [](IOvConfiguration& c) {
             c.writeList(kPath, "L", {"a", "x"});
             c.writeList(kPath, "V", {"1", "2"});
             c.removeGroup(kPath, "t", "G");
             c.writeGroup(kPath, "t", "G", {{"Z", "1"}, {"A", "2"}, {"B", ""}});
         },
         framed(R"(  <section path="Orvane/SETTINGS">
    <list name="L" locked="yes">
      <!-- first -->
      <item locked="yes">a</item>
      <item>x</item>
    </list>
    <group type="t" name="G">
      <attribute name="Z">1</attribute>
      <!-- about B -->
      <attribute name="B"/>
      <attribute name="A">2</attribute>
    </group>
    <list name="V" locked="yes">
      <item>1</item>
      <item>2</item>
    </list>
  </section>
)")},
        {"no second one with the same key comes back",
         framed(
             R"(  <section path="Orvane/SETTINGS"><value name="A">1</value><value name="B">1</value></section>
  <section path="Orvane/SETTINGS">
    <value name="A">2</value>
    <list name="B"><item>2</item></list>
  </section>
)"),
         [](IOvConfiguration& c) {
             c.removeKey(kPath, "A");
             c.writeValue(kPath, "B", "3");
             c.writeValue("Other", "C", "4");
             c.writeValue(kPath, "D", "5");
         },
         framed(R"(  <section path="Orvane/SETTINGS"><value name="B">3</value></section>
  <section path="Orvane/SETTINGS">
    <value name="D">5</value>
  </section>
  <section path="Other">
    <value name="C">4</value>
  </section>
)")},
        {"an entry of the other kind that says nothing",
         framed("<section path=\"Orvane/SETTINGS\"><list name=\"L\"><item>a</item></list>\n"
                "<value name=\"V\" locked=\"no\">abc</value><value name=\"W\">1</value></section>\n"),
         [](IOvConfiguration& c) {
             c.writeValue(kPath, "L", "");
             c.writeList(kPath, "V", {});
         },
         framed("<section path=\"Orvane/SETTINGS\"><value name=\"L\"/>\n"
                "<list name=\"V\" locked=\"no\"/><value name=\"W\">1</value></section>\n")},
        {"a false name of the encoding",
         "\xef\xbb\xbf<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<configuration><!-- é -->\n"
         "<section path=\"Orvane/SETTINGS\"><value name=\"A\">1</value></section></configuration>\n",
         [](IOvConfiguration& c) { c.writeValue(kPath, "A", "2"); },
         "\xef\xbb\xbf<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<configuration><!-- é -->\n"
         "<section path=\"Orvane/SETTINGS\"><value name=\"A\">2</value></section></configuration>\n"},
        {"a file on one line, in another encoding",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
         "<configuration><section path=\"Orvane/SETTINGS\"><value "
         "name=\"A\">\xe9</value></section></configuration>\n",
         [](IOvConfiguration& c) { c.writeValue(kPath, "B", "é€"); },
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<configuration><section path=\"Orvane/SETTINGS\"><value name=\"A\">é</value>\n"
         "  <value name=\"B\">é€</value>\n"
         "</section></configuration>\n"},
        {"a file of two bytes a letter, with the other kind of line ends",
         inUtf16("<?xml version='1.0' encoding='UTF-16'?>\r\n<configuration>\r\n<!-- € 𝄞 -->\r\n"
                 "<section path='Orvane/SETTINGS'/>\r\n</configuration>\r\n"),
         [](IOvConfiguration& c) { c.writeValue(kPath, "C", "1"); },
         "<?xml version='1.0' encoding='UTF-8'?>\r\n<configuration>\r\n<!-- € 𝄞 -->\r\n"
         "<section path='Orvane/SETTINGS'>\r\n  <value name=\"C\">1</value>\r\n</section>\r\n"
         "</configuration>\r\n"},
        {"a text with a remark",
         framed("<section path='Orvane/SETTINGS'><value name='A'>1<!-- <a> -->2</value></section>\n"),
         [](IOvConfiguration& c) { c.writeValue(kPath, "A", "3"); },
         framed("<section path='Orvane/SETTINGS'><value name='A'>3<!-- <a> --></value></section>\n")},
        {"a text that goes, beside texts that stay and one that grows",
         framed("<section path='Orvane/SETTINGS'><value name='A'>1</value><value name='B'>&#50;</value>\n"
                "<value name='C'>3</value><list name='L'><item>4</item><item/></list></section>\n"),
         [](IOvConfiguration& c) {
             c.writeValue(kPath, "A", "");
             c.writeValue(kPath, "C", "more <and> more");
         },
         framed("<section path='Orvane/SETTINGS'><value name='A'/><value name='B'>&#50;</value>\n"
                "<value name='C'>more &lt;and&gt; more</value><list name='L'><item>4</item><item/></list>"
                "</section>\n")},
        {"texts alone, one of which was empty",
         framed("<section path='Orvane/SETTINGS'><value name='A'></value><value name='B'>&#50;</value>\n"
                "<value name='C'>3</value><list name='L'><item>4</item><item>5</item></list></section>\n"),
         [](IOvConfiguration& c) {
             c.writeValue(kPath, "A", "<first>\r");
             c.writeValue(kPath, "C", "4");
             c.writeList(kPath, "L", {"4", "five"});
         },
         framed(
             "<section path='Orvane/SETTINGS'><value name='A'>&lt;first&gt;&#13;</value>"
             "<value name='B'>&#50;</value>\n"
             "<value name='C'>4</value><list name='L'><item>4</item><item>five</item></list></section>\n")},
        {"a group whose last attribute goes, and a remark in it",
         framed("<section path='Orvane/SETTINGS'><group type='t' name='G'><!-- why --><attribute\n name='X'>1"
                "</attribute></group><group type='t' name='H'><attribute name='X'>1</attribute></group>"
                "</section>\n"),
         [](IOvConfiguration& c) {
             c.withdrawAttribute(kPath, "t", "G", "X", nullptr);
             c.withdrawAttribute(kPath, "t", "H", "X", nullptr);
         },
         framed("<section path='Orvane/SETTINGS'><group type='t' name='G'><!-- why --></group></section>\n")},
        {"what somebody has laid out by hand",
         framed("<section  note = 'a&#x20;b'\tpath='Orvane/SETTINGS' >\n\n<value locked='no'\n   name = 'A' >"
                "1<!-- why -->2<?who me?></value  >\n<value name='B'/>\n"
                "<list name='L'><!-- l --><item >a</item><item>b</item></list><group type='t' name='G'\n/>\n"
                "<value name='E' encoding = 'base64' >AQ==</value >\n</section >\n"),
         [](IOvConfiguration& c) {
             c.writeValue(kPath, "A", "<&>\r");
             c.writeValue(kPath, "B", "\x01");
             c.writeValue(kPath, "L", "v");
             c.writeGroup(kPath, "t", "G", {{"X", "1"}});
             c.writeValue(kPath, "E", "");
         },
         framed("<section  note = 'a&#x20;b'\tpath='Orvane/SETTINGS' >\n\n<value locked='no'\n   name = 'A' >"
                "&lt;&amp;&gt;&#13;<!-- why --><?who me?></value  >\n"
                "<value name='B' encoding=\"base64\">AQ==</value>\n"
                "<value name='L'>v<!-- l --></value><group type='t' name='G'>\n"
                "  <attribute name=\"X\">1</attribute>\n</group>\n<value name='E' />\n</section >\n")},
    };
    for (const EditCase& row : kCases) {
        fs::remove(file());
        if (row.before)
            writeFile(file(), *row.before);
        EXPECT_TRUE(edit(row.steps)) << row.what;
        EXPECT_EQ(readFile(file()), row.after) << row.what;
        expectKeptAsWritten(row.what);
    }
}

TEST_F(ConfigurationFile, CarriesEveryTextToTheByte) {
    using namespace std::string_literals;
    Values texts{std::string(100'000, 'x'), "\x7f"};
    const std::string joined =
        "| | leading and trailing |line\nfeed\n|carriage\r\nreturn\r|\t\ttabs|]]>|<a "
        "b=\"c\">&amp;'</a>|&#65;&lt;|"
        "<!-- -->|é € 𝄞|nul\0inside|\x01\x1f|\xff invalid|overlong \xc1\x81|surrogate \xed\xa0\x80|"
        "cut short \xe2\x82|\xef\xbf\xbe and \xef\xbf\xbf|\xef\xbb\xbf mark first"s;
    std::istringstream pieces(joined);
    for (std::string text; std::getline(pieces, text, '|');)
        texts.push_back(text);
    ASSERT_TRUE(edit([&](IOvConfiguration& c) {
        Attributes attributes;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            c.writeValue(kPath, "V" + std::to_string(i), texts[i]);
            attributes["A" + std::to_string(i)] = texts[i];
        }
        c.writeList(kPath, "LIST", texts);
        c.writeGroup(kPath, "t", "GROUP", attributes);
        c.writeValue("path &\n\"<é", "key ]]>\t'", "named");
    }));
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(valuesOf("V" + std::to_string(i)), Values{texts[i]}) << i;
    EXPECT_EQ(valuesOf("LIST"), texts);
    struct stat before {
    }, after{};
    stat(file().c_str(), &before);
    EXPECT_TRUE(edit([&](IOvConfiguration& c) {
        Attributes attributes;
        AttributeLocks locks;
        Values values;
        Locks flags;
        bool locked = false;
        EXPECT_TRUE(c.readGroup(kPath, "t", "GROUP", attributes, locks, locked));
        EXPECT_EQ(attributes.size(), texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i)
            EXPECT_EQ(attributes["A" + std::to_string(i)], texts[i]) << i;
        EXPECT_TRUE(c.readList("path &\n\"<é", "key ]]>\t'", values, flags));
        c.writeList(kPath, "LIST", texts);
        c.writeGroup(kPath, "t", "GROUP", attributes);
    }));
    stat(file().c_str(), &after);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_TRUE(messages_.empty()) << messages_.front();

    EXPECT_FALSE(edit([](IOvConfiguration& c) {
        c.writeValue(kPath, "BAD\x01KEY", "x");
        c.writeList(kPath, "LIST", {"fits", std::string(5u << 20, 'x')});
    }));
    EXPECT_EQ(messages_.size(), 2u);
    EXPECT_EQ(valuesOf("LIST"), texts);
}

TEST_F(ConfigurationFile, EditsThatComeToNothingTouchNothing) {
    const std::string text = "<configuration><section path='Orvane/SETTINGS'><value name='A'>1</value>"
                             "<group type='t' name='G'><attribute name='X'>1</attribute></group>"
                             "</section></configuration>";
    writeFile(file(), text);
    EXPECT_TRUE(edit([](IOvConfiguration& c) {
        c.writeValue(kPath, "A", "2");
        c.writeValue("Orvane/SETTINGS/", "A", "1");
        c.writeList(kPath, "A", {"1"});
        c.removeGroup(kPath, "t", "G");
        c.writeGroup(kPath, "t", "G", {{"X", "1"}});
        c.writeValue(kPath, "NEW", "1");
        c.removeKey(kPath, "NEW");
        c.removeGroup(kPath, "t", "ABSENT");
    }));
    EXPECT_EQ(readFile(file()), text);
    EXPECT_EQ(entriesInDirectory(), 1u);
}

TEST_F(ConfigurationFile, WhatIsWrittenIsReadBeforeItIsSaved) {
    writeFile(file(), "<configuration><section path='Orvane/SETTINGS'><value name='A' locked='yes'>1</value>"
                      "<value name='B'>1</value></section></configuration>");
    EXPECT_TRUE(edit([](IOvConfiguration& c) {
        c.writeValue(kPath, "A", "2");
        c.removeKey(kPath, "B");
        c.writeValue(kPath, "C", "3");
        c.writeGroup(kPath, "t", "G", {{"X", "1"}});
        Values values;
        Locks locks;
        EXPECT_TRUE(c.readList(kPath, "A", values, locks));
        EXPECT_EQ(values, Values{"2"});
        EXPECT_EQ(locks, Locks{1});
        EXPECT_FALSE(c.readList(kPath, "B", values, locks));
        EXPECT_TRUE(values.empty() && locks.empty());
        c.listKeys(kPath, values);
        EXPECT_EQ(values, (Values{"A", "C"}));
        c.listGroups(kPath, "t", values);
        EXPECT_EQ(values, Values{"G"});
    }));
}

/// A host's own configuration that knows whole groups only.
class GroupsOnly : public IOvConfiguration {
public:
    explicit GroupsOnly(IOvConfiguration& real) : real_(real) {}
    void writeGroup(const std::string& path, const std::string& type, const std::string& key,
                    const Attributes& attributes) override {
        real_.writeGroup(path, type, key, attributes);
    }
    void writeList(const std::string& path, const std::string& key, const Values& values) override {
        real_.writeList(path, key, values);
    }
    void writeValue(const std::string& path, const std::string& key, const std::string& value) override {
        real_.writeValue(path, key, value);
    }
    void listKeys(const std::string& path, Values& keys) const override { real_.listKeys(path, keys); }
    void listGroups(const std::string& path, const std::string& type, Values& keys) const override {
        real_.listGroups(path, type, keys);
    }
    bool readGroup(const std::string& path, const std::string& type, const std::string& key,
                   Attributes& attributes, AttributeLocks& locks, bool& locked) const override {
        const bool isThere = real_.readGroup(path, type, key, attributes, locks, locked);
        locks.try_emplace("FREE", 0);
        return isThere;
    }
    bool readList(const std::string& path, const std::string& key, Values& values,
                  Locks& locks) const override {
        return real_.readList(path, key, values, locks);
    }
    void removeGroup(const std::string& path, const std::string& type, const std::string& key) override {
        real_.removeGroup(path, type, key);
    }
    void removeKey(const std::string& path, const std::string& key) override { real_.removeKey(path, key); }

private:
    IOvConfiguration& real_;
};

TEST_F(ConfigurationFile, SingleAttributesComeAndGoAlsoInAHostsConfigurationOfWholeGroups) {
    const std::string text =
        "<configuration><section path='Orvane/SETTINGS'><value name='A'>1</value>"
        "<value name='L' locked='yes'>1</value><group type='t' name='G'>"
        "<attribute name='FREE'>1</attribute><attribute name='KEPT' locked='yes'>1</attribute>"
        "</group></section></configuration>";
    const auto steps = [](IOvConfiguration& c) {
        const Values other{"2"};
        c.withdrawKey(kPath, "A", &other);
        c.withdrawKey(kPath, "L", nullptr);
        Values keys;
        c.listKeys(kPath, keys);
        EXPECT_EQ(keys, (Values{"A", "L"}));
        c.withdrawKey(kPath, "A", nullptr);
        c.withdrawAttribute(kPath, "t", "G", "FREE", &other.front());
        c.withdrawAttribute(kPath, "t", "G", "KEPT", nullptr);
        c.writeAttribute(kPath, "t", "G", "NEW", "3");
        c.withdrawAttribute(kPath, "t", "G", "FREE", nullptr);
        c.writeAttribute(kPath, "t", "H", "X", "4");
        c.withdrawAttribute(kPath, "t", "H", "X", nullptr);
        c.listKeys(kPath, keys);
        EXPECT_EQ(keys, Values{"L"});
        c.listGroups(kPath, "t", keys);
        EXPECT_EQ(keys, Values{"G"});
        Attributes attributes;
        AttributeLocks locks;
        bool locked = false;
        EXPECT_TRUE(c.readGroup(kPath, "t", "G", attributes, locks, locked));
        EXPECT_EQ(attributes, (Attributes{{"KEPT", "1"}, {"NEW", "3"}}));
        EXPECT_TRUE(c.keyLockNote(kPath, "L", 0).isEmpty());
    };
    for (const bool ofTheHost : {false, true}) {
        SCOPED_TRACE(ofTheHost);
        writeFile(file(), text);
        EXPECT_TRUE(edit([&](IOvConfiguration& real) {
            GroupsOnly ofGroups(real);
            steps(ofTheHost ? ofGroups : real);
        }));
        EXPECT_EQ(contains(readFile(file()), "'KEPT' locked"), !ofTheHost);
    }
}

TEST_F(ConfigurationFile, ALaterSaveRevertsNothingThatItDidNotChange) {
    ASSERT_TRUE(edit([](IOvConfiguration& c) {
        for (const char* key : {"MINE", "THEIRS", "BOTH", "SAME"})
            c.writeValue(kPath, key, "old");
    }));
    IOvConfiguration* slow = open();
    ASSERT_TRUE(edit([](IOvConfiguration& c) {
        c.writeValue(kPath, "THEIRS", "theirs");
        c.writeValue(kPath, "BOTH", "theirs");
        c.removeKey(kPath, "SAME");
    }));
    slow->writeValue(kPath, "MINE", "mine");
    slow->writeValue(kPath, "BOTH", "mine");
    slow->writeValue(kPath, "SAME", "old");
    EXPECT_TRUE(manager().ReleaseConfiguration(slow));
    EXPECT_EQ(valuesOf("MINE"), Values{"mine"});
    EXPECT_EQ(valuesOf("THEIRS"), Values{"theirs"});
    EXPECT_EQ(valuesOf("BOTH"), Values{"mine"});
    EXPECT_EQ(valuesOf("SAME"), Values{});
}

// A file that is saved again is not parsed again, which must not show: each step is done on a twin too, whose
// file is read afresh because another one was saved in between.
TEST_F(ConfigurationFile, SavingAgainGivesWhatReadingAgainWould) {
    using Step = std::function<void(IOvConfiguration&)>;
    const auto list = [](Values values) -> Step {
        return [=](IOvConfiguration& c) {
            c.writeList(kPath, "LIST", values);
        };
    };
    const auto group = [](Attributes attributes) -> Step {
        return [=](IOvConfiguration& c) {
            c.writeGroup("Orvane/OBJECTS", "object", "NET", attributes);
        };
    };
    const Step steps[] = {
        [](IOvConfiguration& c) { c.writeValue(kPath, "A", "1"); },
        [](IOvConfiguration& c) { c.removeKey(kPath, "A"); },
        [](IOvConfiguration& c) { c.removeKey(kPath, "REMARKED"); },
        [](IOvConfiguration& c) { c.writeValue(kPath, "B", "\x01"); },
        [](IOvConfiguration& c) { c.writeValue(kPath, "B", "<&>"); },
        [](IOvConfiguration& c) { c.removeKey(kPath, "CROWDED"); },
        [](IOvConfiguration& c) { c.removeKey(kPath, "NEXT"); },
        [](IOvConfiguration& c) { c.writeValue(kPath, "A", " 2\r\n"); },
        list({"x", "", "y"}),
        list({"y"}),
        [](IOvConfiguration& c) { c.removeKey(kPath, "LIST"); },
        [](IOvConfiguration& c) { c.writeValue(kPath, "LIST", "3"); },
        list({"4"}),
        group({{"COLOR", "1"}, {"FILL_STYLE", ""}}),
        group({{"FILL_STYLE", "2"}}),
        [](IOvConfiguration& c) { c.removeGroup("Orvane/OBJECTS", "object", "NET"); },
        group({{"COLOR", "3"}}),
        [](IOvConfiguration& c) { c.removeKey(kPath, "B"); },
        [](IOvConfiguration& c) { c.writeValue(kPath, "C", "6"); },
    };
    const std::string start =
        "<configuration>\n <section path='Orvane/SETTINGS'>\n  <!-- one -->\n"
        "  <value name='REMARKED'>1</value> <!-- two -->\n\n"
        "  <value name='CROWDED'/> <value name='NEXT'/>\n </section>\n</configuration>\n";
    const TemporaryDirectory twinRoot;
    const TemporaryDirectory otherRoot;
    const auto editIn = [](const fs::path& directory, const Step& step) {
        IOvConfiguration* configuration = manager().GetConfiguration(directory.string(), Access::write);
        step(*configuration);
        return manager().ReleaseConfiguration(configuration);
    };
    const fs::path twin = twinRoot / "orvane.xml";
    writeFile(file(), start);
    writeFile(twin, start);
    for (std::size_t turn = 0; turn < std::size(steps); ++turn) {
        ASSERT_TRUE(editIn(twinRoot.path(), steps[turn]));
        ASSERT_TRUE(editIn(otherRoot.path(),
                           [&](IOvConfiguration& c) { c.writeValue(kPath, "TURN", std::to_string(turn)); }));
    }
    for (const Step& step : steps) {
        ASSERT_TRUE(edit(step));
        expectKeptAsWritten("a step");
    }
    EXPECT_EQ(readFile(file()), readFile(twin));

    std::string foreign = readFile(file());
    foreign.replace(foreign.find(">6<"), 3, ">7<");
    writeFile(file(), foreign);
    EXPECT_EQ(valuesOf("C"), Values{"7"}) << "what someone else wrote in between counts";
}

/// How many calls of the system it takes to open a directory's configuration; none for memory and signals.
std::size_t callsToOpen(const std::string& directory, int timesBefore) {
    const auto openOnce = [](const std::string& place) {
        IOvConfigurationManager& manager = IOvConfigurationManager::Instance();
        manager.ReleaseConfiguration(manager.GetConfiguration(place, Access::read));
    };
    const std::string other = std::string(OV_INSTALLATION) + "/site";
    SyscallTracer process([&] {
        openOnce(other); // a sanitizer asks the system whenever it meets an object's kind for the first time
        for (int i = 0; i < timesBefore; ++i)
            openOnce(directory);
        SyscallTracer::mark();
        openOnce(directory);
        SyscallTracer::mark();
        return EXIT_SUCCESS;
    });
    const std::set<std::uint64_t> others{SYS_brk,     SYS_mmap,           SYS_munmap,  SYS_mremap,
                                         SYS_madvise, SYS_futex,          SYS_getpid,  SYS_gettid,
                                         SYS_tgkill,  SYS_rt_sigprocmask, SYS_mprotect};
    std::size_t calls = 0;
    while (const auto call = process.next())
        calls += call->entered && !others.contains(call->number);
    EXPECT_EQ(process.finish(), EXIT_SUCCESS);
    return calls;
}

TEST_F(ConfigurationFile, AFileIsReadByFourCallsOfTheSystemAndAnUnchangedOneAskedForByOne) {
    if (!SyscallTracer::isAvailable())
        GTEST_SKIP() << "this system lets no process trace another one";
    const std::string settled = std::string(OV_INSTALLATION) + "/standard";
    ASSERT_TRUE(fs::exists(settled + "/orvane.xml"));
    EXPECT_EQ(callsToOpen(settled, 0), 4u);
    EXPECT_EQ(callsToOpen(settled, 1), 1u);
    writeFile(file(), "<configuration/>");
    EXPECT_EQ(callsToOpen(directory(), 1), 4u) << "what has only just been written may change unseen";
    fs::remove(file());
    // One for the file by its name; the others look for another spelling in a directory that is listed for
    // it.
    EXPECT_LE(callsToOpen(directory(), 1), 11u);
}

TEST_F(ConfigurationFile, DamagedFilesAreReportedOnceAndKeptAside) {
    std::string laughs = "<!DOCTYPE configuration [<!ENTITY e0 \"ha\">";
    for (int i = 1; i < 20; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        laughs += "<!ENTITY e" + std::to_string(i) + " \"" + inner + inner + inner + inner + "\">";
    }
    laughs += "]><configuration>&e19;</configuration>";
    std::string nested = "<configuration>";
    for (int i = 0; i < 100'000; ++i)
        nested += "<a>";
    struct Row {
        const char* what;
        std::string text;
        const char* reason;
    };
    const Row kRows[] = {
        {"empty", "", ":1: "},
        {"cut short", "<configuration>\n<section path='x'>\n", ":3: "},
        {"wrong root", "\n<config/>", ":2: the root element is <config>, not <configuration>"},
        {"not XML at all", "GRID_HR = 254000\n", ":1: "},
        {"not in its encoding", "<configuration>\n\n<!-- \xff -->\n</configuration>", ":3: "},
        {"half of UTF-16", std::string("\xff\xfe<\0c\0o", 7), ":1: "},
        {"growing entities", laughs, ":1: entity declarations are not allowed"},
        {"a file of the system",
         "<!DOCTYPE configuration [\n<!ENTITY x SYSTEM "
         "'file:///etc/passwd'>]><configuration>&x;</configuration>",
         ":2: entity declarations are not allowed"},
        {"bottomless", nested, ":1: "},
    };
    testing::internal::CaptureStderr();
    for (const Row& row : kRows) {
        writeFile(file(), row.text);
        messages_.clear();
        EXPECT_EQ(open(Access::read), nullptr) << row.what;
        EXPECT_TRUE(edit([](IOvConfiguration&) {})) << row.what;
        EXPECT_EQ(readFile(file()), row.text) << row.what;
        ASSERT_EQ(messages_.size(), 1u) << row.what;
        EXPECT_TRUE(messages_[0].starts_with(file().string() + row.reason))
            << row.what << ": " << messages_[0];
        EXPECT_FALSE(contains(messages_[0], "\n"));

        EXPECT_TRUE(edit([](IOvConfiguration& c) { c.writeValue(kPath, "A", "1"); })) << row.what;
        EXPECT_EQ(valuesOf("A"), Values{"1"}) << row.what;
        EXPECT_EQ(readFile(file().string() + ".damaged"), row.text) << row.what;
        EXPECT_EQ(messages_.size(), 2u) << row.what;
        fs::remove(file().string() + ".damaged");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(ConfigurationFile, OneInAnotherEncodingIsRefusedByItsNameAndLeftAlone) {
    using namespace std::string_literals;
    const std::pair<std::string, const char*> kRows[] = {
        {"<?xml version='1.0' encoding='windows-1252'?><configuration/>", "windows-1252"},
        {"<?xml version='1.0' encoding='UTF-16'?><configuration/>", "UTF-16 without its mark"},
        {"<\0c\0o\0"s, "UTF-16 without its mark"},
        {"\xff\xfe\0\0<\0\0\0"s, "UTF-32"},
        {"<\0\0\0c\0\0\0"s, "UTF-32 without its mark"},
    };
    for (const auto& [bytes, encoding] : kRows) {
        writeFile(file(), bytes);
        messages_.clear();
        EXPECT_EQ(open(Access::read), nullptr) << encoding;
        EXPECT_FALSE(edit([](IOvConfiguration& c) { c.writeValue(kPath, "A", "1"); })) << encoding;
        EXPECT_EQ(readFile(file()), bytes);
        ASSERT_EQ(messages_.size(), 2u) << "of the reading and of the save";
        for (const std::string& message : messages_)
            EXPECT_EQ(message, file().string() + ":1: the encoding " + encoding +
                                   " is not read, but UTF-8, UTF-16 and ISO-8859-1 are");
    }
    EXPECT_EQ(entriesInDirectory(), 2u) << "the file and its lock file";
}

TEST_F(ConfigurationFile, MissingAndMisplacedThingsHaveTheirOwnAnswers) {
    EXPECT_EQ(manager().GetConfiguration(directory() + "/missing", Access::write), nullptr);
    EXPECT_EQ(manager().GetConfiguration("", Access::write), nullptr);
    EXPECT_EQ(valuesOf("A"), Values{});
    EXPECT_EQ(entriesInDirectory(), 0u);
    EXPECT_TRUE(messages_.empty());

    // A declared document type is no harm as long as nothing is fetched for it.
    writeFile(file(),
              "<!DOCTYPE configuration SYSTEM 'missing.dtd'><configuration><section path='Orvane/SETTINGS'>"
              "<value name='A'>1</value></section></configuration>");
    EXPECT_EQ(valuesOf("A"), Values{"1"});
    EXPECT_TRUE(messages_.empty());

    fs::remove(file());
    writeFile(file() / "inside", "kept");
    EXPECT_EQ(open(Access::read), nullptr);
    EXPECT_TRUE(edit([](IOvConfiguration& c) { c.writeValue(kPath, "A", "2"); }));
    EXPECT_EQ(valuesOf("A"), Values{"2"});
    EXPECT_EQ(readFile(root_ / "orvane.xml.damaged" / "inside"), "kept");
}

TEST_F(ConfigurationFile, IsSharedThroughALinkAndFoundWithoutRegardToCase) {
    const fs::path shared = root_ / "Shared";
    writeFile(shared / "Orvane.XML", "<configuration/>");
    fs::create_symlink("Shared/Orvane.XML", file());
    ASSERT_TRUE(edit([](IOvConfiguration& c) { c.writeValue(kPath, "A", "1"); }));
    EXPECT_TRUE(fs::is_symlink(file()));
    IOvConfiguration* configuration = manager().GetConfiguration(directory() + "\\SHARED\\");
    ASSERT_NE(configuration, nullptr);
    Values keys;
    configuration->listKeys(kPath, keys);
    EXPECT_EQ(keys, Values{"A"});
    EXPECT_TRUE(manager().ReleaseConfiguration(configuration));
}

TEST_F(ConfigurationFile, ProtectionAgainstWritingIsToldWithPathAndCause) {
    struct Row {
        const char *what, *text;
        mode_t file, directory;
        bool readable;
    };
    constexpr Row kRows[] = {
        {"read-only file", "<configuration/>", 0444, 0755, true},
        {"read-only directory", "<configuration/>", 0644, 0555, true},
        {"unreadable file", "<configuration/>", 0000, 0755, false},
        {"damaged and read-only", "<config/>", 0444, 0755, false},
    };
    for (const Row& row : kRows) {
        TemporaryDirectory root;
        const fs::path path = root / "orvane.xml";
        writeFile(path, row.text);
        ASSERT_TRUE(giveToUnprivileged(path.c_str()));
        ASSERT_TRUE(giveToUnprivileged(root.path().c_str()));
        chmod(path.c_str(), row.file);
        chmod(root.path().c_str(), row.directory);
        EXPECT_EQ(runUnprivileged([&] {
                      IOvConfiguration* read = manager().GetConfiguration(root.path().string(), Access::read);
                      if ((read != nullptr) != row.readable)
                          return 2;
                      manager().ReleaseConfiguration(read);
                      IOvConfiguration* write =
                          manager().GetConfiguration(root.path().string(), Access::write);
                      if (!write)
                          return 3;
                      write->writeValue(kPath, "A", "1");
                      if (manager().ReleaseConfiguration(write) || messages_.empty())
                          return 4;
                      const bool told = messages_.back().starts_with(root.path().string()) &&
                                        messages_.back().ends_with("Permission denied");
                      return told ? 0 : 5;
                  }),
                  0)
            << row.what;
        chmod(root.path().c_str(), 0755);
        chmod(path.c_str(), 0644);
        EXPECT_EQ(readFile(path), row.text) << row.what;
    }
}

TEST_F(ConfigurationFile, AFileThatCannotBeReadForAMomentIsNeitherMovedAsideNorSpared) {
    writeFile(file(), "<configuration><section path='Orvane/SETTINGS'><value name='A'>1</value>"
                      "<value name='B'>1</value></section></configuration>");
    ASSERT_TRUE(giveToUnprivileged(directory().c_str()));
    ASSERT_TRUE(giveToUnprivileged(file().c_str()));
    EXPECT_EQ(runUnprivileged([&] {
                  chmod(file().c_str(), 0200);
                  IOvConfiguration* hopeless = open();
                  hopeless->writeValue(kPath, "B", "2");
                  if (manager().ReleaseConfiguration(hopeless))
                      return 2;
                  IOvConfiguration* configuration = open();
                  configuration->removeKey(kPath, "A");
                  chmod(file().c_str(), 0600);
                  return manager().ReleaseConfiguration(configuration) ? 0 : 3;
              }),
              0);
    EXPECT_EQ(valuesOf("A"), Values());
    EXPECT_EQ(valuesOf("B"), Values{"1"});
    EXPECT_EQ(entriesInDirectory(), 2u) << "the file and its lock file";
}

TEST_F(ConfigurationFile, OneThatIsTooLargeIsToldAndNeitherReadNorReplaced) {
    const std::string refused = "File too large (the limit is 8 MiB)";
    const auto write = [](IOvConfiguration& c) {
        c.writeValue(kPath, "A", "1");
    };
    writeFile(file(), "<configuration/>");
    fs::resize_file(file(), (8u << 20) + 1);
    EXPECT_EQ(open(Access::read), nullptr);
    EXPECT_FALSE(edit(write));
    ASSERT_FALSE(messages_.empty());
    for (const std::string& message : messages_)
        EXPECT_EQ(message, file().string() + ": cannot read: " + refused);
    EXPECT_EQ(fs::file_size(file()), (8u << 20) + 1);

    writeFile(file(), "<configuration/>");
    EXPECT_FALSE(edit([](IOvConfiguration& c) {
        for (const char* key : {"A", "B", "C"})
            c.writeValue(kPath, key, std::string(3u << 20, 'x'));
    }));
    EXPECT_EQ(messages_.back(), file().string() + ": cannot write: " + refused);
    EXPECT_EQ(readFile(file()), "<configuration/>");
    EXPECT_EQ(entriesInDirectory(), 2u) << "the file and its lock file";
}

TEST_F(ConfigurationFile, FullDiskPutsADamagedFileBack) {
    writeFile(file(), "<config/>");
    EXPECT_EQ(runInChild([&] {
                  signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{100, 100};
                  if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
                      return 2;
                  const bool saved =
                      edit([](IOvConfiguration& c) { c.writeValue(kPath, "A", std::string(1000, 'x')); });
                  return !saved && messages_.back().ends_with("cannot write: File too large") ? 0 : 3;
              }),
              0);
    EXPECT_EQ(readFile(file()), "<config/>");
    EXPECT_EQ(entriesInDirectory(), 2u) << "the file and its lock file";
}

} // namespace
