// The files that a project names, held parsed and written back: special components and border symbols.

#include "suite/bordersymbolsfile.h"
#include "suite/openproject.h"
#include "suite/projectdatafile.h"
#include "suite/specialcomponentsfile.h"
#include "tests/support/childprocess.h"
#include "tests/support/projecterrors.h"
#include "tests/support/testsupport.h"

#include <array>

namespace {

namespace fs = std::filesystem;
using NProjectTools::CBorderSymbolsFile;
using NProjectTools::CSpecialComponentsFile;
using namespace testsupport;
using Properties = std::vector<Orv::IBorderSymbols::Property>;
using Table = Orv::IBorderSymbols::Table;
using Texts = std::vector<std::string>;

constexpr int kPower = 9;
constexpr int kGround = 10;
const std::string kBinary("\x7f\0ELF", 5);

class NamedFiles : public testing::Test, protected ProjectErrors {
protected:
    std::string path(const std::string& name = "file.ini") const { return (directory / name).string(); }

    template <typename File>
    void load(File& file, const std::string& text) {
        writeFile(path(), text);
        file.Reload(path());
    }

    TemporaryDirectory directory;
};

TEST_F(NamedFiles, CategoriesComeFromTheirSectionsInOrder) {
    constexpr std::array sections{"PortIn",  "PortOut",      "PortBi",      "PortTri",  "PortAnalog",
                                  "PortOcl", "PortOem",      "OnSheet",     "OffSheet", "Power",
                                  "Ground",  "RipperBusNet", "RipperBusBus"};
    std::string text;
    for (const char* section : sections)
        text.insert(0, "[" + std::string(section) + "]\r\nsymbol#1=\r\nSymbol#0='x:" + section +
                           "'\r\nSymbol#3=gap\r\n");
    CSpecialComponentsFile file;
    load(file, "\xEF\xBB\xBF" + text);
    for (int i = 0; i < CSpecialComponentsFile::kCategories; ++i)
        EXPECT_EQ(file.GetCategory(i),
                  (Texts{std::string("x:") + sections.at(static_cast<std::size_t>(i)), ""}));
    for (const int nobodys : {-1, 13}) {
        file.GetCategory(nobodys).push_back("lost");
        EXPECT_TRUE(file.GetCategory(nobodys).empty());
    }
    file.Save(path());
    EXPECT_EQ(readFile(path()), "\xEF\xBB\xBF" + text) << "nothing changed, nothing is written";
    EXPECT_FALSE(fs::exists(path(".file.ini.lock")));
}

TEST_F(NamedFiles, SavingKeepsWhatItDoesNotConcern) {
    const std::string text =
        "; ours\n[Ground]\nSymbol#0=x:GND\nNote=kept\n\n[Other]\nkey = 1\n[Power]\n; supplies\n"
        "Symbol#0=x:A\nSymbol#1=x:B\n";
    CSpecialComponentsFile file;
    load(file, text);
    file.GetCategory(kPower) = {"x:B"};
    writeFile(path(), text + "; theirs\n[OnSheet]\nSymbol#0=x:ON\n");
    file.Save(path());
    const std::string expected = "; ours\n[Ground]\nSymbol#0=x:GND\nNote=kept\n\n[Other]\nkey = 1\n[Power]\n"
                                 "; supplies\nSymbol#0=x:B\n; theirs\n[OnSheet]\nSymbol#0=x:ON\n";
    EXPECT_EQ(readFile(path()), expected) << "what another program wrote meanwhile stays";
    file.GetCategory(kGround).clear();
    file.Save(path());
    EXPECT_FALSE(contains(readFile(path()), "x:GND"));

    EXPECT_EQ(errors, Texts{});

    // Another file may hold more than this object knows of; another name of the same file does not.
    writeFile(path("other.ini"), expected);
    file.GetCategory(kPower) = {"x:C"};
    file.Save(path("other.ini"));
    EXPECT_EQ(readFile(path("other.ini")), expected);
    EXPECT_EQ(errors, Texts{path("other.ini") + ": cannot save: its former content has not been read"});
    fs::create_symlink(path(), path("link.ini"));
    file.Save(path("link.ini"));
    EXPECT_TRUE(contains(readFile(path()), "x:C"));
}

TEST_F(NamedFiles, BorderEntriesAreSetAndDeletedOneByOne) {
    CBorderSymbolsFile file;
    load(file, "[Borders]\n; first\nA4SHEETL=b:A\na3sheetl=b:LOWER\n34x22SHEET=b:X\n34x22SHEET1=b:X1\n\n"
               "[Properties]\nTITLE=\" blank "
               "\"\nAUTHOR=me\nREVISION=A\n[AvailableProperties]\nName#0=TITLE\nName#1=DATE\n");
    EXPECT_EQ(
        file.GetTable(),
        (Table{
            {"A4SHEETL", "b:A"}, {"a3sheetl", "b:LOWER"}, {"34x22SHEET", "b:X"}, {"34x22SHEET1", "b:X1"}}));
    EXPECT_EQ(file.GetProperties(), (Properties{{"TITLE", " blank "}, {"AUTHOR", "me"}, {"REVISION", "A"}}));
    EXPECT_EQ(file.GetPropertyNames(), (Texts{"TITLE", "DATE"}));

    file.GetTable().erase("34x22SHEET1");
    file.GetTable()["A3SHEETL"] = "b:UPPER";
    file.GetTable().erase("a3sheetl");
    file.GetTable()["A4SHEETL"] = "b:NEW";
    file.GetProperties() = {{"REVISION", "A"}, {"TITLE", "new"}, {"DATE", "today"}};
    file.Save(path());
    EXPECT_EQ(errors, Texts{});
    EXPECT_EQ(readFile(path()), "[Borders]\n; first\nA4SHEETL=b:NEW\n34x22SHEET=b:X\nA3SHEETL=b:UPPER\n\n"
                                "[Properties]\nREVISION=A\nTITLE=new\nDATE=today\n"
                                "[AvailableProperties]\nName#0=TITLE\nName#1=DATE\n");
}

TEST_F(NamedFiles, ANameInAnotherCaseTakesThePlaceOfTheFormerOne) {
    CBorderSymbolsFile file;
    load(file, "[Borders]\na4sheetl=b:OLD\n[Properties]\nTITLE=old\n");
    file.GetTable()["A4SHEETL"] = "b:NEW";
    file.GetProperties().emplace_back("Title", "new");
    file.Save(path());
    EXPECT_EQ(errors, Texts{});
    EXPECT_EQ(readFile(path()), "[Borders]\nA4SHEETL=b:NEW\n[Properties]\nTitle=new\n");
    EXPECT_EQ(file.GetTable(), (Table{{"A4SHEETL", "b:NEW"}}));
}

TEST_F(NamedFiles, AFileThatWasDeletedComesBackWhole) {
    const std::string text = "[Borders]\nA4SHEETL=b:A\n[Properties]\nTITLE=t\n"
                             "[AvailableProperties]\nName#0=DATE\n";
    CBorderSymbolsFile file;
    load(file, text);
    fs::remove(path());
    file.Save(path());
    EXPECT_EQ(readFile(path()), text);
}

TEST_F(NamedFiles, WhatALineCanHoldSurvivesAndTheRestIsRefused) {
    struct Row {
        std::string text;
        bool asValue, asName;
    };
    const Row rows[] = {
        {"a = b", true, false},
        {"[x]", true, false},
        {"; no remark", true, false},
        {" blank", true, false},
        {"blank\t", true, false},
        {"\"quoted\"", true, true},
        {"'", true, true},
        {"\"", true, true},
        {"größe Ω", true, true},
        {"", true, false},
        {"two\nlines", false, false},
        {"return\r", false, false},
        {std::string("nul\0", 4), false, false},
        {std::string(100'000, 'x'), true, true},
        {"\xFF\xFE", true, true},
    };
    const std::string text = "; kept\n[Borders]\nA4SHEETL=b:A\n[Power]\nSymbol#0=x:A\n";
    const auto check = [&](auto& file, auto& content, auto changed, bool holds, const std::string& what) {
        const auto before = content;
        errors.clear();
        content = changed;
        file.Save(path());
        EXPECT_EQ(errors.empty(), holds) << what.substr(0, 20);
        EXPECT_EQ(file.GetSaveError(), holds ? "" : errors.at(0));
        if (!holds) {
            EXPECT_EQ(readFile(path()), text);
            EXPECT_TRUE(errors.size() == 1 && errors[0].find(path()) == 0 &&
                        errors[0].find('\n') == std::string::npos);
        }
        file.Reload(path());
        EXPECT_EQ(content, holds ? changed : before) << what.substr(0, 20);
        EXPECT_TRUE(readFile(path()).starts_with("; kept\n"));
    };
    for (const Row& row : rows) {
        CSpecialComponentsFile special;
        load(special, text);
        check(special, special.GetCategory(kPower), Texts{row.text, "x:B", row.text}, row.asValue, row.text);
        CBorderSymbolsFile borders;
        load(borders, text);
        check(borders, borders.GetTable(), Table{{"A4SHEETL", "b:A"}, {"k", row.text}}, row.asValue,
              row.text);
        load(borders, text);
        check(borders, borders.GetTable(), Table{{"A4SHEETL", "b:A"}, {row.text, "v"}}, row.asName, row.text);
        load(borders, text);
        check(borders, borders.GetProperties(), Properties{{"B", row.text}, {"A", "v"}}, row.asValue,
              row.text);
        load(borders, text);
        check(borders, borders.GetProperties(), Properties{{row.text, ""}, {row.text, ""}}, false, row.text);
    }
}

TEST_F(NamedFiles, AMissingFileIsMadeAndAMissingDirectoryReported) {
    CSpecialComponentsFile file;
    load(file, "[Power]\nSymbol#0=x:A\n");
    file.Reload(path("new.pin"));
    EXPECT_EQ(file.GetCategory(kPower), Texts{"x:A"}) << "the former content stays";
    file.Save(path("new.pin"));
    EXPECT_EQ(readFile(path("new.pin")), "[Power]\nSymbol#0=x:A\n");
    EXPECT_EQ(errors, Texts{});

    file.Save(path("none/new.pin"));
    file.Save("");
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0], path("none/new.pin") + ": cannot save: its directory is not there");
    EXPECT_FALSE(fs::exists(path("none")));

    file.Reload("");
    EXPECT_TRUE(file.GetCategory(kPower).empty());
    file.Save(path("empty.pin"));
    EXPECT_TRUE(fs::exists(path("empty.pin"))) << "or the next project would keep what it had before";
}

TEST_F(NamedFiles, AFileThatNobodyHasReadIsNotWritten) {
    const std::array<std::function<void()>, 3> harms{
        [&] { writeFile(path("bad.ini"), kBinary); },
        [&] { fs::create_directory(path("bad.ini")); },
        [&] {},
    };
    for (const auto& harm : harms) {
        CBorderSymbolsFile file;
        load(file, "[Borders]\nA4SHEETL=b:A\n");
        fs::remove_all(path("bad.ini"));
        harm();
        const bool missing = !fs::exists(path("bad.ini"));
        errors.clear();
        file.Reload(path("bad.ini"));
        EXPECT_EQ(errors.size(), missing ? 0u : 1u);
        EXPECT_EQ(file.GetTable().size(), 1u) << "the former content stays";
        if (!missing) {
            file.Save(path("bad.ini"));
            EXPECT_EQ(errors.size(), 2u);
            fs::remove_all(path("bad.ini"));
        }
        const std::string repaired = "[Borders]\nA3SHEETL=b:REPAIRED\n";
        writeFile(path("bad.ini"), repaired);
        errors.clear();
        file.Save(path("bad.ini"));
        EXPECT_EQ(errors.size(), 1u);
        EXPECT_EQ(readFile(path("bad.ini")), repaired);
        file.Reload(path("bad.ini"));
        file.GetTable()["A4SHEETL"] = "b:B";
        file.Save(path("bad.ini"));
        EXPECT_EQ(readFile(path("bad.ini")), repaired + "A4SHEETL=b:B\n");
    }
}

TEST_F(NamedFiles, AFileOfAnotherKindIsReadAndNotWritten) {
    const auto check = [&](auto change, const char* section, const std::string& text, bool isWritten) {
        SCOPED_TRACE(text);
        errors.clear();
        auto file = change(text);
        EXPECT_EQ(readFile(path()).find("x:A") != std::string::npos, isWritten);
        EXPECT_EQ(readFile(path()).starts_with(text), true);
        EXPECT_EQ(file->GetSaveError(), isWritten ? ""
                                                  : path() +
                                                        ": cannot save: it holds something else: it has "
                                                        "no section such as [" +
                                                        section + "]");
        EXPECT_EQ(errors, isWritten ? Texts{} : Texts{file->GetSaveError()});
    };
    const auto borders = [&](const std::string& text) {
        auto file = std::make_unique<CBorderSymbolsFile>();
        load(*file, text);
        file->Save(path()); // nothing is changed, and so nothing refused
        EXPECT_EQ(errors, Texts{});
        file->GetTable()["A4SHEETL"] = "x:A";
        file->Save(path());
        return file;
    };
    const auto components = [&](const std::string& text) {
        auto file = std::make_unique<CSpecialComponentsFile>();
        load(*file, text);
        file->GetCategory(kPower) = {"x:A"};
        file->Save(path());
        return file;
    };
    for (const char* text : {"PATH=~/bin:$PATH\n", "# .profile\n[ -r ~/.bashrc ] && . ~/.bashrc\n",
                             "; mine\n", "[Borders\n", "\n[Power supplies]\nSymbol#0=\n"}) {
        check(borders, "Borders", text, false);
        check(components, "PortIn", text, false);
    }
    check(borders, "Borders", "[Ground]\nSymbol#0=x:GND\n", false);
    check(components, "PortIn", "[Borders]\nA4SHEETL=b:A\n", false);
    for (const char* text : {"", " \r\n\n", "\xEF\xBB\xBF"}) {
        check(borders, "Borders", text, true);
        check(components, "PortIn", text, true);
    }
    check(borders, "Borders", "[availableproperties]\n", true);
    check(components, "PortIn", "; mine\n[RIPPERBUSBUS]\n", true);
}

TEST_F(NamedFiles, AFileThatMayNotBeWrittenStaysWholeAndTheChangeWaits) {
    fs::permissions(directory.path(), fs::perms::all);
    const int status = runUnprivileged([&] {
        CSpecialComponentsFile file;
        load(file, "[Power]\nSymbol#0=x:A\n");
        fs::permissions(path(), fs::perms::owner_read);
        file.GetCategory(kPower) = {"x:B"};
        file.Save(path());
        file.Reload(path()); // as a page does at each commit
        const bool refused = errors.size() == 1 && readFile(path()) == "[Power]\nSymbol#0=x:A\n";
        fs::permissions(path(), fs::perms::owner_all);
        file.Save(path());
        return refused && errors.size() == 1 && readFile(path()) == "[Power]\nSymbol#0=x:B\n" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(NamedFiles, BusContentsKeepTheirContentWhereTheNextCannotBeRead) {
    NProjectTools::CProjectDataFile file;
    load(file, "[Buses]\nB=x\nA=y,z\n");
    file.Reload(path("none.ini"));
    EXPECT_EQ(file.keys("buses"), (Texts{"B", "A"}));
    EXPECT_EQ(file.value("Buses", "a"), "y,z");
    file.Reload("");
    EXPECT_TRUE(file.keys("Buses").empty());
}

} // namespace
