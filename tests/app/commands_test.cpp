// The commands list, get, set, explain and describe, as the built program runs them on real directories.

#include "tests/app/program.h"
#include "tests/support/configurationtext.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace {

namespace fs = std::filesystem;
using testing::Test;
using namespace testsupport;

class Commands : public Test {
protected:
    Commands() {
        writeLevel(installation.site(),
                   setting("ROUTE", "1", true) + setting("SHEETSIZE", "6") +
                       list("Orvane/SETTINGS", "PROPERTIES_TOOLTIP", {"REFDES", "VALUE"}, 2) +
                       object("NET", attribute("COLOR", "0x00c000", true)));
    }

    fs::path userFile() const { return installation.user() / "orvane.xml"; }

    Installation installation;
};

struct CommandRow {
    Words words;
    int status;
    const char* out; ///< part of standard output
    const char* err; ///< part of the one line on standard error; empty for none
};

void expectOutcome(const CommandRow& row) {
    std::string title;
    for (const std::string& word : row.words)
        title += word + ' ';
    SCOPED_TRACE(title);
    const Outcome outcome = runProgram(row.words);
    EXPECT_EQ(outcome.status, row.status);
    EXPECT_TRUE(contains(outcome.out, row.out));
    EXPECT_TRUE(contains(outcome.err, row.err));
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), *row.err ? 1 : 0) << outcome.err;
}

