#include "suite/projectfile.h"

#include "suite/symbollibs.h"
#include "tests/support/projecterrors.h"
#include "tests/support/testsupport.h"

#include <array>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using NProjectTools::CProjectFile;
using NProjectTools::CProjectFileUtilitiesLight;
using namespace testsupport;
using Texts = std::vector<std::string>;

class ProjectFile : public testing::Test, protected ProjectErrors {
protected:
    fs::path path() const { return directory / "demo.prj"; }
    std::string bytes() const { return readFile(path()); }

    void open(const std::string& text) {
        writeFile(path(), text);
        ASSERT_TRUE(project.openProjectFile(path().string())) << project.lastError();
    }

    Installation installation;
    TemporaryDirectory directory;
    CProjectFile project;
};

TEST_F(ProjectFile, OperationsAndGenericKeysAreTheSameValues) {
    struct Row {
        const char* key;
        std::function<std::string(CProjectFile&)> get;
        void (CProjectFile::*set)(const std::string&);
    };
    const Row rows[] = {
        {"CentralLibrary", [](auto& file) { return file.GetCentralLibraryPath(0); },
         &CProjectFile::SetCentralLibraryPath},
        {"ServerName", &CProjectFile::GetServerName, &CProjectFile::SetServerName},
        {"NetNameDelimiter", &CProjectFile::GetNetNameDelimiter, &CProjectFile::SetNetNameDelimiter},
        {"LayoutTool", &CProjectFile::GetLayoutTool, &CProjectFile::SetLayoutTool},
        {"PcbCfgFileName", &CProjectFile::GetPcbConfigFile, &CProjectFile::SetPcbConfigFile},
        {"CnsFileName", &CProjectFile::GetConstraintsFile, &CProjectFile::SetConstraintsFile},
    };
    open("");
    for (const Row& row : rows) {
        EXPECT_EQ(row.get(project), "") << row.key;
        project.SetValue("DesignInfo", row.key, "");
        (project.*row.set)("");
        EXPECT_EQ(bytes(), "") << "an empty value of an unset key needs no line";
    }
    for (const Row& row : rows) {
        (project.*row.set)("first");
        EXPECT_EQ(project.GetValue("designinfo", row.key), "first") << row.key;
        project.SetValue("DesignInfo", row.key, "C:\\a b\\\"x\" ");
        EXPECT_EQ(row.get(project), "C:\\a b\\\"x\" ") << row.key;
        (project.*row.set)("");
        EXPECT_EQ(project.GetValue("DesignInfo", row.key), "") << row.key;
    }
}

TEST_F(ProjectFile, ChangesTouchTheirOwnLinesOnly) {
    open("\xEF\xBB\xBF; ours\r\n[Other]\r\nkept = yes ; really\r\nno entry\r\n\r\n"
         "[DesignInfo]\r\nServerName=old\r\nUnknown='1'\r\n");
    project.SetServerName("ädmin");
    project.SetBackAnnotationBlocked(false, "top");
    project.SetConflictWinner("BE", "top");
    project.SetForwardAnnotationBlocked(true, "top");
    EXPECT_EQ(bytes(), "\xEF\xBB\xBF; ours\r\n[Other]\r\nkept = yes ; really\r\nno entry\r\n\r\n"
                       "[DesignInfo]\r\nServerName=ädmin\r\nUnknown='1'\r\n"
                       "[Design top]\r\nConflictWinner=BE\r\nForwardAnnotationBlocked=1\r\n");
    EXPECT_TRUE(project.GetForwardAnnotationBlocked("TOP"));
    EXPECT_FALSE(project.GetBackAnnotationBlocked("top"));
    EXPECT_EQ(project.GetConflictWinner("other"), "");
    EXPECT_EQ(errors, Texts{});
}

