#include "tests/host/hostdialog.h"

#include "ovsettings/settingspagecomponent.h"

#include <clocale>

namespace {

std::string classId(const std::string& first) {
    return "{" + first + "-0000-4000-8000-0123456789AB}";
}

/// The add-in under test stands between two categories that must not suffer.
class AddIns : public HostDialog {
protected:
    std::string treeWith(const std::string& dialogs) {
        catalogue(category("A") + dialogs + category("B"));
        std::string tree;
        testing::internal::CaptureStderr();
        run([&](QDialog& dialog) {
            tree = treeText(dialog);
            press(dialog, "Cancel");
        });
        told_ = testing::internal::GetCapturedStderr();
        return tree;
    }

    /// Registers a class.
    void registerComponent(const std::string& id, const std::string& text) {
        testsupport::writeFile(installation_.standard() / "components" / (id + ".ini"), text);
    }

    std::string told_;
};

TEST_F(AddIns, OneThatThrowsKeepsNobodyElseAway) {
    EXPECT_EQ(treeWith(entry("hasPage", THROWING_ADDIN)), "A,B");
    EXPECT_EQ(told_, "OvSettings: no page hasPage: from hasPage\n");
    {
        const testsupport::ScopedEnvironment throws("OV_TEST_THROW_IN_GET_FACTORY", "1");
        EXPECT_EQ(treeWith(entry("Any\u009b\u202e", THROWING_ADDIN)), "A,B");
        EXPECT_EQ(told_, "OvSettings: no page Any??: from getFactory\n");
    }
    catalogue(category("A") + entry("createPage", THROWING_ADDIN));
    testing::internal::CaptureStderr();
    EXPECT_EQ(run([](QDialog& dialog) {
                  testsupport::selectCategory(dialog, "createPage");
                  EXPECT_TRUE(dialog.isVisible());
                  testsupport::selectCategory(dialog, "A");
                  press(dialog, "OK");
              }),
              1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "OvSettings: no page createPage: unknown exception\n");
}

TEST_F(AddIns, PageThatThrowsWhileItIsFilledIsNotShownUntilItIsFilled) {
    catalogue(category("A") + entry("kept", THROWING_ADDIN) + entry("lazy", THROWING_ADDIN));
    testing::internal::CaptureStderr();
    run([](QDialog& dialog) {
        const std::vector<std::string> none;
        for (const auto& [name, texts] : {std::pair{"kept", none},
                                          {"lazy", none},
                                          {"kept", std::vector<std::string>{"filled"}},
                                          {"lazy", none}}) {
            testsupport::selectCategory(dialog, name);
            EXPECT_EQ(textsOnShow(dialog), texts) << name;
        }
        EXPECT_EQ(dialog.findChildren<QLineEdit*>().size(), 2); // of A, and of the one that is kept
        press(dialog, "Cancel");
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "OvSettings: no page kept: from OnInitDialog\n"
                                                      "OvSettings: no page lazy: from OnInitDialog\n"
                                                      "OvSettings: no page lazy: from OnInitDialog\n");
}

TEST_F(AddIns, MissingLibraryIsToldInNoLanguage) {
    const testsupport::ScopedEnvironment language("LANGUAGE", "de");
    const std::string before = std::setlocale(LC_MESSAGES, nullptr);
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    EXPECT_EQ(treeWith(entry("Any", "/nowhere/libmissing.so")), "A,B");
    EXPECT_EQ(told_, "");
    std::setlocale(LC_MESSAGES, before.c_str());
}

TEST_F(AddIns, ARelativeNameBeginsAtTheCatalogueAndNotAtTheCurrentDirectory) {
    const auto project = installation_.home() / "project";
    const auto before = std::filesystem::current_path();
    for (const auto& directory : {project, installation_.standard()}) {
        std::filesystem::create_directories(directory / "addins");
        std::filesystem::copy(NULL_FACTORY, directory / "addins/libpages.so");
        std::filesystem::copy(NULL_FACTORY, directory / "libbare.so");
    }
    // The one in the project's directory would show a page.
    for (const char* name : {"addins/libpages.so", "libbare.so"})
        std::filesystem::copy(CONFIGURED_ADDIN, project / name,
                              std::filesystem::copy_options::overwrite_existing);
    std::filesystem::copy(CONFIGURED_ADDIN, installation_.standard() / "addins/libreal.so");
    const testsupport::ScopedEnvironment home(
        "RSR_HOME", std::filesystem::relative(installation_.home(), before).string());
    Orv::iAppConfiguration loaded;
    loaded.load(); // the installation is known from now on
    std::filesystem::current_path(project);
    EXPECT_EQ(treeWith(entry("Plain", "addins/libpages.so")), "A,B");
    EXPECT_EQ(treeWith(entry("Plain", "libbare.so")), "A,B");
    EXPECT_EQ(treeWith(entry("Plain", "addins\\libreal.so")), "A,Plain,B");
    std::filesystem::create_directories(project / "C:");
    std::filesystem::copy(CONFIGURED_ADDIN, project / "C:/libdrive.so");
    EXPECT_EQ(treeWith(entry("Plain", "C:\\libdrive.so")), "A,B");
    std::filesystem::current_path(before);
}

TEST_F(AddIns, OneOfAnEarlierOrLaterVersionIsToldAndLeftOut) {
    EXPECT_EQ(treeWith(entry("Any", OLDER_ADDIN)), "A,B");
    EXPECT_EQ(told_, "OvSettings: " OLDER_ADDIN
                     " was built for version 0 of the add-in interface, this is version 2\n");
    EXPECT_EQ(treeWith(entry("Any", NEWER_ADDIN)), "A,B");
    EXPECT_TRUE(told_.starts_with("OvSettings: ")) << told_;
    EXPECT_TRUE(testsupport::contains(told_, "undefined symbol: ovsettingsOperationOfALaterVersion"));
}

TEST_F(AddIns, ComponentGivesItsPageAndEveryFailureButOneDropsTheCategory) {
    std::filesystem::create_directories(installation_.standard() / "components");
    std::filesystem::copy(COMPONENTS, installation_.standard() / "components/libcomponents.so");
    const std::string library = "[Component]\nLibrary=libcomponents.so\n";
    for (const char* id : {"0000000A", "00000001", "00000002", "00000003"})
        registerComponent(classId(id), library);
    registerComponent(classId("00000004"), "[Component]\nLibrary=libmissing.so\n");
    registerComponent(classId("00000005"), "[Component]\nLibrary=../../../../../../../../" COMPONENTS "\n");
    registerComponent(classId("00000006"), "[Other]\n");

    struct Case {
        const char* what;
        std::string localization;
        bool isShown;
        std::string told;
    };
    const std::string good = "[" + classId("0000000A") + "]";
    const Case cases[] = {
        {"good", good, true, ""},
        {"in lower case", "[" + classId("0000000a") + "]", true, ""},
        {"a blank behind", good + " ", true, ""},
        {"a blank before", " " + good, false, ""},
        {"text before", "x" + good, false, "-"},
        {"no braces", "[0000000A-0000-4000-8000-0123456789AB]", false, ""},
        {"no closing bracket", "[" + classId("0000000A"), false, ""},
        {"brackets alone", "[]", false, ""},
        {"not registered", "[" + classId("0000000B") + "]", false, ""},
        {"no such class in the library", "[" + classId("00000001") + "]", false, ""},
        {"without the interface", "[" + classId("00000002") + "]", false, ""},
        {"library missing", "[" + classId("00000004") + "]", false, "libmissing.so"},
        {"outside", "[" + classId("00000005") + "]", false, "lies outside of the installation"},
        {"nothing named", "[" + classId("00000006") + "]", false, "names no library"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        EXPECT_EQ(treeWith(entry("Page", one.localization)), one.isShown ? "A,Page,B" : "A,B");
        if (one.told != "-") {
            EXPECT_TRUE(one.told.empty() ? told_.empty() : told_.find(one.told) != std::string::npos)
                << told_;
        }
    }
}

TEST_F(AddIns, ComponentThatCannotGiveItsFactoryReachesTheHost) {
    std::filesystem::create_directories(installation_.standard() / "components");
    std::filesystem::copy(COMPONENTS, installation_.standard() / "components/libcomponents.so");
    registerComponent(classId("00000003"), "[Component]\nLibrary=libcomponents.so\n");
    catalogue(category("A") + entry("Page", "[" + classId("00000003") + "]"));
    try {
        run([](QDialog&) {});
        FAIL() << "nothing was thrown";
    } catch (const ovsettings::ComponentError& error) {
        EXPECT_EQ(error.result(), -5);
    }
}

} // namespace
