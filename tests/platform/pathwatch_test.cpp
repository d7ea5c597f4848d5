#include "platform/pathwatch.h"

#include "tests/support/testsupport.h"

#include <functional>

namespace {

namespace fs = std::filesystem;
using testsupport::writeFile;

TEST(PathWatch, TellsOfWhateverChangesWhatAPathLeadsTo) {
    const testsupport::TemporaryDirectory place;
    const fs::path root = place.path();
    const struct {
        const char* what;
        std::function<void()> act;
        bool isTold;
    } steps[] = {
        {"the directory appears", [&] { fs::create_directories(root / "user"); }, true},
        {"a neighbour", [&] { writeFile(root / "user/other.xml", "1"); }, false},
        {"a link to nothing", [&] { fs::create_symlink("../site/common.xml", root / "user/orvane.xml"); },
         true},
        {"the way to its end", [&] { fs::create_directory(root / "site"); }, true},
        {"its end", [&] { writeFile(root / "site/common.xml", "1"); }, true},
        {"it is written in place", [&] { writeFile(root / "site/common.xml", "2"); }, true},
        {"it is replaced",
         [&] {
             writeFile(root / "site/new", "3");
             fs::rename(root / "site/new", root / "site/common.xml");
         },
         true},
        {"another end",
         [&] {
             writeFile(root / "else.xml", "4");
             fs::create_symlink(root / "else.xml", root / "user/link");
             fs::rename(root / "user/link", root / "user/orvane.xml");
         },
         true},
        {"the former end", [&] { writeFile(root / "site/common.xml", "5"); }, false},
        {"the new end", [&] { fs::remove(root / "else.xml"); }, true},
        {"another case", [&] { fs::rename(root / "user/orvane.xml", root / "user/Orvane.XML"); }, true},
        {"the directory goes away", [&] { fs::rename(root / "user", root / "gone"); }, true},
        {"what is gone", [&] { writeFile(root / "gone/orvane.xml", "6"); }, false},
        {"another in its place",
         [&] {
             fs::create_directory(root / "next");
             writeFile(root / "next/orvane.xml", "7");
             fs::rename(root / "next", root / "user");
         },
         true},
        {"a link in a circle",
         [&] {
             fs::remove(root / "user/orvane.xml");
             fs::create_symlink("orvane.xml", root / "user/orvane.xml");
         },
         true},
    };
    platform::PathWatch watch({(root / "user/orvane.xml").string()});
    ASSERT_GE(watch.descriptor(), 0);
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(watch.takeChanges(), step.isTold) << step.what;
        EXPECT_FALSE(watch.takeChanges()) << step.what;
    }
}

} // namespace