TEST_F(ProjectFile, ListsKeepTheirTextsAndOrder) {
    const Texts odd{"a,b;c", "", "\"quoted\"", "  blanks  ", "", "'", "[x]", "k=v", "gerät Ω", ""};
    open("[Design top]\nPdbSearchPath#1=stray\nPdbSearchPath#12=behind a gap\nPdbSearchPath#x=no number\n");
    EXPECT_EQ(project.GetPdbSearchPath("top"), Texts{}) << "a list begins at 0";
    project.SetPdbSearchPath(odd, "top");
    project.SetSymbolPartitions({"one"}, "top");
    project.SetThirdPartitions({"third"}, "top");
    project.SetFixedFunctions(odd);

    CProjectFileUtilitiesLight other(path().c_str());
    EXPECT_EQ(other.GetPdbSearchPath("top"), odd);
    EXPECT_EQ(other.GetSymbolPartitions("top"), Texts{"one"});
    EXPECT_EQ(other.GetThirdPartitions("top"), Texts{"third"});
    Texts functions{"before"};
    other.GetFixedFunctions(functions);
    EXPECT_EQ(functions.size(), odd.size() + 1) << "the list is appended";

    project.SetPdbSearchPath({}, "top");
    project.SetPdbSearchPath(Texts(12, "grown"), "top");
    EXPECT_EQ(project.GetPdbSearchPath("top").size(), 12u) << "what stood behind the gap went with the list";
    EXPECT_TRUE(contains(bytes(), "PdbSearchPath#x=no number"));
}

TEST_F(ProjectFile, HoldsALongList) {
    constexpr std::size_t kLines = 100'000;
    Texts names;
    std::string text = "[Designs]\n";
    for (std::size_t i = 0; i < kLines; ++i) {
        names.push_back("design " + std::to_string(i));
        text += "Design#" + std::to_string(i) + "=" + names.back() + "\n";
    }
    open(text);
    Texts read;
    project.GetDesignNames(read);
    EXPECT_EQ(read, names);
    project.SetFixedFunctions(names);
    project.SetFixedFunctions({});
    EXPECT_EQ(bytes(), text + "[FixedFunctions]\n");
}

TEST_F(ProjectFile, RefusesWhatIsLargerThanItsLimit) {
    const std::string text = "[DesignInfo]\nServerName=old\n";
    open(text);
    const std::string refused = "File too large (the limit is 8 MiB)";
    project.SetServerName(std::string(8u << 20, 'x'));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0], path().string() + ": cannot write: " + refused);
    EXPECT_EQ(bytes(), text);
    EXPECT_EQ(project.GetServerName(), "old");
    fs::resize_file(path(), (8u << 20) + 1);
    EXPECT_FALSE(project.openProjectFile(path().string()));
    EXPECT_EQ(project.lastError(), path().string() + ": cannot read: " + refused);
    NProjectTools::CSymbolLibs libraries;
    EXPECT_FALSE(libraries.Load(path().string()));
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[1], project.lastError());
}

TEST_F(ProjectFile, ALinkThatLeadsToWhatIsNoProjectIsNotWrittenThrough) {
    const std::string script = "[ -f x ] && . ./x\n";
    open("");
    fs::rename(path(), path().string() + ".target");
    fs::create_symlink(path().string() + ".target", path());
    project.SetServerName("first"); // an empty file is nobody's
    EXPECT_EQ(bytes(), "[DesignInfo]\nServerName=first\n");
    std::ofstream(path()) << script;
    project.SetServerName("second");
    EXPECT_EQ(bytes(), script);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_TRUE(errors[0].ends_with("the link leads to something that is no project"));
}

TEST_F(ProjectFile, RefusesWhatALineCannotHoldAndWritesNothing) {
    const std::string text = "[DesignInfo]\nServerName=old\n";
    open(text);
    const std::array<std::function<void()>, 5> refused{
        [&] { project.SetServerName("two\nlines"); },
        [&] { project.SetServerName(std::string("nul\0", 4)); },
        [&] {
            project.SetFixedFunctions({"good", "bad\r"});
        },
        [&] { project.SetTopBlock("X", "de]sign"); },
        [&] { project.SetValue("DesignInfo", "k=", "v"); },
    };
    for (std::size_t i = 0; i < refused.size(); ++i) {
        refused[i]();
        ASSERT_EQ(errors.size(), i + 1);
        EXPECT_TRUE(contains(errors.back(), path().string()));
        EXPECT_EQ(bytes(), text);
    }
}

