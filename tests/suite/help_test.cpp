#include "suite/help.h"

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "tests/support/widgets.h"

#include <QtGui/QScreen>
#include <QtWidgets/QTextBrowser>

#include <stdexcept>
#include <utility>

namespace {

using testsupport::writeFile;

std::string pageText(const std::string& title, const std::string& body = "") {
    return "<html><head><title>" + title + "</title></head><body><p>" + body + "</p></body></html>";
}

std::vector<QDialog*> helpWindows() {
    std::vector<QDialog*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(widget);
        if (dialog && dialog->isVisible() &&
            dialog->findChild<QTextBrowser*>(QString(), Qt::FindDirectChildrenOnly))
            windows.push_back(dialog);
    }
    return windows;
}

class Help : public testing::Test {
protected:
    Help() {
        const auto book = installation_.standard() / "help" / "orvane_ref";
        writeFile(book / "index.html", pageText("Contents"));
        writeFile(book / "GRID.html", pageText("Grid", "<a href=\"Units.HTML#top\">Units</a>"));
        writeFile(book / "UNITS.html", pageText("Units"));
        writeFile(installation_.standard() / "help" / "secret.html", pageText("Secret"));
        writeFile(installation_.standard() / "help" / "other" / "GRID.html", pageText("Other grid"));
        testsupport::activate(owner_);
    }

    // The only help window there is; the test ends if there are none or several.
    QDialog& window() {
        const auto windows = helpWindows();
        if (windows.size() != 1)
            throw std::runtime_error("there are " + std::to_string(windows.size()) + " help windows");
        return *windows.front();
    }

    std::string title() { return window().windowTitle().toStdString(); }

    testsupport::Installation installation_;
    QDialog owner_;
};

