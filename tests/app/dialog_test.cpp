// What the program does around the dialog, with a user at it.

#include "app/dialog/dialog.h"
#include "app/dialog/project.h"
#include "app/workspace.h"
#include "tests/support/widgets.h"

#include <orv/appconfiguration.h>

#include <sstream>

namespace {

namespace fs = std::filesystem;
using testsupport::press;

class Dialog : public testing::Test {
protected:
    Dialog() {
        fs::copy_file(fs::path(OV_INSTALLATION) / "standard/settings.xml",
                      installation.standard() / "settings.xml");
        EXPECT_TRUE(configuration.load());
    }

    testsupport::Installation installation;
    Orv::iAppConfiguration configuration;
    app::Project project;
    app::Options options;
    std::ostringstream out;
};

TEST_F(Dialog, EachPageThatTheUserChangedIsNamedAtEachCommit) {
    fs::copy_file(fs::path(OV_INSTALLATION) / "standard/orvane.xml", installation.standard() / "orvane.xml");
    ASSERT_TRUE(configuration.load()); // it names the page of the first start
    testsupport::whenModal([](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QTreeWidget*>()->currentItem()->text(0), "Units");
        auto* units = testsupport::find<QComboBox>(dialog, "Unit");
        ASSERT_NE(units, nullptr);
        units->setCurrentIndex((units->currentIndex() + 1) % units->count());
        press(dialog, "Apply");
        press(dialog, "Cancel");
    });
    app::openDialog(configuration, project, options, out);
    EXPECT_EQ(out.str(), "changed: Metrics\n");
}

TEST_F(Dialog, TroubleWithTheUsersFileIsShownOnceAndNotAtEveryPageSwitch) {
    // A lock that cannot be had makes every write fail.
    fs::create_directory(installation.user() / ".orvane.xml.lock");
    std::string told;
    testsupport::whenDialog([&told](QDialog& dialog) {
        testsupport::answerNextMessageBox("OK", &told);
        EXPECT_TRUE(testsupport::selectCategory(dialog, "Grid"));
        EXPECT_TRUE(testsupport::selectCategory(dialog, "Nets")) << "a second box would stop the test here";
        press(dialog, "Cancel");
    });
    app::openDialog(configuration, project, options, out);
    EXPECT_TRUE(testsupport::contains(told, installation.user().string()));
}

TEST_F(Dialog, WhatIsWrongWithTheLevelsIsShownBeforeIt) {
    const testsupport::ScopedEnvironment wdir("WDIR", installation.user().string() + ";/nowhere;" +
                                                          installation.site().string());
    const fs::path damaged = installation.site() / "orvane.xml";
    testsupport::writeFile(damaged, "<configuration>\n<value");
    testing::internal::CaptureStderr();
    ASSERT_TRUE(Orv::iAppConfiguration().load()) << "the host's error handler is not set yet";
    EXPECT_TRUE(testsupport::contains(testing::internal::GetCapturedStderr(), damaged.string()));
    ASSERT_TRUE(configuration.load("another project"));
    std::vector<std::string> boxes;
    testsupport::whenDialog([](QDialog& dialog) { press(dialog, "Cancel"); }, &boxes);
    app::openDialog(configuration, project, options, out);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_TRUE(testsupport::contains(boxes[0], damaged.string() + ":2: "));
    EXPECT_EQ(boxes[1], "WDIR names /nowhere, which does not exist");
}

TEST_F(Dialog, PagesOfTheProjectAreThereAndTroubleWithItsFileIsShown) {
    const fs::path file = installation.user() / "board.prj";
    testsupport::writeFile(file, "[DesignInfo]\nDBCFile=old.dbc\n");
    options.project = file.string();
    options.page = "OvPartBook";
    ASSERT_TRUE(project.open(options));
    const fs::path lock = installation.user() / ".board.prj.lock";
    for (const bool writable : {true, false}) {
        std::string told;
        if (!writable) {
            fs::remove(lock);
            fs::create_directory(lock);
        }
        testsupport::whenModal([&](QWidget& dialog) {
            auto* field = testsupport::find<QLineEdit>(dialog, "OvPartBook configuration");
            ASSERT_NE(field, nullptr);
            field->setText(writable ? "new.dbc" : "lost.dbc");
            if (!writable)
                testsupport::answerNextMessageBox("OK", &told);
            press(dialog, "OK");
        });
        app::openDialog(configuration, project, options, out);
        EXPECT_EQ(testsupport::readFile(file), "[DesignInfo]\nDBCFile=new.dbc\n");
        EXPECT_EQ(told.find(lock.string()) != std::string::npos, !writable) << told;
    }
    EXPECT_EQ(out.str(), "changed: PartBook\nchanged: PartBook\n");
}

} // namespace