TEST_F(Commands, EachCommandLineIsDoneOrRefusedWithOneClearLine) {
    constexpr const char* kNoEmptyValue =
        "LANGUAGE cannot be emptied, since an empty value is never written; it stays \"Default\"";
    const CommandRow rows[] = {
        {{"--help"}, 0, "usage: orvane-settings", ""},
        {{"--version"}, 0, "orvane-settings ", ""},
        {{"frobnicate"}, 2, "", "unknown command frobnicate"},
        {{"--frobnicate", "list"}, 2, "", "unknown option --frobnicate"},
        {{""}, 2, "", "the command is empty"},
        {{"--home"}, 2, "", "a value is missing after --home"},
        {{"--project"}, 2, "", "a value is missing after --project"},
        {{"--project", "/nowhere.prj", "get", "UNIT"}, 0, "in\n", ""},
        {{"list", "--all"}, 2, "", "not --all"},
        {{"list", "--home=/opt"}, 2, "", "--home stands before the command"},
        {{"set", "GRID_HR", "1", "--wdir", "/u"}, 2, "", "--wdir stands before the command"},
        {{"get", "\x1b[2J\n"}, 1, "", "there is no key ?[2J?"},
        {{"get"}, 2, "", "get takes one key"},
        {{"get", "GRID_HR", "UNIT"}, 2, "", "get takes one key"},
        {{"set"}, 2, "", "set takes a key"},
        {{"explain"}, 2, "", "explain takes one key"},
        {{"describe"}, 2, "", "describe takes keys"},
        {{"describe", "--all", "UNIT"}, 2, "", "describe takes --json, not --all"},
        {{"describe", "UNIT", "NOPE"}, 1, "", "there is no key NOPE"},
        {{"set", "--force"}, 2, "", "set takes a key"},
        {{"print-colors", "--all"}, 2, "", "print-colors takes --json and nothing else"},
        {{"tour"}, 2, "", "tour takes the directory"},
        {{"tour", "a", "b"}, 2, "", "not \"b\""},
        {{"tour", "a", "--size", "800"}, 2, "", "WIDTHxHEIGHT"},
        {{"tour", "a", "--size", "0x600"}, 2, "", "WIDTHxHEIGHT"},
        {{"get", "UNIT"}, 0, "in\n", ""},
        {{"get", "MRU_PROJECTS"}, 0, "", ""},
        {{"get", "NET"}, 0, "1\n1\n0x00c000\n1\n0\n1\n", ""},
        {{"get", "grid_hr"}, 1, "", "there is no key grid_hr"},
        {{"explain", "NOPE"}, 1, "", "there is no key NOPE"},
        {{"set", "NOPE", "1"}, 1, "", "there is no key NOPE"},
        {{"set", "GRID_HR"}, 2, "", "GRID_HR has 1 field, not 0"},
        {{"set", "NET", "1", "1"}, 2, "", "NET has 6 fields, not 2"},
        {{"set", "GRIDON", "yes"}, 1, "", "a flag is 0 or 1"},
        {{"set", "GRID_HR", "inf"}, 1, "", "GRID_HR cannot be \"inf\""},
        {{"set", "GRID_HR", "nan"}, 1, "", "GRID_HR cannot be \"nan\""},
        {{"set", "GRID_HR", "1,5"}, 1, "", "GRID_HR cannot be \"1,5\""},
        {{"set", "GRID_HR", "1e39"}, 1, "", "GRID_HR cannot be \"1e39\""},
        {{"set", "GRID_HR", ""}, 1, "", "GRID_HR cannot be \"\""},
        {{"set", "PIN", "2", "1", "0xff00ff", "0", "0", "1"}, 1, "", "PIN, VISIBLE cannot be \"2\""},
        {{"set", "PIN", "1", "1", "0xff00f", "0", "0", "1"}, 1, "", "PIN, COLOR cannot be \"0xff00f\""},
        {{"set", "PIN", "1", "1", "0xff00ff", "0", "0", "1.5"}, 1, "", "a whole number is needed"},
        {{"set", "GRID_LAYER", "#ffffff", "0", "0"}, 1, "", "GRID_LAYER, COLOR cannot be"},
        {{"set", "ICTBUS", "0xffffff", "black"}, 1, "", "ICTBUS, TEXTCOLOR cannot be"},
        {{"set", "A4_SIZE_HR", "29699999.02", "wide"}, 1, "", "A4_SIZE_HR, HEIGHT cannot be"},
        {{"set", "PLOT", "Sans", "Book", "400", "0", "0", "0", "0", "2"}, 1, "", "PLOT, BOLD cannot be"},
        {{"set", "LANGUAGE", "a\x01"}, 1, "", "without control characters"},
        {{"set", "GRID_HR", "25399"},
         1,
         "",
         "GRID_HR cannot be \"25399\": it has to be between 0.01 and 10.00 in"},
        {{"set", "Z_SIZE_HR", "2540000", "1"},
         1,
         "",
         "Z_SIZE_HR, HEIGHT cannot be \"1\": it has to be between 1"},
        {{"set", "BUS", "1", "1", "0xffff00", "1", "0", "11"}, 1, "", "it has to be between 1 and 10;"},
        {{"set", "SCALEFACTOR", "0"}, 1, "", "it has to be above 0; --force"},
        {{"set", "SNAPTOPIN", "0", "--force"}, 2, "", "SNAPTOPIN has 1 field, not 2"},
        {{"set", "--force", "SNAPTOPIN", "yes"}, 1, "", "a flag is 0 or 1"},
        {{"set", "TEXTORIGIN", "10"}, 1, "", "9 (Lower right); --force stores it all the same"},
        {{"set", "LANGUAGE", "Klingon"}, 1, "", "one of Default (Default), ENG (English), JPN (Japanese)"},
        {{"set", "MRU_PROJECTS"}, 0, "", ""},
        {{"set", "LANGUAGE", ""}, 1, "", kNoEmptyValue},
    };
    for (const CommandRow& row : rows)
        expectOutcome(row);
    EXPECT_FALSE(fs::exists(userFile())) << "a refused command has written " << readFile(userFile());
}

