// The tour of the settings dialog, run by the built program.

#include "tests/app/program.h"
#include "tests/support/configurationtext.h"

#include <QtGui/QImage>

#include <algorithm>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

class Tour : public testing::Test {
protected:
    // Adds a catalogue with one category after another, each an internal page.
    void writeCatalogue(const std::vector<std::pair<std::string, std::string>>& captionsAndKeys) {
        std::string text;
        for (const auto& [caption, key] : captionsAndKeys)
            text += installation.category(caption, key);
        installation.writeCatalogue(text);
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

    Installation installation;
    TemporaryDirectory root;
    fs::path pictures = root / "new/pictures";
};

TEST_F(Tour, EachCategoryOfTheInstallationGetsItsPictureAndNothingElseChanges) {
    fs::copy(fs::path(OV_INSTALLATION) / "standard", installation.standard(), fs::copy_options::recursive);
    writeFile(installation.user() / "orvane.xml", "<configuration/>");
    const Outcome outcome = runProgram({"tour", pictures.string(), "--size", "900x700"});
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;

    const auto rows = summary();
    EXPECT_EQ(rows.size(), 17u) << "a key that is none loses its category";
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

TEST_F(Tour, AProjectThatCannotBeOpenedIsToldAndNothingIsVisited) {
    const std::string project = (root / "board.prj").string();
    for (const Words& command : {Words{}, Words{"tour", pictures.string()}}) {
        Words words{"--project", project};
        words.insert(words.end(), command.begin(), command.end());
        const Outcome refused = runProgram(words);
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(contains(refused.err, "the project cannot be opened: " + project));
    }
    EXPECT_FALSE(fs::exists(pictures / "summary.txt"));
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
        EXPECT_FALSE(contains(tour.out, "note:"));
        const auto rows = summary();
        const auto pages = [&](const std::string& name) {
            return std::ranges::count_if(rows, [&](const Words& row) { return row.at(2) == name; });
        };
        EXPECT_EQ(rows.size(), 33u);
        EXPECT_EQ(pages("CProjectDialog"), 1);
        EXPECT_EQ(pages(pageOfDesign), 3);
        EXPECT_EQ(pages("CLibrariesDialog"), 3)
            << "the dialog twice: for a new library, and for the first one";
    }
    EXPECT_EQ(readFile(project), readFile(fs::path(OV_SAMPLES) / "motorcontroller/motorcontroller.prj"));
}

TEST_F(Tour, DarkPicturesAreDarkAndNamesAreSafeForAFile) {
    writeCatalogue({{"A/B: *C*", "Empty"}, {"...", "Empty"}, {"Größe", "Empty"}});
    fs::create_directories(pictures);
    writeFile(root / "kept", "kept");
    for (const char* name : {"summary.txt", "01-A-B-C.png", ".summary.txt.tmp"})
        fs::create_symlink(root / "kept", pictures / name);
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
    EXPECT_EQ(summary().size(), 3u);
    EXPECT_EQ(readFile(root / "kept"), "kept") << "a link in the way was followed";
}

TEST_F(Tour, PageThatDoesNotLetItselfBeLeftIsNamedOnceAndTheOthersAreVisited) {
    writeLevel(installation.user(), setting("GRID_HR", "0"));
    writeCatalogue({{"Grid", "Grid"}, {"Nets", "Empty"}, {"Units", "Empty"}});
    const Outcome outcome = runProgram({"tour", pictures.string()}, {{{"LC_ALL", "ja_JP.UTF-8"}}, false, {}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(contains(outcome.err, "the page of グリッド does not let itself be left\n"));
    EXPECT_FALSE(contains(outcome.err, "could not be"));
    EXPECT_EQ(summary().at(2).at(2), "CEmptyDialog");
}

TEST_F(Tour, CatalogueThatCannotBeReadIsNotedAndDoesNotHang) {
    const Outcome outcome = runProgram({"--catalogue", "missing.xml", "tour", pictures.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(contains(outcome.err, "the dialog has no categories"));
    EXPECT_EQ(readFile(pictures / "summary.txt"),
              "note: " + (installation.standard() / "missing.xml").string() +
                  ": cannot read: No such file or directory\nnote: message box: File not found\n");
}

TEST_F(Tour, PictureThatCannotBeWrittenIsAFailure) {
    writeCatalogue({{"First", "Empty"}, {"Second", "Empty"}});
    fs::create_directories(pictures / "01-First.png");
    const Outcome outcome = runProgram({"tour", pictures.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(contains(outcome.err, "the picture of First could not be written"));
    EXPECT_TRUE(fs::exists(pictures / "02-Second.png"));
    EXPECT_EQ(summary().front()[1], "no picture");

    writeFile(root / "file", "");
    const std::string file = (root / "file").string();
    EXPECT_EQ(runProgram({"tour", file}).err,
              "orvane-settings: " + file + " cannot be made: Not a directory\n");
}

} // namespace