TEST_F(ProjectFile, ChangesOfOthersAreSeenAndKept) {
    open("[DesignInfo]\nServerName=a\n");
    CProjectFileUtilitiesLight other(path().c_str());
    EXPECT_EQ(other.GetServerName(), "a");
    writeFile(path(), "[DesignInfo]\nServerName=b\n");
    EXPECT_EQ(project.GetServerName(), "b") << "even of the same size, within the same moment";
    project.SetLayoutTool("T");
    other.SetServerName("c");
    EXPECT_EQ(bytes(), "[DesignInfo]\nServerName=c\nLayoutTool=T\n");
}

TEST_F(ProjectFile, AFileThatGoesBadIsLeftAloneAndStillReadsAsBefore) {
    const std::array<std::function<void()>, 3> harms{
        [&] { fs::remove(path()); },
        [&] {
            fs::remove(path());
            fs::create_directory(path());
        },
        [&] { writeFile(path(), std::string("\x7f\0ELF", 5)); },
    };
    for (const auto& harm : harms) {
        fs::remove_all(path());
        open("[DesignInfo]\nServerName=a\n");
        errors.clear();
        harm();
        project.SetServerName("b");
        EXPECT_EQ(errors.size(), 1u);
        EXPECT_EQ(project.GetServerName(), "a");
        EXPECT_TRUE(!fs::is_regular_file(path()) || bytes().size() == 5);
    }
    project.closeProjectFile();
    project.SetServerName("b");
    EXPECT_EQ(errors.size(), 2u) << "no project is open";
    EXPECT_EQ(project.GetFilePath() + project.GetServerName() + project.GetCentralLibraryPath(1), "");
}

TEST_F(ProjectFile, OpensNothingButATextFile) {
    writeFile(directory / "binary.prj", std::string("\x7f\0ELF", 5));
    writeFile(directory / "wide.prj", "\xFF\xFE[");
    fs::create_directory(directory / "directory.prj");
    open("[DesignInfo]\nServerName=a\n");
    for (const char* name : {"missing.prj", "binary.prj", "wide.prj", "directory.prj"}) {
        EXPECT_FALSE(project.openProjectFile((directory / name).string())) << name;
        EXPECT_TRUE(contains(project.lastError(), name));
        EXPECT_EQ(project.GetFilePath(), "") << "no project is open";
    }
    EXPECT_FALSE(project.openProjectFile(""));
    const std::string elsewhere = directory.path().string() + "\\DEMO.prj";
    EXPECT_TRUE(project.openProjectFile(elsewhere));
    EXPECT_EQ(project.GetFilePath(), path().string());
    EXPECT_EQ(project.lastError(), "");
}

TEST_F(ProjectFile, FullPathsAreResolvedAndTextsStayAsTheyAre) {
    const ScopedEnvironment set("OV_TEST_PARTS", (directory / "Parts").string());
    const ScopedEnvironment unset("OV_TEST_UNSET", std::nullopt);
    const std::string here = directory.path().string();
    const std::string longName(10'000, 'x');
    fs::create_directory(directory / "Parts");
    writeFile(directory / "Parts/My Größe.ini", "");
    writeFile(directory / "location.map", "$PARTS Parts\n$A $B\n$B $A\n");
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"borders.ini", here + "/borders.ini"},
        {".\\parts\\my Größe.INI", here + "/Parts/My Größe.ini"},
        {"%OV_TEST_PARTS%\\new.ini", here + "/Parts/new.ini"},
        {"%OV_TEST_UNSET%\\new.ini", "%OV_TEST_UNSET%\\new.ini"},
        {"$PARTS\\my größe.ini", here + "/Parts/My Größe.ini"},
        {"$PARTS/../a.ini ", here + "/a.ini "},
        {" parts\\my größe.ini ", here + "/Parts/My Größe.ini"},
        {"$NONE\\a.ini", "$NONE\\a.ini"},
        {"$A/a.ini", "$A/a.ini"},
        {"C:\\parts\\a.ini", "C:\\parts\\a.ini"},
        {longName, longName},
    };
    open("");
    for (const auto& [text, full] : rows) {
        project.SetValue("DesignInfo", "BorderSymbols", text);
        EXPECT_EQ(project.GetBorderSymbolsPath(1), full);
        EXPECT_EQ(project.GetBorderSymbolsPath(0), text);
    }
}

} // namespace