TEST_F(Commands, ValuesThatAreSetAreInTheUsersFileAndComeBack) {
    struct Row {
        const char* key;
        Words values;
        const char* inFile;
    };
    const Row rows[] = {
        {"GRID_HR", {"508000"}, ">508000<"},
        {"UNDO_LEVEL", {"-5"}, ">-5<"},
        {"PRINTDEVICENAME", {"--help"}, ">--help<"},
        {"PIN", {"0", "1", "0x123456", "0", "2", "-3"}, ">0x123456<"},
        {"PLOT", {"Größe <&>", "Book", "400", "0", "1", "0", "0", "1"}, "Größe &lt;&amp;&gt;"},
        {"KANJI", {"", "0", "0", "0", "0", "0", "0", "0"}, "\"KANJI\""},
        {"MRU_PROJECTS", {"/a/b c.prj", "", "/d;e.prj"}, "/a/b c.prj"},
        {"A4_SIZE_HR", {"29699999.5", "1e3"}, ">29699999.5<"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        Words words{"set", row.key};
        words.insert(words.end(), row.values.begin(), row.values.end());
        const Outcome set = runProgram(words);
        EXPECT_EQ(set.status, 0) << set.err;
        EXPECT_EQ(set.out + set.err, "");
        EXPECT_TRUE(contains(readFile(userFile()), row.inFile));

        std::string lines;
        for (const std::string& value : row.values)
            lines += value + '\n';
        EXPECT_EQ(runProgram({"get", row.key}).out, lines);
    }
    EXPECT_EQ(runProgram({"set", "GRID_HR", "254000"}).status, 0);
    EXPECT_FALSE(contains(readFile(userFile()), "GRID_HR")) << "a default is not written";
}

TEST_F(Commands, SetFindsTheUsersDirectoryInAnotherCase) {
    auto list = installation.user().string();
    list[list.rfind('/') + 1] = 'U';
    list += ";" + installation.site().string() + ";" + installation.standard().string();
    EXPECT_EQ(runProgram({"--wdir", list, "set", "SHEETSIZE", "2"}).status, 0);
    EXPECT_TRUE(contains(readFile(userFile()), "SHEETSIZE"));
}

TEST_F(Commands, SetTellsWhatIsStoredWhereSixDigitsAreNotEnough) {
    const Outcome rounded = runProgram({"set", "GRID_HR", "1234567"});
    EXPECT_EQ(rounded.status, 0) << rounded.err;
    EXPECT_EQ(rounded.out, "GRID_HR: 1234567 is stored as 1.23457e+06 (six significant digits)\n");
    EXPECT_EQ(runProgram({"set", "GRID_HR", "1016000"}).out, "") << "exponent form alone loses nothing";
    EXPECT_EQ(runProgram({"set", "PIN", "1", "1", "0xABCDEF", "0", "0", "1"}).out, "");
}

TEST_F(Commands, SetJudgesInTheUnitInUseWhatItChangesAndStoresWhatIsForced) {
    EXPECT_EQ(runProgram({"set", "GRID_HR", "1000"}).status, 1);
    EXPECT_EQ(runProgram({"set", "UNIT", "mm"}).status, 0);
    EXPECT_EQ(runProgram({"set", "GRID_HR", "1000"}).status, 0);
    EXPECT_EQ(runProgram({"set", "BUS", "1", "1", "0xffff00", "1", "0", "11"}).status, 1);
    EXPECT_EQ(runProgram({"set", "--force", "BUS", "1", "1", "0xffff00", "1", "0", "11"}).status, 0);
    EXPECT_EQ(runProgram({"set", "BUS", "1", "1", "0x00ff00", "1", "0", "11"}).status, 0)
        << "the width stays as it was";
    EXPECT_EQ(runProgram({"get", "BUS"}).out, "1\n1\n0x00ff00\n1\n0\n11\n");
}

TEST_F(Commands, DescribeTellsWhatIsDeclaredInTheUnitInUse) {
    EXPECT_EQ(runProgram({"describe", "GRID_HR", "ROUTE"}).out,
              "GRID_HR (number)\n"
              "  caption  Grid Spacing\n"
              "  meaning  The spacing of the grid.\n"
              "  page     Grid\n"
              "  unit     10 nm\n"
              "  limits   between 0.01 and 10.00 in (25400 to 25400000 as it is stored)\n"
              "  default  254000 (0.10 in)\n"
              "\n"
              "ROUTE (number)\n"
              "  caption  Route Mode\n"
              "  meaning  How nets are routed.\n"
              "  page     Nets\n"
              "  choices  0  Straight\n"
              "           1  Orthogonal\n"
              "           2  Avoidance\n"
              "  default  2\n");
    ASSERT_EQ(runProgram({"set", "UNIT", "mm"}).status, 0);
    EXPECT_TRUE(contains(runProgram({"describe", "GRID_HR"}).out, "between 0.01 and 10.00 mm"));
    EXPECT_TRUE(contains(runProgram({"describe", "NET"}).out, "\nLINE_THICKNESS\n  caption  Width\n"));
    EXPECT_EQ(runProgram({"--home", "/nowhere", "describe", "ROUTE"}).status, 0)
        << "no length, so nobody asks for the unit";
    EXPECT_EQ(runProgram({"--home", "/nowhere", "describe", "GRID_HR"}).status, 1);

    const std::string json = runProgram({"describe", "--json", "Z_SIZE_HR", "MRU_PROJECTS"}).out;
    const QJsonArray settings = QJsonDocument::fromJson(QByteArray::fromStdString(json)).array();
    ASSERT_EQ(settings.size(), 2);
    const QJsonArray fields = settings[0].toObject()["fields"].toArray();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[1].toObject()["name"].toString(), "HEIGHT");
    EXPECT_EQ(settings[0].toObject()["pages"], QJsonArray({"New Sheet"}));
    EXPECT_EQ(settings[1].toObject()["pages"], QJsonArray());
    EXPECT_EQ(fields[1].toObject()["default"].toString(), "2540000");
    EXPECT_TRUE(fields[1].toObject()["limits"].toString().startsWith("between 1 and 100000000 mm"));
    EXPECT_TRUE(settings[1].toObject()["limits"].isNull());
    EXPECT_TRUE(settings[1].toObject()["default"].toArray().isEmpty());
}