TEST_F(Help, ATopicIsFoundExactlyThenWithoutCaseThenAsTheIndex) {
    writeFile(installation_.standard() / "help" / "orvane_ref" / "grid.html",
              pageText("\nSmall\u202e &lt;b>grid"));
    const struct {
        const char* topic;
        int shown;
        const char* title;
    } rows[] = {
        {"GRID", 1, "Grid"},     {"grid", 1, "Small\ufffd <b>grid"}, {"units", 1, "Units"},
        {"NETS", 0, "Contents"}, {"index", 1, "Contents"},           {"", 0, "Contents"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(OlhHelpCall("orvane_ref", row.topic, 0), row.shown) << row.topic;
        EXPECT_EQ(title(), row.title);
    }
    EXPECT_EQ(OlhHelpCall("Orvane_Ref", "UNITS", 0), 1);
    EXPECT_EQ(OlhHelpCall(nullptr, nullptr, 0), 0);
    EXPECT_EQ(title(), "Contents") << "of the reference";
}

TEST_F(Help, WithoutABookOrAPlainNameTheUserIsToldSo) {
    writeFile(installation_.standard() / "help" / "empty" / "readme.txt", "no page");
    const std::pair<const char*, const char*> rows[] = {
        {"nobook", "GRID"},
        {"empty", ""},
        {"orvane_ref", "../secret"},
        {"orvane_ref", "..\\secret"},
        {"..", "help"},
        {".", "secret"},
        {"orvane_ref/../orvane_ref", "GRID"},
        {"empty", "GRID"},
    };
    for (const auto& [book, topic] : rows) {
        testsupport::activate(owner_); // without a window manager nobody gives the focus back after a box
        std::string seen;
        QWidget* parent = nullptr;
        testsupport::whenModal([&](QWidget& box) {
            seen = dynamic_cast<QMessageBox&>(box).text().toStdString();
            parent = box.parentWidget();
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(OlhHelpCall(book, topic, 0), 0);
        EXPECT_EQ(seen, "There is no help for this page.") << (topic ? topic : "");
        EXPECT_EQ(parent, &owner_);
    }
    EXPECT_TRUE(helpWindows().empty());
}

TEST_F(Help, EveryPageOpensItsTopicAndOneWithoutATopicTheContents) {
    const std::pair<std::string, std::vector<std::string>> titlesAndPages[] = {
        {"Orvane Settings", {"Empty", "Color Schemes", "PCB", "Global Nets"}},
        {"Units", {"Metrics"}},
        {"Grid", {"Grid"}},
        {"Strokes, Pan and Zoom", {"Pan and Zoom"}},
        {"New Sheets", {"New Sheet"}},
        {"New Objects", {"New Object"}},
        {"Nets", {"Nets"}},
        {"Display", {"Display"}},
        {"Objects", {"Objects"}},
        {"Font Mappings", {"Font Mappings"}},
        {"Run on Startup", {"Run on Startup"}},
        {"Advanced", {"Advanced"}},
    };
    std::filesystem::copy(OV_INSTALLATION, installation_.home(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    std::string catalogue;
    for (const auto& [expected, pages] : titlesAndPages) {
        for (const std::string& page : pages)
            catalogue += installation_.category(page, page);
    }
    installation_.writeCatalogue(catalogue);
    Orv::iAppConfiguration configuration;
    ASSERT_TRUE(configuration.load());
    Orv::CProjectConfiguration noProject;
    testsupport::whenDialog([&](QDialog& dialog) {
        for (const auto& [expected, pages] : titlesAndPages) {
            for (const std::string& page : pages) {
                testsupport::selectCategory(dialog, page);
                EXPECT_EQ(testsupport::messageDuring([&] { testsupport::press(dialog, "Help"); }), "")
                    << page;
                ASSERT_EQ(helpWindows().size(), 1U) << page;
                EXPECT_EQ(helpWindows().front()->windowTitle().toStdString(), expected) << page;
                helpWindows().front()->close();
            }
        }
        dialog.reject();
    });
    ovsettings::showSettingsDialog(configuration, noProject, nullptr);
}

TEST_F(Help, OpensBesideItsOwnerWhereThereIsRoom) {
    const QRect screen = owner_.screen()->availableGeometry();
    for (const QRect& place : {QRect(0, 100, 300, 200), QRect(400, 600, 400, 150), screen}) {
        owner_.setGeometry(place.translated(screen.topLeft()));
        OlhHelpCall("orvane_ref", "GRID", 0);
        EXPECT_EQ(window().frameGeometry().intersects(owner_.frameGeometry()), place == screen);
        EXPECT_TRUE(screen.contains(window().frameGeometry()));
        window().close();
    }
}

TEST_F(Help, OneWindowServesAllCallsAndFollowsTheActiveWindow) {
    OlhHelpCall("orvane_ref", "GRID", 0);
    EXPECT_EQ(window().parentWidget(), &owner_);
    EXPECT_FALSE(window().isModal());
    {
        QDialog second;
        second.setModal(true);
        testsupport::activate(second);
        OlhHelpCall("other", "GRID", 0);
        EXPECT_EQ(title(), "Other grid");
        EXPECT_EQ(window().parentWidget(), &second);
        EXPECT_FALSE(window().findChild<QTextBrowser*>()->isBackwardAvailable());
    }
    EXPECT_TRUE(helpWindows().empty());
    testsupport::activate(owner_);
    OlhHelpCall("orvane_ref", "UNITS", 0);
    QTest::keyClick(window().findChild<QTextBrowser*>(), Qt::Key_Escape);
    EXPECT_TRUE(helpWindows().empty());
    EXPECT_TRUE(owner_.isVisible());
    OlhHelpCall("orvane_ref", "GRID", 0);
    EXPECT_EQ(title(), "Grid");
    EXPECT_FALSE(window().findChild<QTextBrowser*>()->isBackwardAvailable());
}

TEST_F(Help, ALinkOfTheBookIsFollowedFromTheKeyboardAndBackAgain) {
    OlhHelpCall("orvane_ref", "GRID", 0);
    auto* browser = window().findChild<QTextBrowser*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(browser, Qt::Key_Tab);
    QTest::keyClick(browser, Qt::Key_Return);
    EXPECT_EQ(title(), "Units");
    auto* back = testsupport::find<QPushButton>(window(), "Back");
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(title(), "Grid");
    EXPECT_FALSE(back->isEnabled());
}

TEST_F(Help, LinksOutOfTheBookAreNotFollowed) {
    for (const char* link : {"http://example.invalid/UNITS.html", "mailto:someone@example.invalid",
                             "../secret.html", "file:///etc/passwd", "MISSING.html"}) {
        writeFile(installation_.standard() / "help" / "orvane_ref" / "LINK.html",
                  pageText("Links", std::string("<a href=\"") + link + "\">away</a>"));
        OlhHelpCall("orvane_ref", "LINK", 0);
        auto* browser = window().findChild<QTextBrowser*>();
        browser->reload();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        QTest::keyClick(browser, Qt::Key_Tab);
        ASSERT_EQ(browser->textCursor().charFormat().anchorHref().toStdString(), link);
        QTest::keyClick(browser, Qt::Key_Return);
        EXPECT_EQ(title(), "Links") << link;
    }
}

} // namespace
