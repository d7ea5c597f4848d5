// The tour of the settings dialog, run by the built program.

#include "tests/app/program.h"
#include "tests/support/testsupport.h"

#include <QtGui/QImage>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using testsupport::readFile;
using testsupport::writeFile;

class Tour : public testing::Test {
protected:
    // Adds a catalogue with one category after another, each an internal page.
    void writeCatalogue(const std::vector<std::pair<std::string, std::string>>& captionsAndKeys) {
        std::string text = "<settings>";
        for (const auto& [caption, key] : captionsAndKeys) {
            text += "<dialog><name>" + caption + "</name><classid>" + key +
                    "</classid><localization>internal</localization></dialog>";
        }
        writeFile(installation.standard() / "settings.xml", text + "</settings>");
    }

    // The lines of the summary, each split at the tabs.
    std::vector<Words> summary() const {
        std::vector<Words> rows;
        std::istringstream lines(readFile(pictures / "summary.txt"));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream cells(line);
            Words& row = rows.emplace_back();
            for (std::string cell; std::getline(cells, cell, '\t');)
                row.push_back(cell);
        }
        return rows;
    }

    testsupport::Installation installation;
    testsupport::TemporaryDirectory root;
    fs::path pictures = root / "new/pictures";
};

TEST_F(Tour, EachCategoryOfTheInstallationGetsItsPictureAndNothingElseChanges) {
    fs::copy(fs::path(OV_INSTALLATION) / "standard", installation.standard(), fs::copy_options::recursive);
    writeFile(installation.user() / "orvane.xml", "<configuration/>");
    const Outcome outcome = runProgram({"tour", pictures.string(), "--size", "900x700"});
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;

    const auto rows = summary();
    ASSERT_GE(rows.size(), 5u);
    for (const Words& row : rows) {
        ASSERT_EQ(row.size(), 4u) << row.front();
        SCOPED_TRACE(row[0]);
        EXPECT_TRUE(row[2].starts_with("C")) << row[2];
        const QImage picture(QString::fromStdString((pictures / row[1]).string()));
        ASSERT_FALSE(picture.isNull()) << row[1];
        EXPECT_EQ(row[3], std::to_string(picture.width()) + 'x' + std::to_string(picture.height()));
        EXPECT_EQ(picture.size(), QSize(900, 700));
    }
    EXPECT_EQ(readFile(installation.user() / "orvane.xml"), "<configuration/>");
}

TEST_F(Tour, PagesOfAProjectAreVisitedToo) {
    const std::string project = (root / "board.prj").string();
    for (const Words& command : {Words{}, Words{"tour", pictures.string()}}) {
        Words words{"--project", project};
        words.insert(words.end(), command.begin(), command.end());
        const Outcome refused = runProgram(words);
        EXPECT_EQ(refused.status, 1);
        EXPECT_NE(refused.err.find("the project cannot be opened: " + project), std::string::npos)
            << refused.err;
    }
    EXPECT_FALSE(fs::exists(pictures / "summary.txt"));

    writeFile(project, "[DesignInfo]\n");
    writeCatalogue({{"A", "Fixed Functions"}, {"B", "NetNameDelimiter"}, {"C", "PartBookDialog"}});
    ASSERT_EQ(runProgram({"--project", project, "tour", pictures.string()}).status, 0);
    const auto rows = summary();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[2][2], "CPartBookDialog");
    EXPECT_EQ(readFile(project), "[DesignInfo]\n");
}

TEST_F(Tour, EveryPageOfTheSampleProjectLetsItsUserGoOn) {
    const fs::path copy = root / "samples";
    fs::copy(OV_SAMPLES, copy, fs::copy_options::recursive);
    fs::copy(fs::path(OV_INSTALLATION) / "standard", installation.standard(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    const fs::path project = copy / "motorcontroller/motorcontroller.prj";
    const std::pair<Words, std::string> kinds[] = {{{}, "CTopLevelSettingsDialog"},
                                                   {{"--netlist"}, "CNetlistTopLevelDialog"}};
    for (const auto& [options, pageOfDesign] : kinds) {
        Words words = options;
        words.insert(words.end(), {"--project", project.string(), "tour", pictures.string()});
        const Outcome tour = runProgram(words);
        EXPECT_EQ(tour.status, 0) << tour.out << tour.err;
        EXPECT_EQ(tour.out.find("note:"), std::string::npos) << tour.out;
        const auto rows = summary();
        const auto pages = [&](const std::string& name) {
            return std::ranges::count_if(rows, [&](const Words& row) { return row.at(2) == name; });
        };
        EXPECT_EQ(pages("CProjectDialog"), 1);
        EXPECT_EQ(pages(pageOfDesign), 3);
        EXPECT_EQ(pages("CLibrariesDialog"), 3)
            << "the dialog twice: for a new library, and for the first one";
    }
    EXPECT_EQ(readFile(project), readFile(fs::path(OV_SAMPLES) / "motorcontroller/motorcontroller.prj"));
}

TEST_F(Tour, DarkPicturesAreDarkAndNamesAreSafeForAFile) {
    writeCatalogue({{"A/B: *C*", "Empty"}, {"...", "Empty"}, {"Größe", "Empty"}});
    const Outcome outcome = runProgram({"--page", "Nope", "tour", pictures.string(), "--dark"});
    ASSERT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("there is no category Nope; the dialog opens at A/B: *C*\n"),
              std::string::npos)
        << outcome.err;
    EXPECT_TRUE(fs::exists(pictures / "02-unnamed.png"));
    EXPECT_TRUE(fs::exists(pictures / "03-Größe.png"));
    const QImage picture(QString::fromStdString((pictures / "01-A-B-C.png").string()));
    ASSERT_FALSE(picture.isNull());
    EXPECT_LT(qGray(picture.pixel(2, 2)), 80);
}

TEST_F(Tour, PageThatDoesNotLetItselfBeLeftIsNamedOnceAndTheOthersAreVisited) {
    writeFile(installation.user() / "orvane.xml",
              "<configuration><section path='Orvane/SETTINGS'>"
              "<value name='GRID_HR'>0</value></section></configuration>");
    writeCatalogue({{"Bad", "Grid"}, {"A", "Empty"}, {"B", "Empty"}});
    const Outcome outcome = runProgram({"tour", pictures.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("the page of Bad does not let itself be left\n"), std::string::npos);
    EXPECT_EQ(outcome.err.find("could not be"), std::string::npos) << outcome.err;
    EXPECT_EQ(summary().at(2).at(2), "CEmptyDialog");
}

TEST_F(Tour, CatalogueThatCannotBeReadIsNotedAndDoesNotHang) {
    const Outcome outcome = runProgram({"--catalogue", "missing.xml", "tour", pictures.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("the dialog has no categories"), std::string::npos) << outcome.err;
    EXPECT_EQ(readFile(pictures / "summary.txt"), "note: message box: File not found\n");
}

TEST_F(Tour, PictureThatCannotBeWrittenIsAFailure) {
    writeCatalogue({{"First", "Empty"}, {"Second", "Empty"}});
    fs::create_directories(pictures / "01-First.png");
    const Outcome outcome = runProgram({"tour", pictures.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("the picture of First could not be written"), std::string::npos)
        << outcome.err;
    EXPECT_TRUE(fs::exists(pictures / "02-Second.png"));
    EXPECT_EQ(summary().front()[1], "no picture");

    writeFile(root / "file", "");
    const std::string file = (root / "file").string();
    EXPECT_EQ(runProgram({"tour", file}).err,
              "orvane-settings: " + file + " cannot be made: Not a directory\n");
}

} // namespace