TEST_F(Commands, LockedFieldIsRefusedNamingTheDirectoryAndAnEqualOneOfSeveralPasses) {
    const std::string site = installation.site().string();
    const CommandRow rows[] = {
        {{"set", "ROUTE", "2"}, 1, "", "ROUTE is locked by "},
        {{"set", "ROUTE", "1"}, 1, "", "ROUTE is locked by "},
        {{"set", "NET", "1", "1", "0x00ff00", "1", "0", "1"}, 1, "", "NET, COLOR is locked by "},
        {{"set", "PROPERTIES_TOOLTIP", "REFDES", "PART"}, 1, "", "PROPERTIES_TOOLTIP, entry 2 is locked by "},
        {{"set", "PROPERTIES_TOOLTIP", "REFDES"}, 1, "", "PROPERTIES_TOOLTIP, entry 1 is locked by "},
    };
    for (const CommandRow& row : rows) {
        expectOutcome(row);
        EXPECT_TRUE(contains(runProgram(row.words).err, " is locked by " + site + '\n'));
    }
    EXPECT_FALSE(fs::exists(userFile())) << readFile(userFile());
    EXPECT_EQ(runProgram({"set", "NET", "1", "1", "0x00C000", "1", "0", "7"}).status, 0);
    EXPECT_EQ(runProgram({"get", "NET"}).out, "1\n1\n0x00c000\n1\n0\n7\n");
}

// One line a level with runs of blanks made one, so that the test does not depend on the length of the paths.
std::string squeezed(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c != ' ' || (!result.empty() && result.back() != ' '))
            result += c;
    }
    return result;
}

