#include "suite/symbollibs.h"

#include "suite/openproject.h"
#include "tests/support/projecterrors.h"
#include "tests/support/testsupport.h"

#include <sstream>

namespace {

using NProjectTools::COpenProject;
using NProjectTools::CProjectFileUtilitiesLight;
using NProjectTools::CSymbolLibs;
using namespace testsupport;

class SymbolLibs : public testing::Test {
protected:
    std::string here() const { return directory.path().string(); }

    static std::string text(CSymbolLibs& libraries) {
        std::ostringstream text;
        for (const NProjectTools::ISymbolLibrary* library : libraries.GetLibList())
            text << library->GetAlias() << '|' << library->GetLocation() << '|' << library->GetFullPath()
                 << '|' << library->GetType() << '\n';
        return text.str();
    }

    Installation installation;
    TemporaryDirectory directory;
};

TEST_F(SymbolLibs, LoadTheListOfAProjectOrAnIniFileInItsOrder) {
    const std::string list = "[SymbolLibraries]\nLocation#1=$S\\analog\nAlias#1=analog\nType#1=3\n"
                             "Alias#0=board\nLocation#0=./board\nType#0=0\n"
                             "Location#2=x\nType#2=7\nAlias#3=\nLocation#3=y\nType#3=1 or 2\n"
                             "Location#4=http://host//a\nLocation#5=$WEB\\a\nLocation#6=~/a\n"
                             "Location#7=~no such user/a\nAlias#9=behind a gap\nLocation#9=z\n";
    const ScopedEnvironment home("HOME", "/home/ann");
    writeFile(directory / "location.map", "$S /shared\n$WEB http://host/\n");
    writeFile(directory / "demo.prj", list);
    writeFile(directory / "list.ini", list);
    const std::string expected = "board|./board|" + here() +
                                 "/board|0\nanalog|$S\\analog|/shared/analog|3\n" + "|x|" + here() +
                                 "/x|2\n|y|" + here() +
                                 "/y|2\n|http://host//a|http://host//a|2\n|$WEB\\a|http://host/a|2\n"
                                 "|~/a|/home/ann/a|2\n|~no such user/a|" +
                                 here() + "/~no such user/a|2\n";
    CSymbolLibs libraries;
    CProjectFileUtilitiesLight project((directory / "demo.prj").c_str());
    EXPECT_TRUE(libraries.Load(&project));
    EXPECT_EQ(text(libraries), expected);

    EXPECT_FALSE(libraries.Load((directory / "none.ini").string()));
    CProjectFileUtilitiesLight none(nullptr);
    EXPECT_FALSE(libraries.Load(&none));
    EXPECT_FALSE(libraries.Load(static_cast<Orv::IProjectFileData*>(nullptr)));
    EXPECT_EQ(text(libraries), expected) << "a failure keeps the list";
    EXPECT_TRUE(libraries.Load((directory / "list.ini").string()));
    EXPECT_EQ(text(libraries), expected);
}

TEST_F(SymbolLibs, WhoIsToldOfTheProgressOfALoadSeesTheDiskAsItIs) {
    writeFile(directory / "demo.prj", "[DesignInfo]\nBorderSymbols=made.ini\n[SymbolLibraries]\n"
                                      "Alias#0=a\nLocation#0=x\nAlias#1=b\nLocation#1=y\n");
    CProjectFileUtilitiesLight project((here() + "/demo.prj").c_str());
    std::string seen;
    CSymbolLibs libraries;
    EXPECT_TRUE(libraries.Load(&project, [&](std::size_t read, std::size_t) {
        if (read == 1)
            writeFile(directory / "Made.ini", "");
        seen = project.GetBorderSymbolsPath(1);
        return true;
    }));
    EXPECT_EQ(seen, here() + "/Made.ini");
}

TEST_F(SymbolLibs, AChangedListIsSavedIntoItsProject) {
    writeFile(directory / "demo.prj", "; ours\n[SymbolLibraries]\nAlias#0=a\nLocation#0=a\nType#0=0\n"
                                      "; the second\nAlias#1=b\nLocation#1=b\nType#1=1\nOwner=ann\n");
    std::string error;
    const auto project = COpenProject::open((directory / "demo.prj").string(), error);
    ASSERT_NE(project, nullptr) << error;
    CSymbolLibs& libraries = *project->configuration().symbolLibs;
    libraries.Clear();
    libraries.AddLibrary("new", "$S/new ", "/shared/new ", 2);
    EXPECT_TRUE(project->saveLibraries());
    EXPECT_EQ(readFile(directory / "demo.prj"), "; ours\n[SymbolLibraries]\nAlias#0=new\nLocation#0=\"$S/new "
                                                "\"\nType#0=2\n; the second\nOwner=ann\n");

    libraries.AddLibrary("two\nlines", "x", "x", 2);
    const std::string before = readFile(directory / "demo.prj");
    const ProjectErrors told;
    EXPECT_FALSE(project->saveLibraries());
    EXPECT_FALSE(told.errors.empty());
    EXPECT_EQ(readFile(directory / "demo.prj"), before);
}

} // namespace
