// The sample installation against the product's tables.

#include "tests/support/testsupport.h"

#include <orv/appconfiguration.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

const char* const kPageKeys =
    "Pan and Zoom|Advanced|Metrics|Grid|Nets|PCB|Color Schemes|Font Mappings|New Sheet|Global Nets|"
    "Run on Startup|New Object|Empty|Special Components|Central Library|Netlist Project|Borders|"
    "Symbol Libraries|NetNameDelimiter|Fixed Functions|PartBookDialog|Display|Objects";

const char* const kCaptions =
    "Project|Central Library|Designs|Projects|Special Components|Borders|Net Name Delimiter|"
    "OvPartBook|Schematic Editor|Units|Grid|Strokes, Pan and Zoom|New Sheets|New Objects|Nets|"
    "Interconnectivity Table|General|Slice and Dice|Properties|Navigator|Blocks|Symbols|Display|"
    "Objects|Font Mappings|Orvane Diagnostics|Cross Probing|Run on Startup|Advanced|Symbol Libraries|"
    "Bus Contents|Simulate|Fixed Functions|PCB|Color Schemes|Global Nets";

Names split(const std::string& joined) {
    Names names;
    std::istringstream stream(joined);
    for (std::string name; std::getline(stream, name, '|');)
        names.insert(name);
    return names;
}

Names textsOf(const QString& element) {
    QFile file(QStringLiteral(OV_INSTALLATION "/standard/settings.xml"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    Names texts;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == element)
            texts.insert(reader.readElementText().toStdString());
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return texts;
}

TEST(SampleCatalogue, ShowsEveryPageOfTheProductUnderKnownCaptions) {
    EXPECT_EQ(textsOf("classid"), split(kPageKeys));
    EXPECT_EQ(textsOf("localization"), (Names{"internal", "projects"}));
    Names strange;
    std::ranges::set_difference(textsOf("name"), split(kCaptions), std::inserter(strange, strange.end()));
    EXPECT_EQ(strange, Names{});
}

TEST(SampleInstallation, LocksWhatItSaysAndLeavesTheSpacingsToTheUser) {
    const fs::path home = OV_INSTALLATION;
    const testsupport::TemporaryDirectory user;
    const testsupport::ScopedEnvironment rsrHome("RSR_HOME", home.string());
    const testsupport::ScopedEnvironment wdir("WDIR", user.path().string() + ";" + (home / "site").string() +
                                                          ";" + (home / "standard").string());
    Orv::iAppConfiguration configuration;
    testing::internal::CaptureStderr();
    ASSERT_TRUE(configuration.load());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    Names locked;
    for (const std::string& key : configuration.keys()) {
        Orv::iAppConfiguration::Property property(key);
        configuration.getProperty(property);
        if (std::ranges::find(property.readonly, 1) != property.readonly.end())
            locked.insert(key);
    }
    EXPECT_EQ(locked, (Names{"GRID_HIGHLIGHT_MARKS", "GRID_HIGHLIGHT_MARKS_INTERVAL", "NET", "ROUTE"}));
    EXPECT_EQ(configuration.getNumber("GRID_HR"), 254000);
    EXPECT_EQ(configuration.getNumber("ADISTANCE_HR"), 508000);
    EXPECT_EQ(configuration.getNumber("SHEETSIZE"), 6);
    EXPECT_EQ(configuration.lockingDirectory("NET", 2), (home / "site").string());
}

} // namespace