TEST_F(Commands, ExplainTellsWhatEachDirectorySaysAndWhatWon) {
    writeLevel(installation.user(), setting("ROUTE", "0") + setting("SHEETSIZE", "3") +
                                        list("Orvane/SETTINGS", "PROPERTIES_TOOLTIP", {"A&#10;B", "C", "D"}));
    const std::string site = installation.site().string();
    const std::string user = installation.user().string();

    const Outcome locked = runProgram({"explain", "ROUTE"});
    ASSERT_EQ(locked.status, 0) << locked.err;
    const std::string route = squeezed(locked.out);
    EXPECT_TRUE(route.starts_with("ROUTE (number)\n built-in default 2\n")) << route;
    for (const std::string& line :
         {installation.standard().string() + " -", site + " 1 locks",
          user + " 0 ignored, for the field is locked", "in force 1 from " + site + ", locked by " + site}) {
        EXPECT_TRUE(contains(route, ' ' + line + '\n')) << line << " in\n" << route;
    }
    EXPECT_LT(route.find(site), route.find(user)) << "from the installation to the user";

    const std::string sheet = squeezed(runProgram({"explain", "SHEETSIZE"}).out);
    EXPECT_TRUE(contains(sheet, " in force 3 from " + user + '\n'));
    const std::string tooltip = squeezed(runProgram({"explain", "PROPERTIES_TOOLTIP"}).out);
    const std::string dropped = " ignored, for the list has locked entries and another length\n";
    for (const std::string entry : {"A?B", "C", "D"})
        EXPECT_TRUE(contains(tooltip, user + ' ' + entry + dropped));
    const std::string net = squeezed(runProgram({"explain", "NET"}).out);
    EXPECT_TRUE(contains(net, "\nCOLOR\n built-in default 0x00ff00\n"));
    EXPECT_TRUE(contains(net, " in force 1 from the built-in default\n\nLINE_STYLE\n"));
}

TEST_F(Commands, NoTerminalObeysWhatAFileOrANameSaysAndAPipeGetsItAsItIs) {
    const std::string acting = "\x1b[2J\x9b\u009b\u202e\nEND\x7f";
    const std::string shown = "?[2J????END?";
    const auto base64 = QByteArray::fromStdString(acting).toBase64().toStdString();
    writeLevel(installation.user(),
               section("Orvane/SETTINGS", "<value name='LANGUAGE' encoding='base64'>" + base64 + "</value>"));
    writeFile(installation.home() / "odd.scm", "SCHEME " + acting.substr(0, acting.find('\n')) + "\n");
    const std::string odd = (installation.user() / acting).string();
    const std::string levels =
        installation.user().string() + ';' + odd + ';' + installation.standard().string();
    const Words commands[] = {
        {"get", "LANGUAGE"},
        {"explain", "LANGUAGE"},
        {"list", "--changed"},
        {"list", "--changed", "--json"},
        {"scheme", "show", (installation.home() / "odd.scm").string()},
        {"scheme", "show", odd},
        {"--wdir", levels, "get", "UNIT"},
        {"--project", odd, "tour", (installation.home() / "pictures").string()},
        {"--page", acting, "tour", odd},
        {acting},
    };
    for (const Words& words : commands) {
        SCOPED_TRACE(testing::PrintToString(words));
        const std::string both[] = {runOnTerminal(words).out, runProgram(words).err};
        EXPECT_TRUE(contains(both[0], "[2J"));
        for (const std::string& text : both) {
            for (const char* order : {"\x1b", "\x9b", "\x7f", "\u202e", "\nEND"})
                EXPECT_EQ(text.find(order), std::string::npos) << text;
        }
    }
    EXPECT_EQ(runOnTerminal({"get", "LANGUAGE"}).out, shown + '\n');
    EXPECT_EQ(runProgram({"get", "LANGUAGE"}).out, acting + '\n');
    EXPECT_TRUE(contains(runProgram({"list", "--changed", "--json"}).out,
                         "\"\\u001b[2J\ufffd\u009b\u202e\\nEND\x7f\"\n"));
}

