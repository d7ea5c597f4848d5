#include "suite/configuration.h"
#include "suite/openproject.h"
#include "tests/host/hostdialog.h"

#include <QtCore/QLocale>

using testsupport::writeFile;

namespace {

std::string repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

struct CatalogueCase {
    const char* what;
    std::string file; ///< whole text of settings.xml
    std::string tree;
    const char* box = nullptr;  ///< the text of the one that comes
    const char* told = nullptr; ///< what the host's handler gets behind the path, to begin with
};

const char* const kNotFound = "File not found\n";
const char* const kParseError = "Error during XML parsing\n";
const char* const kNoText = "line 1: the element name has no text\n";

class Catalogue : public HostDialog {
protected:
    static std::string document(const std::string& dialogs) { return "<settings>" + dialogs + "</settings>"; }
};

TEST_F(Catalogue, IsReadByItsRulesAndLosesNothingThatWasReadBefore) {
    const std::string a = category("A");
    const std::string noText = "<dialog><name/><classid>X</classid></dialog>";
    const CatalogueCase cases[] = {
        {"empty file", "", "", kNotFound, "line 1: "},
        {"not well-formed", "<settings>" + a, "", kNotFound, "line 1: "},
        {"no category", document(""), ""},
        {"any document element", "<anything>" + a + "</anything>", "A"},
        {"nesting", document(category("A", "A", category("B") + category("C"))), "A(B,C)"},
        {"values after the nested category",
         document("<dialog>" + category("B") +
                  "<name>A</name><classid>A</classid><localization>" RECORDING_ADDIN
                  "</localization></dialog>"),
         "A(B)"},
        {"last of two names", document("<dialog><name>X</name>" + a.substr(8)), "A"},
        {"texts and comments between", document("text<!-- c -->" + a + "<!-- d -->text"), "A"},
        {"unknown element in a category", document("<dialog><note>n</note>" + a.substr(8)), "A"},
        {"other element under the root", document(a + "\n<page/>" + category("B")), "A", kParseError,
         "line 2: the element page is no category\n"},
        {"value without text ends the reading", document(a + noText + category("B")), "A", nullptr, kNoText},
        {"nested value without text leaves the chain open",
         document(category("A", "A", noText + category("B")) + category("C")), "A(C)", nullptr, kNoText},
        {"empty nested category closes its parent", document(category("A", "A", "<dialog/>" + category("B"))),
         "A,B"},
        {"unknown page drops its children", document(category("A", "Unknown", category("B")) + category("C")),
         "C"},
        {"missing name gives an empty caption",
         document("<dialog><classid>A</classid><localization>" RECORDING_ADDIN "</localization></dialog>" +
                  a),
         ",A"},
        {"name is not trimmed", document(category(" A ", "A")), " A "},
        {"entity that is declared",
         "<!DOCTYPE s [<!ENTITY e \"A\">]><s>" + a + "<dialog><name>&e;</name><classid>A</classid></dialog>" +
             category("B") + "</s>",
         "", kNotFound, "line 1: entity declarations are not allowed"},
        {"entities that grow",
         "<!DOCTYPE s [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">"
         "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;\">"
         "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;\">]><s>" +
             a + "<dialog><name>&e;</name></dialog></s>",
         "", kNotFound, "line 1: "},
        {"external entity is not fetched",
         "<!DOCTYPE s [<!ENTITY e SYSTEM \"file:///etc/hostname\">]><s>" + a +
             "<dialog><name>&e;</name></dialog></s>",
         "", kNotFound, "line 1: entity declarations are not allowed"},
        {"text up to a section",
         document("<dialog><name>A<![CDATA[B]]></name>" + a.substr(a.find("<classid>"))), "A"},
        {"section is not a text", document(a + "<dialog><name><![CDATA[B]]></name></dialog>" + category("B")),
         "A", nullptr, kNoText},
        {"failures that open one another",
         document(
             category("A", "A",
                      repeat("<dialog><localization>internal</localization><classid>Empty</classid><name/>"
                             "</dialog>",
                             40000))),
         "A" + repeat("(", 254) + repeat(")", 254), nullptr, kNoText},
        {"nesting without end", repeat("<dialog>", 10000) + repeat("</dialog>", 10000), "", kNotFound,
         "line 1: "},
    };
    const std::string path = (installation_.standard() / "settings.xml").string();
    std::string told;
    Orv::IOvConfigurationManager::Instance().SetErrorHandler(
        [&told](const std::string& message) { told += message + '\n'; });
    for (const CatalogueCase& c : cases) {
        SCOPED_TRACE(c.what);
        boxes_.clear();
        told.clear();
        writeFile(installation_.standard() / "settings.xml", c.file);
        testing::internal::CaptureStderr();
        run([&c](QDialog& dialog) {
            EXPECT_EQ(treeText(dialog), c.tree);
            press(dialog, "Cancel");
        });
        EXPECT_EQ(told.empty(), !c.told);
        EXPECT_TRUE(!c.told || told.starts_with(path + ": " + c.told)) << told;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(boxes_, c.box ? std::vector<std::string>{c.box} : std::vector<std::string>());
    }
    Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
}

TEST_F(Catalogue, MissingFileOrDirectoryInItsPlaceLeavesADialogThatOnlyCancels) {
    for (const bool directory : {false, true}) {
        boxes_.clear();
        if (directory)
            std::filesystem::create_directory(installation_.standard() / "settings.xml");
        EXPECT_EQ(run([](QDialog& dialog) {
                      press(dialog, "OK");
                      press(dialog, "Apply");
                      press(dialog, "Help");
                      EXPECT_TRUE(dialog.isVisible());
                      press(dialog, "Cancel");
                  }),
                  0);
        EXPECT_EQ(boxes_, std::vector<std::string>{kNotFound});
    }
}

TEST_F(Catalogue, AddInThatCannotBeUsedDropsItsCategoryAlone) {
    catalogue(entry("missing", "/nowhere/libmissing.so") + entry("bare", "nosuchaddin.dll") +
              entry("no factory", NO_FACTORY) + entry("borrowed factory", BORROWING_ADDIN) +
              entry("null factory", NULL_FACTORY) +
              entry("component", " [{00000000-0000-0000-0000-000000000000}]") + entry("designs", "projects") +
              "<dialog><name>nowhere</name><classid>A</classid></dialog>" +
              entry("internal, unknown", "internal") + entry("good", RECORDING_ADDIN));
    run([](QDialog& dialog) {
        EXPECT_EQ(treeText(dialog), "good");
        press(dialog, "Cancel");
    });
    EXPECT_TRUE(boxes_.empty());
}

TEST_F(Catalogue, AddInIsFoundByTheNameOfTheOtherPlatform) {
    std::filesystem::create_directory_symlink(std::filesystem::path(RECORDING_ADDIN).parent_path(),
                                              installation_.home() / "addins");
    catalogue("<dialog><name>A</name><classid>A</classid><localization>" + installation_.home().string() +
              "\\addins\\recordingaddin.DLL</localization></dialog>");
    run([](QDialog& dialog) {
        EXPECT_EQ(treeText(dialog), "A");
        press(dialog, "Cancel");
    });
}

TEST_F(Catalogue, TenThousandCategoriesMakeOnePage) {
    catalogue(repeat(category("A"), 10000));
    run([](QDialog& dialog) { press(dialog, "Cancel"); });
    EXPECT_EQ(recorder().calls, (std::vector<std::string>{"A.made", "A.onEnter", "A.onCancel", "A.deleted"}));
}

TEST_F(Catalogue, CaptionsFollowTheUsersLanguageAndTheStoreDoesNot) {
    catalogue(category("GRID", "A") + category("Own words", "B") + entry("designs", "projects"));
    const std::string file = (installation_.user() / "board.prj").string();
    writeFile(file, "[Designs]\nDesign#0=GRID\n"); // a name of the user's, which is not translated
    std::string error;
    const auto opened = NProjectTools::COpenProject::open(file, error);
    ASSERT_TRUE(opened) << error;
    project_ = opened->configuration();
    const struct {
        QLocale locale;
        const char* tree;
    } cases[] = {
        {QLocale(QLocale::English), "Grid,Own words,GRID"},
        {QLocale(QLocale::Japanese), "グリッド,Own words,GRID"},
        {QLocale(QLocale::Finnish), "GRID,Own words,GRID"},
    };
    const QLocale before;
    for (const auto& c : cases) {
        QLocale::setDefault(c.locale);
        run([&c](QDialog& dialog) {
            EXPECT_EQ(treeText(dialog), c.tree);
            testsupport::selectCategory(dialog, "Own words");
            dialog.findChild<QTreeWidget*>()->setCurrentItem(
                dialog.findChild<QTreeWidget*>()->topLevelItem(0));
            press(dialog, "Cancel");
        });
        EXPECT_EQ(storedLastPage(), "GRID");
    }
    QLocale::setDefault(before);
}

} // namespace