QJsonArray listJson(const Words& more, const Circumstances& circumstances = {}) {
    Words words{"list", "--json"};
    words.insert(words.end(), more.begin(), more.end());
    QJsonParseError error;
    const auto document =
        QJsonDocument::fromJson(QByteArray::fromStdString(runProgram(words, circumstances).out), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    return document.array();
}

TEST_F(Commands, ListGivesEveryKeyWithItsLocksAndOriginsAsTextAndAsJson) {
    ASSERT_EQ(runProgram({"set", "MRU_SCHEMA", "Größe \"1\""}).status, 0);
    EXPECT_EQ(listJson({}).size(), 255 + OV_SPARE_SETTINGS);

    QMap<QString, QJsonObject> changed;
    for (const QJsonValue& row : listJson({"--changed"}))
        changed.insert(row["key"].toString(), row.toObject());
    EXPECT_EQ(changed.keys(), QStringList({"MRU_SCHEMA", "NET", "PROPERTIES_TOOLTIP", "ROUTE", "SHEETSIZE"}));
    EXPECT_EQ(changed["MRU_SCHEMA"]["values"], QJsonArray({QStringLiteral("Größe \"1\"")}));
    const QString site = QString::fromStdString(installation.site().string());
    const QJsonValue none(QJsonValue::Null);
    EXPECT_EQ(changed["NET"]["kind"], "object");
    EXPECT_EQ(changed["NET"]["fields"][2], "COLOR");
    EXPECT_EQ(changed["NET"]["caption"], "Net");
    EXPECT_EQ(changed["NET"]["pages"], QJsonArray({"Objects"}));
    EXPECT_EQ(changed["NET"]["limits"], QJsonArray({none, none, none, none, none, "between 1 and 10"}));
    EXPECT_EQ(changed["ROUTE"]["unit"], QJsonArray({none}));
    EXPECT_EQ(changed["ROUTE"]["choices"][0][2]["caption"], "Avoidance");
    EXPECT_EQ(changed["NET"]["locks"], QJsonArray({false, false, true, false, false, false}));
    EXPECT_EQ(changed["NET"]["lockedBy"], QJsonArray({none, none, site, none, none, none}));
    EXPECT_EQ(changed["ROUTE"]["origins"], QJsonArray({site}));
    EXPECT_EQ(changed["ROUTE"]["builtIn"], QJsonArray({"2"}));

    const std::string table = squeezed(runProgram({"list", "--changed"}).out);
    EXPECT_TRUE(contains(table, "\nROUTE number " + site.toStdString() + " locked 1\n"));
    EXPECT_TRUE(contains(table, " locked: COLOR 1, 1, 0x00c000, 1, 0, 1\n"));
}

TEST_F(Commands, PrintColorsShowsEachObjectOnScreenAndInPrint) {
    ASSERT_EQ(runProgram({"set", "PRINTINGCOLORS", "0x102030", "0x000000", "0x0000ff"}).status, 0);
    const auto colors = squeezed(runProgram({"print-colors"}).out);
    EXPECT_TRUE(contains(colors, "\n5 NET 0x00c000 0x000000\n"));

    ASSERT_EQ(runProgram({"set", "PRINTFORCEBLACK", "0"}).status, 0);
    const auto rows =
        QJsonDocument::fromJson(QByteArray::fromStdString(runProgram({"print-colors", "--json"}).out))
            .array();
    ASSERT_EQ(rows.size(), 17);
    EXPECT_EQ(rows[2]["object"], "TEXT");
    EXPECT_EQ(rows[2]["print"], "0x0000ff");
    EXPECT_EQ(rows[6]["print"], "0x102030") << "ATTRIBUTE has the slot of LINE";
    EXPECT_EQ(runProgram({"get", "PRINTING"}).out, "0\n") << "nothing is stored";
}

TEST_F(Commands, NumbersKeepTheirPointInALanguageWithAComma) {
    const GermanNumbers german;
    if (!german.available())
        GTEST_SKIP() << "no locale can be made here";
    const Circumstances abroad{{{"LC_ALL", german.kName}}, false, {}};
    EXPECT_EQ(runProgram({"set", "PRINTSCALEFACTOR", "0.5"}, abroad).status, 0);
    EXPECT_EQ(runProgram({"get", "PRINTSCALEFACTOR"}, abroad).out, "0.5\n");
    EXPECT_TRUE(contains(readFile(userFile()), ">0.5<"));
    EXPECT_EQ(runProgram({"set", "PRINTSCALEFACTOR", "0,5"}, abroad).status, 1);
}

TEST_F(Commands, FailedWriteGivesPathAndCauseAndLeavesTheFile) {
    ASSERT_EQ(runProgram({"set", "GRID_HR", "508000"}).status, 0);
    const std::string before = readFile(userFile());
    fs::permissions(installation.user(), fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome = runProgram({"set", "GRID_HR", "127000"}, {{}, true, {}});
    fs::permissions(installation.user(), fs::perms::owner_all);

    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(contains(outcome.err, installation.user().string()));
    EXPECT_TRUE(contains(outcome.err, "Permission denied"));
    EXPECT_TRUE(contains(outcome.err, "it stays \"508000\""));
    EXPECT_EQ(readFile(userFile()), before);
    EXPECT_EQ(runProgram({"list"}, {{}, false, "/dev/full"}).status, 1)
        << "output that is lost is a failure too";
}

TEST_F(Commands, DirectoriesThatAreNoUseAreToldWithTheReason) {
    const std::string standard = installation.standard().string();
    const std::string user = installation.user().string();
    const CommandRow rows[] = {
        {{"--home", "", "list"}, 1, "", "RSR_HOME is empty"},
        {{"--home", "/nowhere", "list"}, 1, "", "RSR_HOME names /nowhere, which is no directory"},
        {{"--wdir", "", "list"}, 1, "", "WDIR is empty"},
        {{"--wdir", standard, "list"}, 1, "", "at least two directories"},
        {{"--wdir", "/tmp;" + standard + ";/elsewhere", "list"}, 1, "", "/elsewhere, is not inside RSR_HOME"},
        {{"--wdir", "/nowhere;" + standard, "set", "BELL", "0"}, 1, "", "directory /nowhere does not exist"},
        {{"--wdir=/nowhere/user;" + standard, "get", "GRID_HR"},
         0,
         "254000\n",
         "WDIR names /nowhere/user, which"},
        {{"--wdir=" + user + ";/nowhere;" + standard, "set", "BELL", "0"},
         0,
         "",
         "WDIR names /nowhere, which"},
    };
    for (const CommandRow& row : rows)
        expectOutcome(row);
}

TEST(Defaults, TheSampleInstallationAndTheUsersOwnDirectoryServeWhereNothingIsSaid) {
    const TemporaryDirectory root;
    const Circumstances bare{
        {{"RSR_HOME", std::nullopt}, {"WDIR", std::nullopt}, {"XDG_CONFIG_HOME", (root / "a/b").string()}},
        false,
        {}};
    QStringList locked;
    for (const QJsonValue& row : listJson({}, bare)) {
        if (row["locks"].toArray().contains(true))
            locked << row["key"].toString();
    }
    locked.sort();
    EXPECT_EQ(locked, QStringList({"GRID_HIGHLIGHT_MARKS", "GRID_HIGHLIGHT_MARKS_INTERVAL", "NET", "ROUTE"}));
    for (const auto& [key, text] :
         {std::pair{"GRID_HR", "254000\n"}, {"ADISTANCE_HR", "508000\n"}, {"SHEETSIZE", "6\n"}}) {
        const Outcome outcome = runProgram({"get", key}, bare);
        EXPECT_EQ(outcome.out + outcome.err, text);
    }
    EXPECT_FALSE(fs::exists(root / "a")) << "reading makes nothing";
    const Outcome set = runProgram({"set", "GRID_HR", "508000"}, bare);
    ASSERT_EQ(set.status, 0) << set.err;
    const std::string saved = readFile(root / "a/b/orvane/orvane.xml");
    EXPECT_TRUE(contains(saved, "508000"));
    EXPECT_FALSE(contains(saved, "NET_LENGTH_HR")) << "what is inherited is not written down";
    const Circumstances relative{{{"RSR_HOME", std::nullopt},
                                  {"WDIR", std::nullopt},
                                  {"XDG_CONFIG_HOME", "a/b"},
                                  {"HOME", (root / "h/").string()}},
                                 false,
                                 {}};
    EXPECT_EQ(runProgram({"set", "GRID_HR", "508000"}, relative).status, 0);
    EXPECT_TRUE(fs::exists(root / "h/.config/orvane/orvane.xml"));
    const std::string route = squeezed(runProgram({"explain", "ROUTE"}, bare).out);
    EXPECT_TRUE(
        contains(route, " in force 1 from " OV_INSTALLATION "/site, locked by " OV_INSTALLATION "/site\n"));
}

} // namespace
